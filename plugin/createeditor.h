// Makes the window's editor for an effect that knows no toolkit.
#pragma once

class AEffEditor;
class AudioEffect;

// The caller owns it and installs it with setEditor; from its making on it is the effect's
// listener. Opens nothing and needs no display. Throws where there is no memory. Implemented in the
// window's room, which knows what class `effect` is.
AEffEditor* createEditor(AudioEffect* effect);
