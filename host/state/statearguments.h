// What of the command line puts an effect into its state.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "effect/parameters.h"

// --set NAME=VALUE, taken apart at the first "=".
struct ParameterSetting {
  std::string parameter;  // name or index
  std::string value;
};

// In the order in which it is applied.
struct StateArguments {
  std::optional<std::string> state;                          // raw chunk
  std::optional<std::string> bank;                           // .orb
  std::optional<std::string> preset;                         // name, number or .orv
  std::array<std::optional<float>, kParameterCount> values;  // of Trelvan, normalised, by index
  std::vector<ParameterSetting> settings;
  std::optional<std::string> automation;  // file; what it names for the very beginning
};
