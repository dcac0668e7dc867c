// An effect's parameters and presets, as texts for the person.
#pragma once

#include <string>

#include "host/vst/effect.h"

std::string describeParameters(Effect& effect);  // --list-params
std::string describePresets(Effect& effect);     // --list-presets

// The parameters' values in one line, "width 75.0 %, process On"; the first few where
// there are many.
std::string describeValues(Effect& effect);
// `preset 1 "mix 1"`, or nothing where the effect has none.
std::string describeCurrentPreset(Effect& effect);
