// Checks of parameters, within their bounds and outside.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>

#include "host/validate/check.h"
#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 256;        // frames
constexpr float kBack = 0.5F;      // what a parameter is set to after a value that is none

void needParameters(Trial& trial, Subject& subject) {
  if (subject.record().numParams == 0) trial.leaveOut("it has no parameters");
}

void defaultsAreTheSame(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject first(module);
  needParameters(trial, first);
  Subject second(module);
  if (first.record().numParams != second.record().numParams)
    trial.fail("has %d parameters, and %d when it is made again", first.record().numParams,
               second.record().numParams);
  for (VstInt32 index = 0; index < first.record().numParams; ++index) {
    trial.step("getting parameter %d of two fresh instances", index);
    const float value = first.parameter(index);
    if (!isUnit(value)) trial.fail("parameter %d is %g at first", index, value);
    if (second.parameter(index) != value)
      trial.fail("parameter %d is %g at first, and %g in another instance", index, value,
                 second.parameter(index));
  }
}

// Steps may move a value, but not one that it gave itself: hosts set what they have got.
void keepsWhatItGave(Trial& trial) {
  constexpr float kNear = 0.001F;  // as near as texts of three places and curves with roots come
  PluginModule module(trial.plugin());
  Subject subject(module);
  needParameters(trial, subject);
  for (VstInt32 index = 0; index < subject.record().numParams; ++index) {
    const float before = subject.parameter(index);
    for (const float value : {0.0F, 0.25F, trial.randomUnit(), 1.0F, before}) {
      trial.step("setting parameter %d to %g", index, value);
      subject.setParameter(index, value);
      const float given = subject.parameter(index);
      if (!isUnit(given)) trial.fail("parameter %d, set to %g, is %g", index, value, given);
      subject.setParameter(index, given);
      const float again = subject.parameter(index);
      if (!(std::abs(again - given) <= kNear))
        trial.fail("parameter %d is %g, and when it is set to that, %g", index, given, again);
    }
  }
}

constexpr std::array kDamagedValues{
    -0.5F,
    1.5F,
    -1e30F,
    1e30F,
    -std::numeric_limits<float>::infinity(),
    std::numeric_limits<float>::infinity(),
    std::numeric_limits<float>::quiet_NaN(),
};

// Returns the first frame of the last block that is no number, or -1.
int playSome(Trial& trial, Subject& subject) {
  constexpr int kBlocks = 10;
  Stretch<float> stretch(subject, kBlock);
  for (int block = 0; block < kBlocks; ++block) {
    stretch.fillWithNoise(trial);
    stretch.playAll(subject, kBlock);
  }
  return stretch.firstNotFinite();
}

// Whatever such a value does to the sound, it ends with the value.
void soundsAgain(Trial& trial, Subject& subject, VstInt32 index, float value) {
  trial.step("processing with parameter %d set to %g", index, value);
  playSome(trial, subject);
  trial.step("processing with parameter %d set to %g and back", index, value);
  subject.setParameter(index, kBack);
  subject.stop();
  subject.start(kRate, kBlock);
  const int frame = playSome(trial, subject);
  if (frame >= 0)
    trial.fail(
        "parameter %d, set to %g and back to %g, leaves samples that are no numbers after "
        "it was switched off and on (frame %d)",
        index, value, kBack, frame);
}

void bearsDamagedValues(Trial& trial) {
  constexpr int kCareful = 10;  // strictness
  PluginModule module(trial.plugin());
  Subject subject(module);
  needParameters(trial, subject);
  subject.start(kRate, kBlock);
  const int count = subject.record().numParams;
  const int wanted = std::min(count, trial.rounds(20));
  constexpr auto kLongest = std::chrono::seconds(20);
  const auto end = std::chrono::steady_clock::now() + kLongest;
  for (int i = 0; i < wanted && std::chrono::steady_clock::now() < end; ++i) {
    const VstInt32 index = wanted == count ? i : trial.randomInt(0, count - 1);
    for (const float value : kDamagedValues) {
      trial.step("setting parameter %d to %g", index, value);
      subject.setParameter(index, value);
      const float given = subject.parameter(index);
      if (trial.strictness() >= kCareful && std::isnan(given))
        trial.fail("parameter %d, set to %g, is %g", index, value, given);
      if (subject.processes()) soundsAgain(trial, subject, index, value);
      subject.setParameter(index, kBack);
      const float after = subject.parameter(index);
      if (!isUnit(after))
        trial.fail("parameter %d, set to %g and then to %g, is %g", index, value, kBack, after);
    }
  }
}

constexpr std::array kChecks{
    Check{"fresh instances have the same parameters", 3, 60, defaultsAreTheSame},
    Check{"a parameter stays when it is set to what it is", 5, 60, keepsWhatItGave},
    Check{"parameter values that are none are borne", 9, 60, bearsDamagedValues},
};

}  // namespace

std::span<const Check> parameterChecks() {
  return kChecks;
}
