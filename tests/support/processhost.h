// The least host that processing needs: it has a version and knows which right pins are connected.
#pragma once

#include "plugin/vst24.h"

// What one host says about the right channel's pins. Lives as long as the effect whose record
// points to it.
struct Pins {
  bool rightInConnected = true;
  bool rightOutConnected = true;
};

// A record without pins, as while the effect is made, has all connected.
inline VstIntPtr processHost(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                             void*, float) {
  if (opcode == audioMasterVersion) return kVstVersion;
  if (opcode != audioMasterPinConnected || effect == nullptr || effect->user == nullptr ||
      index != 1)
    return 0;
  const auto& pins = *static_cast<const Pins*>(effect->user);
  const bool connected = value == 0 ? pins.rightInConnected : pins.rightOutConnected;
  return connected ? 0 : 1;
}
