// Checks that texts, states and sound do not depend on how the host writes numbers, rounds, or
// treats denormal numbers.
#include <algorithm>
#include <array>
#include <cmath>

#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/means/decimalcomma.h"
#include "host/validate/means/floatmodes.h"
#include "host/validate/means/guardedtext.h"
#include "host/validate/means/rendering.h"
#include "host/validate/means/wholelife.h"

namespace {

using Texts = std::vector<std::string>;

// Displays with many digits, which are the first to differ.
void addDisplays(Trial& trial, Texts& texts) {
  constexpr int kMostAsked = 64;  // parameters
  PluginModule module(trial.plugin());
  Subject subject(module);
  trial.step("asking for displays");
  for (int index = 0; index < std::min(subject.record().numParams, kMostAsked); ++index) {
    for (const float value : {0.0F, 0.1F, 0.2718F, 1.0F / 3.0F, 0.515F, 0.7071F, 0.9999F, 1.0F}) {
      subject.setParameter(index, value);
      texts.push_back(givenText(subject, effGetParamDisplay, index));
    }
  }
}

Texts textsOf(Trial& trial) {
  Texts texts;
  liveThrough(
      trial, [](const char*) {}, [&](const char* text) { texts.emplace_back(text); });
  addDisplays(trial, texts);
  return texts;
}

// Texts that are not the same each time are not compared.
Texts usualTexts(Trial& trial) {
  Texts texts = textsOf(trial);
  if (texts != textsOf(trial)) trial.leaveOut("its texts are not the same each time");
  return texts;
}

void needSameTexts(Trial& trial, const Texts& usual, const Texts& now, const char* where) {
  if (usual.size() != now.size())
    trial.fail("gives %zu texts %s, and %zu otherwise", now.size(), where, usual.size());
  const auto [one, other] = std::mismatch(usual.begin(), usual.end(), now.begin());
  if (one == usual.end()) return;
  trial.fail("says \"%s\" %s, and \"%s\" otherwise", other->c_str(), where, one->c_str());
}

void textsWithFlush(Trial& trial) {
  if (!FloatModes::canFlush()) trial.leaveOut("this processor does not flush denormal numbers");
  const Texts usual = usualTexts(trial);
  const FloatModes modes(FloatModes::Rounding::nearest, true);
  needSameTexts(trial, usual, textsOf(trial), "where denormal numbers are flushed");
}

void textsWithRounding(Trial& trial) {
  struct Named {
    FloatModes::Rounding rounding;
    const char* where;
  };
  constexpr std::array kNamed{
      Named{FloatModes::Rounding::down, "where the host rounds down"},
      Named{FloatModes::Rounding::up, "where the host rounds up"},
      Named{FloatModes::Rounding::towardsZero, "where the host rounds towards zero"}};
  const Texts usual = usualTexts(trial);
  for (const auto& [rounding, where] : kNamed) {
    const FloatModes modes(rounding, false);
    needSameTexts(trial, usual, textsOf(trial), where);
  }
}

void needComma(Trial& trial) {
  if (!DecimalComma().works()) trial.leaveOut("this system has no locale with a decimal comma");
}

void textsWithComma(Trial& trial) {
  needComma(trial);
  const Texts usual = usualTexts(trial);
  const DecimalComma comma;
  needSameTexts(trial, usual, textsOf(trial), "where numbers have a decimal comma");
}

// What a new effect makes of a state.
std::vector<float> loaded(PluginModule& module, std::span<const unsigned char> state) {
  Subject subject(module);
  subject.setChunk(state);
  return subject.parameters();
}

void needSameParameters(Trial& trial, const std::vector<float>& usual,
                        const std::vector<float>& now, const char* what) {
  for (std::size_t index = 0; index < std::min(usual.size(), now.size()); ++index) {
    constexpr float kNothing = 1e-4F;  // less than any knob shows
    if (!(std::abs(usual[index] - now[index]) <= kNothing))
      trial.fail("parameter %zu is %g %s, and %g otherwise", index, now[index], what, usual[index]);
  }
}

// A session that was saved in one country is opened in another.
void statesWithComma(Trial& trial) {
  needComma(trial);
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  for (int round = 0; round < trial.rounds(5); ++round) {
    for (int index = 0; index < subject.record().numParams; ++index)
      subject.setParameter(index, trial.randomUnit());
    trial.step("saving and loading a state with a decimal point, round %d", round + 1);
    const auto usual = subject.chunk();
    const std::vector<float> values = loaded(module, usual);
    std::vector<unsigned char> foreign;
    {
      const DecimalComma comma;
      trial.step("saving and loading a state with a decimal comma, round %d", round + 1);
      needSameParameters(trial, values, loaded(module, usual),
                         "where its state is loaded with a decimal comma");
      foreign = subject.chunk();
    }
    trial.step("loading a state of a host with a decimal comma, round %d", round + 1);
    needSameParameters(trial, values, loaded(module, foreign),
                       "where its state was saved with a decimal comma");
  }
}

// Hosts flush on their audio threads, and files are made by others that do not.
void soundWithFlush(Trial& trial) {
  if (!FloatModes::canFlush()) trial.leaveOut("this processor does not flush denormal numbers");
  constexpr int kFrames = 1 << 13;
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    const auto input = noise<Sample>(trial, effect.subject.record().numInputs, kFrames);
    const std::vector<int> blocks = equalBlocks(kFrames, 512);
    const auto expected = reliablyRendered(trial, effect.module, input, blocks);
    const FloatModes modes(FloatModes::Rounding::nearest, true);
    trial.step("playing with denormal numbers flushed (%s)", kPrecision<Sample>);
    needSameSound(trial, expected, rendered(trial, effect.module, input, blocks),
                  "where denormal numbers are flushed");
  });
}

constexpr std::array kChecks{
    Check{"sound is the same where denormal numbers are flushed", 5, 30, soundWithFlush},
    Check{"texts are the same where denormal numbers are flushed", 5, 60, textsWithFlush},
    Check{"a state is the same with a decimal comma", 6, 60, statesWithComma},
    Check{"texts are the same with a decimal comma", 10, 60, textsWithComma},
    Check{"texts are the same however the host rounds", 10, 60, textsWithRounding},
};

}  // namespace

std::span<const Check> hostModeChecks() {
  return kChecks;
}
