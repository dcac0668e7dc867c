// The width meter: its scale, its pace, and what silence and bypass make of it.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"

namespace {

template <typename Sample>
class Meter : public testing::Test {};
TYPED_TEST_SUITE(Meter, Precisions, PrecisionNames);

constexpr float kRate = 8000.0F;       // Hz
constexpr double kClosingTime = 0.6;   // s in which 15/16 of a level step are closed
constexpr std::size_t kLong = 100000;  // frames, 12.5 s: the envelopes have arrived

// Where the meter is to stand: 0 for equal levels, half the scale for a ratio of four.
double scale(double mid, double side) {
  return 0.5 * std::log(mid / side) / std::log(4.0);
}

std::size_t framesIn(double seconds) {
  return static_cast<std::size_t>(seconds * static_cast<double>(kRate));
}

template <typename Sample>
void settle(Trelvan& plugin) {
  play(plugin, steady(Sample(1), kLong));
}

}  // namespace

// Steady mid of 1 gives a steady side of the side gain.
TYPED_TEST(Meter, ReadsTheRatioOfMidToSideOnALogarithmicScale) {
  for (const float width : {0.3F, 0.5F, 0.6F, 0.75F, 0.9F, 1.0F}) {
    Player plugin({.rate = kRate, .width = width});
    settle<TypeParam>(plugin);
    const double side = 2.0 * static_cast<double>(width) * static_cast<double>(width);
    EXPECT_NEAR(plugin.getWidthMeter(), std::min(0.5, scale(1.0, side)), 1e-5) << width;
  }
}

TYPED_TEST(Meter, ReadsZeroForEqualLevels) {
  Player plugin({.rate = kRate, .width = std::sqrt(0.5F)});  // side gain 1
  settle<TypeParam>(plugin);
  EXPECT_NEAR(plugin.getWidthMeter(), 0.0, 1e-6);
}

// Full width on alternating samples: the tap adds to the side, twice the mid at a gain of 2 makes
// four times.
TYPED_TEST(Meter, ReadsTheLowEndWhenSideIsFourTimesMid) {
  Player plugin({.rate = kRate, .width = 1.0F, .emphasis = 1.0F});
  Stereo<TypeParam> in = silence<TypeParam>(kLong);
  for (std::size_t i = 0; i < kLong; ++i)
    in.left[i] = in.right[i] = i % 2 == 0 ? TypeParam(1) : TypeParam(-1);
  play(plugin, in);
  EXPECT_NEAR(plugin.getWidthMeter(), -0.5, 1e-6);
}

// With the side's input gone its level falls to 1/16 in 600 ms, which is the whole scale.
TYPED_TEST(Meter, FallsByFifteenSixteenthsIn600Milliseconds) {
  Player plugin({.rate = kRate, .width = 1.0F});
  settle<TypeParam>(plugin);
  const double before = plugin.getWidthMeter();
  EXPECT_NEAR(before, scale(1.0, 2.0), 1e-5);
  plugin.setParameter(3, 0.0F);  // mid stays, side ends at once
  for (const double seconds : {0.15, 0.15, 0.15}) {
    const double start = plugin.getWidthMeter();
    play(plugin, steady(TypeParam(1), framesIn(seconds)));
    EXPECT_NEAR(plugin.getWidthMeter() - start, seconds / kClosingTime, 1e-5);
  }
  play(plugin, steady(TypeParam(1), framesIn(0.01)));
  EXPECT_EQ(plugin.getWidthMeter(), 0.5F);  // the upper end: 0.46 s after -0.25
}

// The other way round: mid rises from nothing while the side is steady, seen one
// closing time later.
TYPED_TEST(Meter, RisesByFifteenSixteenthsIn600Milliseconds) {
  // the side follows 400 frames later
  Player plugin({.rate = kRate, .width = 1.0F, .baseFreq = 0.0F});
  const std::size_t closing = framesIn(kClosingTime);
  play(plugin, steady(TypeParam(1), closing));
  const double mid = 15.0 / 16.0;
  const double side =
      2.0 * (1.0 - std::pow(1.0 / 16.0, (static_cast<double>(closing) - 400.0) / 4800.0));
  EXPECT_NEAR(plugin.getWidthMeter(), scale(mid, side), 1e-5);
}

