// Makes the effect that the entry point hands to the host.
#pragma once

#include "plugin/vst24.h"

class AudioEffect;

// True where the host returns anything but 0 for its version: real hosts return 2400, 2300
// and 2.
bool hostHasVersion(audioMasterCallback audioMaster);

// A new effect, or null where the host has no version. The caller owns it; effClose deletes it.
// Throws what the effect's construction throws. Implemented in the effect's room, the only thing
// the entry knows of it.
AudioEffect* createEffectInstance(audioMasterCallback audioMaster);

// The entry point's work: no exception leaves it, failure is null.
AEffect* createEffectRecord(audioMasterCallback audioMaster);
