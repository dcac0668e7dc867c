// What an effect tells of its state.
#include "host/validate/means/toldstate.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "host/base/text.h"
#include "host/validate/means/guardedtext.h"

namespace {

// Of 0..1: states that keep what a parameter means, as rounded text, do not give its bits back.
constexpr float kNear = 0.01F;

bool isNear(float a, float b) {
  return isSameValue(a, b) || std::fabs(a - b) <= kNear;
}

// Half of them an end, so that few rounds find both positions of a switch: some are on at 1 only.
float someValue(Trial& trial) {
  const int kind = trial.randomInt(0, 3);
  return kind < 2 ? static_cast<float>(kind) : trial.randomUnit();
}

}  // namespace

ToldState toldState(Subject& subject) {
  ToldState told;
  for (int index = 0; index < subject.record().numParams; ++index)
    told.values.push_back(subject.parameter(index));
  told.program = static_cast<int>(subject.dispatch(effGetProgram));
  told.name = givenText(subject, effGetProgramName);
  return told;
}

void changeAtRandom(Trial& trial, Subject& subject, int number) {
  for (int index = 0; index < subject.record().numParams; ++index)
    subject.setParameter(index, someValue(trial));
  std::array<char, kVstMaxProgNameLen> name{};
  std::snprintf(name.data(), name.size(), "Kept %d", number);
  subject.dispatch(effSetProgramName, 0, 0, name.data());
}

SettledState settledAtRandom(Trial& trial, Subject& subject, int number, bool programOnly) {
  changeAtRandom(trial, subject, number);
  const ToldState set = toldState(subject);
  trial.step("saving and loading a state");
  const auto bytes = subject.chunk(programOnly);
  if (bytes.empty()) trial.leaveOut("its chunk is empty");
  changeAtRandom(trial, subject, number + 1);
  subject.setChunk(bytes, programOnly);
  return {set, toldState(subject)};
}

std::string notBack(const ToldState& saved, const ToldState& changed, const ToldState& loaded) {
  for (std::size_t i = 0; i < saved.values.size() && i < loaded.values.size(); ++i) {
    if (isNear(saved.values[i], changed.values[i]) || isNear(saved.values[i], loaded.values[i]))
      continue;
    return formatted("parameter %zu was %g when it was saved and is %g", i,
                     static_cast<double>(saved.values[i]), static_cast<double>(loaded.values[i]));
  }
  return {};
}

bool isLoaded(const ToldState& saved, const ToldState& changed, const ToldState& loaded) {
  int counted = 0;
  int back = 0;
  for (std::size_t i = 0; i < saved.values.size() && i < loaded.values.size(); ++i) {
    if (isNear(saved.values[i], changed.values[i])) continue;
    ++counted;
    if (isNear(saved.values[i], loaded.values[i])) ++back;
  }
  return 4 * back >= counted;
}

std::string nearlyBack(const ToldState& saved, const ToldState& loaded) {
  for (std::size_t i = 0; i < saved.values.size() && i < loaded.values.size(); ++i) {
    if (isSameValue(saved.values[i], loaded.values[i]) ||
        !isNear(saved.values[i], loaded.values[i]))
      continue;
    return formatted("parameter %zu comes back as %.9g and was %.9g", i,
                     static_cast<double>(loaded.values[i]), static_cast<double>(saved.values[i]));
  }
  return {};
}

void StuckParameters::Range::add(float value) {
  lowest = std::fmin(lowest, value);
  highest = std::fmax(highest, value);
}

void StuckParameters::add(const SettledState& state) {
  set.resize(state.set.values.size());
  loaded.resize(set.size());
  for (std::size_t i = 0; i < set.size() && i < state.told.values.size(); ++i) {
    set[i].add(state.set.values[i]);
    loaded[i].add(state.told.values[i]);
  }
}

std::string StuckParameters::found() const {
  constexpr float kAtEnd = 1.0e-3F;  // some switches are on at 1 only
  for (std::size_t i = 0; i < set.size(); ++i) {
    const bool moved = set[i].lowest < kAtEnd && set[i].highest > 1.0F - kAtEnd;
    if (!moved || !isNear(loaded[i].lowest, loaded[i].highest)) continue;
    return formatted("parameter %zu is %g whatever it was when it was saved (%g to %g)", i,
                     static_cast<double>(loaded[i].lowest), static_cast<double>(set[i].lowest),
                     static_cast<double>(set[i].highest));
  }
  return {};
}
