// The checks that an effect's record must pass before anything of it is used.
#pragma once

#include <string>

#include "plugin/vst24.h"

// Bounds beyond which a number is nonsense rather than generous.
constexpr VstInt32 kMostPins = 256;  // inputs, outputs; a sampler has 98
constexpr VstInt32 kMostParameters = 1 << 16;
constexpr VstInt32 kMostPrograms = 1 << 16;
constexpr VstInt32 kLongestLatency = 1 << 22;  // frames: more than 20 s at 192 kHz

// record: what the entry point returned. Throws Failure, opening with `plugin`.
void checkEffectRecord(const AEffect* record, const std::string& plugin);
// The same for what an effect may change while it lives: its pins and its latency.
void checkEffectShape(const AEffect& record, const std::string& plugin);
