// Checks that an effect leaves its host's surroundings alone.
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/validate/check.h"
#include "host/validate/means/floatmodes.h"
#include "host/validate/means/hostprocess.h"
#include "host/validate/means/wholelife.h"
#include "host/vst/pluginmodule.h"

namespace {

void leavesTheProcess(Trial& trial) {
  const std::string before = hostProcess();
  liveThrough(trial, [&](const char* stage) {
    const std::string change = firstChange(before, hostProcess());
    if (!change.empty()) trial.fail("after %s, the host has %s", stage, change.c_str());
  });
}

// The binary stays loaded beside it, so that its loading is not judged here.
void needSameModes(Trial& trial, FloatModes::Rounding rounding, bool flushes) {
  const PluginModule loaded(trial.plugin());
  const FloatModes modes(rounding, flushes);
  const unsigned long before = FloatModes::now();
  liveThrough(trial, [&](const char* stage) {
    const unsigned long after = FloatModes::now();
    if (after != before)
      trial.fail("after %s, the host calculates with %s", stage,
                 FloatModes::difference(before, after).c_str());
  });
}

void leavesTheModes(Trial& trial) {
  needSameModes(trial, FloatModes::Rounding::nearest, false);
}

void leavesFlushing(Trial& trial) {
  if (!FloatModes::canFlush()) trial.leaveOut("this processor does not flush denormal numbers");
  needSameModes(trial, FloatModes::Rounding::nearest, true);
}

void leavesRounding(Trial& trial) {
  for (const auto rounding :
       {FloatModes::Rounding::down, FloatModes::Rounding::up, FloatModes::Rounding::towardsZero}) {
    needSameModes(trial, rounding, false);
  }
}

// Compilers' options for fast calculation make a binary do this when it is loaded.
void loadingLeavesTheModes(Trial& trial) {
  const unsigned long before = FloatModes::now();
  trial.step("loading");
  const PluginModule module(trial.plugin());
  const unsigned long after = FloatModes::now();
  if (after != before)
    trial.fail("after loading, the host calculates with %s",
               FloatModes::difference(before, after).c_str());
}

// In the home folder that the checks have: the system's own for such files may be read-only.
std::FILE* temporaryFile() {
  const char* home = std::getenv("HOME");
  std::string name = std::string(home == nullptr ? "." : home) + "/written-XXXXXX";
  const int descriptor = mkstemp(name.data());
  if (descriptor < 0) return nullptr;
  unlink(name.c_str());
  return fdopen(descriptor, "w+");
}

// Hosts that write sound there would write what the effect says among it.
void writesNothing(Trial& trial) {
  std::FILE* file = temporaryFile();
  if (file == nullptr) trial.leaveOut("no temporary file can be made");
  std::fflush(stdout);
  const int before = dup(STDOUT_FILENO);
  dup2(fileno(file), STDOUT_FILENO);
  liveThrough(trial, [](const char*) { std::fflush(stdout); });
  dup2(before, STDOUT_FILENO);
  close(before);
  std::array<char, 80> beginning{};  // bytes of it that are told
  std::rewind(file);
  const bool wrote = std::fgets(beginning.data(), beginning.size(), file) != nullptr;
  std::fclose(file);
  if (!wrote) return;
  for (char& c : beginning) c = c == '\n' ? '\0' : c;
  trial.fail("writes to standard output: \"%s\"", beginning.data());
}

constexpr std::array kChecks{
    Check{"the host calculates as before", 5, 30, leavesTheModes},
    Check{"the host process is left as it was", 5, 30, leavesTheProcess},
    Check{"nothing is written to standard output", 6, 30, writesNothing},
    Check{"a host that flushes denormal numbers goes on doing so", 6, 30, leavesFlushing},
    Check{"loading leaves denormal numbers as they are", 10, 30, loadingLeavesTheModes},
    Check{"a host that rounds otherwise goes on doing so", 10, 60, leavesRounding},
};

}  // namespace

std::span<const Check> surroundingsChecks() {
  return kChecks;
}
