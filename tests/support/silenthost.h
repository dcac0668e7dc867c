// A host that has a version and returns 0 to everything else.
#pragma once

#include "plugin/vst24.h"

// Any thread.
inline VstIntPtr silentHost(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
  return opcode == audioMasterVersion ? kVstVersion : 0;
}
