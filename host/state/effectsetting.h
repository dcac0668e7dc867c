// Which effect a file went through, and how it was set.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/state/parameterfacts.h"
#include "host/vst/effect.h"

struct EffectSetting {
  std::string effect;  // its own name
  struct Preset {
    int number;
    std::string name;
  };
  std::optional<Preset> preset;            // none where it has no programs
  std::vector<ParameterFacts> parameters;  // by index
};

EffectSetting settingOf(Effect& effect);
