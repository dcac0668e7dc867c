// What one impulse becomes: when the side comes, how strong, and its emphasis tap; and
// what bypass keeps.
#include <gtest/gtest.h>

#include <utility>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"

namespace {

template <typename Sample>
class Impulse : public testing::Test {};
TYPED_TEST_SUITE(Impulse, Precisions, PrecisionNames);

struct Delay {
  float rate;      // Hz
  float baseFreq;  // raw
  std::size_t frames;
};

// One period of the base frequency, rounded up to whole frames: the read offset is the length less
// one period, rounded down.
constexpr Delay kDelays[] = {
    {44100.0F, 1.0F, 45},     // 44.1
    {44100.0F, 0.0F, 2205},   // 2205.0
    {48000.0F, 1.0F, 48},     // 48.0
    {8000.0F, 0.0F, 400},     // 400.0
    {44100.0F, 0.5F, 167},    // 265 Hz: 166.4
    {96000.0F, 0.25F, 1182},  // 81.25 Hz: 1181.5
    {44100.5F, 0.0F, 2205},   // the fraction of the rate is dropped
    {192000.0F, 0.0F, 9600},
};

}  // namespace

TYPED_TEST(Impulse, ComesBackAsSideAfterOnePeriodWithItsEmphasisTapOneFrameLater) {
  constexpr TypeParam kGain = 0.5;       // 2 * 0.5^2
  constexpr TypeParam kEmphasis = 0.25;  // of the frame before
  for (const Delay& delay : kDelays) {
    Player plugin({.rate = delay.rate, .baseFreq = delay.baseFreq, .emphasis = 0.25F});
    const auto out = play(plugin, impulse(TypeParam(1), 16000));
    std::vector<TypeParam> left(16000), right(16000);
    left[0] = right[0] = 1;  // mid, at once
    left[delay.frames] = kGain;
    right[delay.frames] = -kGain;
    left[delay.frames + 1] = -kGain * kEmphasis;
    right[delay.frames + 1] = kGain * kEmphasis;
    EXPECT_EQ(out.left, left) << delay.rate << " Hz, baseFreq " << delay.baseFreq;
    EXPECT_EQ(out.right, right) << delay.rate << " Hz, baseFreq " << delay.baseFreq;
  }
}

// 19200 frames do not fit into the line of 16384: the place read is 2816 frames old, as far as the
// ring goes round.
TYPED_TEST(Impulse, WrapsRoundTheDelayLineWhenThePeriodIsLongerThanIt) {
  Player plugin({.rate = 384000.0F, .baseFreq = 0.0F});
  const auto side = sideOf(play(plugin, impulse(TypeParam(1), 40000)));
  std::vector<TypeParam> expected(40000);
  expected[19200 - 16384] = TypeParam(0.5);
  EXPECT_EQ(side, expected);
}

// 20 Hz: a period of 16383 frames, and of a twentieth of a frame more, which is rounded up to the
// line's whole length.
TYPED_TEST(Impulse, ComesBackAfterAWholePeriodUpToOneFrameLessThanTheLine) {
  for (const auto& [rate, frames] : {std::pair(327660.0F, 16383), std::pair(327661.0F, 0)}) {
    Player plugin({.rate = rate, .baseFreq = 0.0F});
    const auto side = sideOf(play(plugin, impulse(TypeParam(1), 40000)));
    std::vector<TypeParam> expected(40000);
    expected[static_cast<std::size_t>(frames)] = TypeParam(0.5);
    EXPECT_EQ(side, expected) << rate << " Hz";
  }
}

TYPED_TEST(Impulse, GainIsTwiceTheSquareOfTheWidth) {
  for (const float width : {0.25F, 0.5F, 0.75F, 1.0F}) {
    Player plugin({.width = width});
    const auto side = sideOf(play(plugin, impulse(TypeParam(1), 100)));
    EXPECT_EQ(side[45], TypeParam(2.0F * width * width)) << width;
  }
}

TYPED_TEST(Impulse, SumsTheInputsToMid) {
  Player plugin;
  Stereo<TypeParam> in = silence<TypeParam>(100);
  in.left[0] = TypeParam(1);  // one side only
  in.right[3] = TypeParam(-0.5);
  const auto out = play(plugin, in);
  EXPECT_EQ(out.left[0], TypeParam(0.5));
  EXPECT_EQ(out.right[0], TypeParam(0.5));
  EXPECT_EQ(out.left[3], TypeParam(-0.25));
  EXPECT_EQ(out.left[45], TypeParam(0.25));
  EXPECT_EQ(out.left[48], TypeParam(-0.125));
}

TYPED_TEST(Impulse, IsHeardAsSideWhenProcessIsSwitchedOnInBetween) {
  Player plugin({.process = 0.0F});
  play(plugin, impulse(TypeParam(1), 40));
  plugin.setParameter(3, 0.5F);  // the threshold itself is on
  const auto side = sideOf(play(plugin, silence<TypeParam>(20)));
  std::vector<TypeParam> expected(20);
  expected[45 - 40] = TypeParam(0.5);
  EXPECT_EQ(side, expected);
}

// The frame before the gap still feeds the tap of the first frame after it.
TYPED_TEST(Impulse, KeepsTheEmphasisMemoryThroughBypass) {
  Player plugin({.emphasis = 0.25F});
  EXPECT_EQ(sideOf(play(plugin, impulse(TypeParam(1), 46)))[45], TypeParam(0.5));
  plugin.setParameter(3, 0.49F);
  play(plugin, silence<TypeParam>(1000));
  plugin.setParameter(3, 1.0F);
  const auto side = sideOf(play(plugin, silence<TypeParam>(3)));
  EXPECT_EQ(side, (std::vector<TypeParam>{TypeParam(-0.125), 0, 0}));
}

TYPED_TEST(Impulse, IsNotCutByABlockOfNoFrames) {
  Player plugin({.emphasis = 0.25F});
  play(plugin, impulse(TypeParam(1), 20));
  TypeParam* none[] = {nullptr, nullptr};
  processBlock(plugin, none, none, 0);
  const auto side = sideOf(play(plugin, silence<TypeParam>(40)));
  std::vector<TypeParam> expected(40);
  expected[45 - 20] = TypeParam(0.5);
  expected[46 - 20] = TypeParam(-0.125);
  EXPECT_EQ(side, expected);
}
