// Checks of loading, making, ending and unloading, and of what stays behind.
#include <array>

#include "host/validate/check.h"
#include "host/validate/subject.h"

namespace {

void opensAndCloses(Trial& trial) {
  trial.step("loading");
  PluginModule module(trial.plugin());
  trial.step("making the effect");
  { const Subject subject(module); }
  trial.step("unloading");
}

constexpr std::array kChecks{
    Check{"an effect is made, opened, closed and unloaded", 1, 20, opensAndCloses},
};

}  // namespace

std::span<const Check> loadingChecks() {
  return kChecks;
}