// The levels pass their floors one after the other: mid 1e-5, then the side, which was twice as
// high, 1e-7.
TYPED_TEST(Meter, GoesToZeroInSilence) {
  Player plugin({.rate = kRate, .width = 1.0F});
  settle<TypeParam>(plugin);
  const double midGone = kClosingTime * std::log(1e5) / std::log(16.0);  // 2.49 s
  // 3.64 s, and one period of 8 frames
  const double sideGone = kClosingTime * std::log(2e7) / std::log(16.0);
  constexpr double kMargin = 0.01;  // s
  play(plugin, silence<TypeParam>(framesIn(midGone - kMargin)));
  EXPECT_NEAR(plugin.getWidthMeter(), scale(1.0, 2.0), 5e-3);  // both fall alike
  play(plugin, silence<TypeParam>(framesIn(2.0 * kMargin)));
  EXPECT_EQ(plugin.getWidthMeter(), -0.5F);  // the side is all there is
  play(plugin, silence<TypeParam>(framesIn(sideGone - midGone - 2.0 * kMargin)));
  EXPECT_EQ(plugin.getWidthMeter(), -0.5F);
  play(plugin, silence<TypeParam>(framesIn(2.0 * kMargin)));
  EXPECT_EQ(plugin.getWidthMeter(), 0.0F);
}

TYPED_TEST(Meter, StaysAtZeroWhenNothingWasEverPlayed) {
  Player plugin({.rate = kRate, .width = 1.0F});
  play(plugin, silence<TypeParam>(kLong));
  EXPECT_EQ(plugin.getWidthMeter(), 0.0F);
}

TYPED_TEST(Meter, StandsAtFullMidWithoutSide) {
  Player plugin({.rate = kRate, .width = 0.0F});
  play(plugin, steady(TypeParam(1), 10));
  EXPECT_EQ(plugin.getWidthMeter(), 0.5F);
}

TYPED_TEST(Meter, StandsAtFullMidInBypassWhereNoSideWasBefore) {
  Player plugin({.rate = kRate, .width = 1.0F, .process = 0.0F});
  play(plugin, steady(TypeParam(0.5), 100));
  EXPECT_EQ(plugin.getWidthMeter(), 0.5F);
}

TYPED_TEST(Meter, HearsTheDifferenceOfTheInputsAsNothing) {
  Player plugin({.rate = kRate, .width = 1.0F});
  Stereo<TypeParam> in = steady(TypeParam(1), 10000);
  for (TypeParam& sample : in.right) sample = -sample;
  play(plugin, in);
  EXPECT_EQ(plugin.getWidthMeter(), 0.0F);
}

// Resume clears the levels but not the reading; a block of no frames does nothing but read again.
TYPED_TEST(Meter, IsReadAnewByABlockOfNoFrames) {
  Player plugin({.rate = kRate, .width = 1.0F});
  settle<TypeParam>(plugin);
  const float reading = plugin.getWidthMeter();
  TypeParam* none[] = {nullptr, nullptr};
  processBlock(plugin, none, none, 0);
  EXPECT_EQ(plugin.getWidthMeter(), reading);
  plugin.resume();
  EXPECT_EQ(plugin.getWidthMeter(), reading);
  processBlock(plugin, none, none, 0);
  EXPECT_EQ(plugin.getWidthMeter(), 0.0F);
}

TYPED_TEST(Meter, StaysOnItsScaleWhateverIsPlayed) {
  for (const Signal kind : {Signal::kNoise, Signal::kHuge, Signal::kDenormals, Signal::kImpulse}) {
    Player plugin({.rate = kRate, .width = 1.0F, .emphasis = 1.0F});
    const auto in = makeSignal<TypeParam>(kind, 50);
    for (int turn = 0; turn < 100; ++turn) {
      play(plugin, in);
      ASSERT_GE(plugin.getWidthMeter(), -0.5F) << nameOf(kind);
      ASSERT_LE(plugin.getWidthMeter(), 0.5F) << nameOf(kind);
    }
  }
}

// One such sample would otherwise be all that the meter hears until the next resume.
TYPED_TEST(Meter, ForgetsWhatIsNoNumber) {
  constexpr auto kInfinity = std::numeric_limits<TypeParam>::infinity();
  for (const TypeParam bad : {std::numeric_limits<TypeParam>::quiet_NaN(), kInfinity, -kInfinity}) {
    for (const float process : {1.0F, 0.0F}) {
      Player plugin({.rate = kRate, .width = 0.75F, .process = process});
      Player spared({.rate = kRate, .width = 0.75F, .process = process});
      auto in = steady(TypeParam(1), 1000);
      play(spared, in);
      in.left[500] = bad;
      play(plugin, in);
      EXPECT_EQ(plugin.getWidthMeter(), 0.0F) << bad << ": it begins anew";
      play(plugin, steady(TypeParam(1), 100));
      EXPECT_NEAR(plugin.getWidthMeter(), spared.getWidthMeter(), 1e-2)
          << bad << ": the same ratio";
      settle<TypeParam>(plugin);
      settle<TypeParam>(spared);
      EXPECT_NEAR(plugin.getWidthMeter(), spared.getWidthMeter(), 1e-6) << bad;
    }
  }
}

TEST(Peak, IsNeverWritten) {
  Player plugin({.width = 1.0F});
  play(plugin, steady(1.0F, 1000));
  EXPECT_EQ(plugin.getVu(), 0.0F);
}
