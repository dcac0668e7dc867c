// What several threads set, select and rename at once: when all are done, what is heard is what is
// stored.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "effect/trelvan.h"
#include "tests/support/atonce.h"
#include "tests/support/silenthost.h"

namespace {

constexpr int kRounds = 20000;
constexpr int kSelections = 4000;  // rounds; a lock that two threads want takes longer

float valueOf(int round, int thread) {
  return static_cast<float>((round * 7 + thread * 3) % 101) / 101.0F;
}

// Of the first parameter: the current preset's, the effect's, and what follows from that.
int disagreements(Trelvan& effect) {
  const float raw = effect.getParameter(kWidthIndex);
  const bool stored = effect.preset(effect.getPresetNo()).parameter(kWidthIndex) == raw;
  const bool derived = effect.getParameterValue(kWidthIndex) == parametercurves::widthGain(raw);
  return stored && derived ? 0 : 1;
}

TEST(ParameterThreads, TwoThatSetOneParameterLeaveOneValue) {
  Trelvan effect(silentHost);
  int different = 0;
  AtOnce both(kRounds, [&](int round) { effect.setParameter(kWidthIndex, valueOf(round, 0)); });
  for (int round = 1; round <= kRounds; ++round) {
    both.round(round, [&] { effect.setParameter(kWidthIndex, valueOf(round, 1)); });
    different += disagreements(effect);
  }
  EXPECT_EQ(different, 0) << "of " << kRounds;
}

TEST(ParameterThreads, APresetAndAutomationAtOnceLeaveOneValue) {
  Trelvan effect(silentHost);
  int different = 0;
  int strange = 0;
  AtOnce both(kRounds, [&](int round) { effect.setParameter(kWidthIndex, valueOf(round, 0)); });
  for (int round = 1; round <= kRounds; ++round) {
    const long chosen = round % 2 == 0 ? 7 : 14;
    const long left = effect.getPresetNo();
    const float before = effect.preset(left).width;
    const float held = effect.preset(chosen).width;
    both.round(round, [&] { effect.setPresetNo(chosen); });
    different += disagreements(effect);
    const float heard = effect.getParameter(kWidthIndex);
    if (heard != held && heard != valueOf(round, 0)) ++strange;
    const float kept = effect.preset(left).width;
    if (left != chosen && kept != before && kept != valueOf(round, 0)) ++strange;
  }
  EXPECT_EQ(different, 0) << "of " << kRounds;
  EXPECT_EQ(strange, 0) << "each preset has its own value or the automation's";
}

TEST(ParameterThreads, TwoThatSelectAPresetLeaveTheBankAlone) {
  Trelvan effect(silentHost);
  const presetimage::Bank factory = effect.bank();
  int different = 0;
  AtOnce both(kSelections, [&](int) { effect.setPresetNo(7); });
  for (int round = 1; round <= kSelections; ++round) {
    both.round(round, [&] { effect.setPresetNo(14); });
    different += disagreements(effect);
    for (const int number : {7, 14}) {
      const auto slot = static_cast<std::size_t>(number);
      if (effect.preset(number).width != factory[slot].width) ++different;
      if (effect.preset(number).baseFreq != factory[slot].baseFreq) ++different;
    }
  }
  EXPECT_EQ(different, 0) << "of " << kSelections;
}

// A thread that is held for long between its look at the number and its store can still hit one.
TEST(ParameterThreads, ABankThatIsTakenKeepsItsPresetsWhileTheOldOnesAreAutomated) {
  constexpr float kHeld = 0.25F;  // by every preset; no round automates it
  Trelvan effect(silentHost);
  presetimage::Bank taken = effect.bank();
  for (ACombProgram& preset : taken) preset.width = kHeld;
  int altered = 0;
  AtOnce both(kRounds, [&](int round) { effect.setParameter(kWidthIndex, valueOf(round, 0)); });
  for (int round = 1; round <= kRounds; ++round) {
    const long selected = round % 2 == 0 ? 3 : 7;
    both.round(round, [&] { effect.takeBank(taken, selected, effect.lockBank()); });
    for (long n = 0; n < CPresetSystemEffect::kPresetCount; ++n) {
      if (n != selected && effect.preset(n).width != kHeld) ++altered;
    }
  }
  EXPECT_LE(altered, kRounds / 1000);
}

// As the window's thread and the host's may.
TEST(ParameterThreads, RenamingWhileAnotherSelectsAndSavesLeavesWholeNames) {
  Trelvan effect(silentHost);
  const std::string names[] = {effect.preset(7).name, effect.preset(14).name, std::string(23, 'a'),
                               std::string(12, 'b')};
  int torn = 0;
  AtOnce both(kSelections, [&](int round) { effect.setPresetName(names[2 + round % 2].c_str()); });
  for (int round = 1; round <= kSelections; ++round) {
    both.round(round, [&] {
      effect.setPresetNo(round % 3 == 0 ? 7 : 14);
      void* data = nullptr;
      effect.getChunk(&data, false);
      if (std::count(std::begin(names), std::end(names), effect.copyOfPreset(7).name) != 1) ++torn;
    });
  }
  EXPECT_EQ(torn, 0);
}

}  // namespace
