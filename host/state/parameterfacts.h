// What an effect says of one of its parameters.
#pragma once

#include <optional>
#include <string>

#include "host/vst/effect.h"

struct ParameterFacts {
  std::string name;
  float value = 0.0F;   // 0..1
  std::string display;  // the value in the effect's words
  std::string label;    // its unit; may be empty
  bool automatable = false;
  bool isSwitch = false;
  struct Steps {
    float small, usual, large;
  };
  std::optional<Steps> steps;
  struct Range {
    int least, most;
  };
  std::optional<Range> range;  // of whole numbers
};

ParameterFacts factsOfParameter(Effect& effect, int index);
