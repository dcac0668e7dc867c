// The part of the command line about how the effect is set.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "effect/parameters.h"
#include "host/options/arguments.h"
#include "host/options/commandline.h"

// As they were typed.
struct SoundWords {
  std::array<std::string, kParameterCount> values;
  std::vector<std::string> settings;
  std::string state, bank, preset, saveState, savePreset, saveBank, automation;
};

// Both outlive the parsing.
void addSoundOptions(CommandLine& line, SoundWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeSoundOptions(const CommandLine& line, const SoundWords& words, Arguments& arguments);
