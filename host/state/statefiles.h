// The files that a run leaves of an effect's state.
#pragma once

#include <optional>
#include <string>

#include "host/vst/effect.h"

struct StateFiles {
  std::optional<std::string> preset;  // .orv or .fxp
  std::optional<std::string> bank;    // .orb or .fxb

  bool any() const { return preset || bank; }
};

// Whether they could be written now. Throws Failure.
void checkStateFiles(Effect& effect, const StateFiles& files, bool replace);
// None where the effect does not give one. Throws Failure.
void writeStateFiles(Effect& effect, const StateFiles& files, bool replace);
