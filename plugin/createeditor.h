// Makes the window's editor for an effect that knows no toolkit.
#pragma once

class AEffEditor;
class AudioEffect;

// The caller owns it and installs it with setEditor. Opens nothing and needs no display.
// Implemented in the window's room, which knows what class `effect` is. Throws where there is no
// memory.
AEffEditor* createEditor(AudioEffect* effect);
