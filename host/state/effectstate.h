// Puts an effect into the state that the command line asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/state/statearguments.h"
#include "host/vst/effect.h"

// In the order state, bank, preset, values, beginning of the automation, so that each goes on top
// of the one before. Throws Failure: files that cannot be read or taken, unknown presets and
// parameters, options that are not for this effect. Returns notes for the person, one line each.
std::vector<std::string> applyState(Effect& effect, const StateArguments& arguments);

// Before that, for a sound file: chooses a preset where the arguments leave it without a width.
// Returns its name.
std::optional<std::string> choosePresetForFile(Effect& effect, const StateArguments& arguments);

struct PresetNames {
  std::vector<std::string> names;  // by number
  int current = 0;
};
// Trelvan's own presets, other effects' programs.
PresetNames presetsOf(Effect& effect);
