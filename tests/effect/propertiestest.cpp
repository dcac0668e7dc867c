// What every listener may rely on: the mono sum, bypass, the phase switch, zero width,
// resume and suspend.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"

namespace {

template <typename Sample>
class Properties : public testing::Test {};
TYPED_TEST_SUITE(Properties, Precisions, PrecisionNames);

// Noise in steps of 2^-12: sums, halves and products with 0.5 stay exact in both precisions, and
// the flush constant is below all rounding.
template <typename Sample>
Stereo<Sample> coarseNoise(std::size_t frames, std::uint32_t seed) {
  Noise noise(seed);
  Stereo<Sample> signal = silence<Sample>(frames);
  for (std::size_t i = 0; i < frames; ++i) {
    signal.left[i] = static_cast<Sample>(std::round(noise.next() * 4096.0) / 4096.0);
    signal.right[i] = static_cast<Sample>(std::round(noise.next() * 4096.0) / 4096.0);
  }
  return signal;
}

// Distance to the next number above.
template <typename Sample>
Sample spacing(Sample value) {
  return std::nextafter(std::fabs(value), std::numeric_limits<Sample>::infinity()) -
         std::fabs(value);
}

}  // namespace

TYPED_TEST(Properties, HalfTheSumOfTheOutputsIsMidWithinOneRounding) {
  const auto in = coarseNoise<TypeParam>(20000, 3);
  Trelvan plugin(processHost);
  for (int preset = 0; preset < 32; ++preset) {  // one gliding into the next
    plugin.setPresetNo(preset);
    plugin.setParameter(4, static_cast<float>(preset % 2));
    const auto out = play(plugin, in);
    for (std::size_t i = 0; i < in.left.size(); ++i) {
      const TypeParam mid = (in.left[i] + in.right[i]) / 2;  // exact
      const TypeParam sum = out.left[i] / 2 + out.right[i] / 2;
      // Each output was rounded once, to half a spacing at most, and so may be their sum here.
      const TypeParam rounding = spacing(std::max(std::fabs(out.left[i]), std::fabs(out.right[i])));
      ASSERT_LE(std::fabs(sum - mid), rounding) << "preset " << preset << ", frame " << i;
    }
  }
}

// Every bit pattern there is: infinities, NaNs with a payload, denormals, the negative zero.
TYPED_TEST(Properties, ProcessOffIsTheInputBitForBit) {
  using Bits = BitsOf<TypeParam>;
  std::mt19937_64 random(4);
  const auto frames = std::size_t{100000};
  Stereo<TypeParam> in = silence<TypeParam>(frames);
  std::vector<Bits> left(frames), right(frames);
  for (std::size_t i = 0; i < frames; ++i) {
    left[i] = static_cast<Bits>(random());
    right[i] = static_cast<Bits>(random());
  }
  left[0] = std::bit_cast<Bits>(TypeParam(-0.0));
  right[1] = std::bit_cast<Bits>(-std::numeric_limits<TypeParam>::denorm_min());
  std::memcpy(in.left.data(), left.data(), frames * sizeof(TypeParam));
  std::memcpy(in.right.data(), right.data(), frames * sizeof(TypeParam));
  Player plugin({.width = 1.0F, .emphasis = 0.5F, .process = 0.0F, .phase = 1.0F});
  const auto out = play(plugin, in);
  EXPECT_EQ(std::memcmp(out.left.data(), left.data(), frames * sizeof(TypeParam)), 0);
  EXPECT_EQ(std::memcmp(out.right.data(), right.data(), frames * sizeof(TypeParam)), 0);
}

// Which swaps the outputs.
TYPED_TEST(Properties, PhaseOnSwapsTheSignOfTheSide) {
  const auto in = coarseNoise<TypeParam>(5000, 5);
  Player normal({.emphasis = 0.5F});
  Player swapped({.emphasis = 0.5F, .phase = 1.0F});
  const auto a = play(normal, in);
  const auto b = play(swapped, in);
  EXPECT_NE(a.left, a.right);
  EXPECT_EQ(a.left, b.right);
  EXPECT_EQ(a.right, b.left);
}

// The number next to one half switches on, as the display says it does.
TYPED_TEST(Properties, SwitchesSoundAsTheyAreDisplayed) {
  const auto in = coarseNoise<TypeParam>(500, 8);
  for (const float raw : {0.49999997F, 0.49999991F, 1.5F, -1.0F, -1.5F}) {
    char text[16] = "";
    Player process({.process = raw});
    process.getParameterDisplay(3, text);
    EXPECT_EQ(play(process, in).left != in.left, std::string(text) == "On") << raw;
    Player phase({.phase = raw});
    Player off;
    EXPECT_EQ(play(phase, in).left != play(off, in).left, std::string(text) == "On") << raw;
  }
}

TYPED_TEST(Properties, PhaseSwitchesFromOneBlockToTheNext) {
  Player plugin;
  play(plugin, steady(TypeParam(1), 100));  // the delay of 45 frames is over
  EXPECT_EQ(sideOf(play(plugin, steady(TypeParam(1), 3))),
            std::vector<TypeParam>(3, TypeParam(0.5)));
  plugin.setParameter(4, 1.0F);
  EXPECT_EQ(sideOf(play(plugin, steady(TypeParam(1), 3))),
            std::vector<TypeParam>(3, TypeParam(-0.5)));
}

TYPED_TEST(Properties, WidthZeroGivesMidOnBothSidesAndTheMeterFullMid) {
  const auto in = coarseNoise<TypeParam>(20000, 6);
  Player plugin({.width = 0.0F, .emphasis = 0.5F});
  const auto out = play(plugin, in);
  for (std::size_t i = 0; i < in.left.size(); ++i) {
    ASSERT_EQ(out.left[i], (in.left[i] + in.right[i]) / 2) << i;
    ASSERT_EQ(out.right[i], out.left[i]) << i;
  }
  EXPECT_EQ(plugin.getWidthMeter(), 0.5F);
}

TYPED_TEST(Properties, FactoryInitDoesNotWiden) {
  Trelvan plugin(processHost);
  for (const int slot : {0, 24, 31}) {
    plugin.setPresetNo(slot);
    plugin.resume();
    const auto out = play(plugin, coarseNoise<TypeParam>(5000, 7));
    EXPECT_EQ(out.left, out.right) << slot;
  }
}

TYPED_TEST(Properties, ResumeForgetsTheSoundAndTakesAllTargetsAtOnce) {
  Player plugin({.width = 0.0F, .baseFreq = 0.0F});
  play(plugin, steady(TypeParam(1), 5000));
  configure(plugin, {.emphasis = 0.25F});
  const auto side = sideOf(play(plugin, impulse(TypeParam(1), 3000)));
  std::vector<TypeParam> expected(3000);
  expected[45] = TypeParam(0.5);     // full width in the very first frames
  expected[46] = TypeParam(-0.125);  // 0.5 * 0.25
  EXPECT_EQ(side, expected);         // and nothing of what was played before
}

// The gain goes on gliding from where it was, at the same pace.
TYPED_TEST(Properties, SuspendForgetsTheSoundAndNothingElse) {
  Player plugin({.emphasis = 0.25F});
  play(plugin, steady(TypeParam(1), 5000));
  EXPECT_NE(plugin.getWidthMeter(), 0.0F);
  plugin.setParameter(0, 1.0F);
  plugin.suspend();
  EXPECT_EQ(plugin.getWidthMeter(), 0.0F);
  const auto side = sideOf(play(plugin, impulse(TypeParam(1), 2000)));
  for (std::size_t i = 0; i < side.size(); ++i) {
    if (i == 45 || i == 46) continue;
    ASSERT_EQ(side[i], TypeParam(0)) << i;
  }
  EXPECT_GT(side[45], TypeParam(0.5));   // on its way from 0.5 to 2,
  EXPECT_LT(side[45], TypeParam(0.53));  // of which 46 frames close about one per cent
  EXPECT_NEAR(side[46] / side[45], -0.25, 1e-3);
}

TYPED_TEST(Properties, DenormalInputIsSilence) {
  Player plugin({.width = 1.0F, .emphasis = 1.0F});
  Stereo<TypeParam> tiny = silence<TypeParam>(2000);
  for (std::size_t i = 0; i < 2000; ++i) {
    tiny.left[i] = std::numeric_limits<TypeParam>::denorm_min() * static_cast<TypeParam>(1 + i);
    tiny.right[i] = std::numeric_limits<TypeParam>::min() / 2;
  }
  const auto out = play(plugin, tiny);
  for (std::size_t i = 0; i < 2000; ++i) {
    ASSERT_EQ(out.left[i], TypeParam(0)) << i;
    ASSERT_EQ(out.right[i], TypeParam(0)) << i;
  }
}

TYPED_TEST(Properties, NoDenormalIsLeftWhenASoundHasDiedAway) {
  Player plugin({.rate = 8000.0F, .width = 1.0F, .emphasis = 1.0F});
  play(plugin, makeSignal<TypeParam>(Signal::kNoise, 20000));
  // every glide goes to its lowest value
  for (int index = 0; index < 3; ++index) plugin.setParameter(index, 0.0F);
  const auto quiet = silence<TypeParam>(8000);
  for (int second = 0; second < 60; ++second) {
    const auto out = play(plugin, quiet);
    for (std::size_t i = 0; i < out.left.size(); ++i) {
      ASSERT_NE(std::fpclassify(out.left[i]), FP_SUBNORMAL) << second << " s, frame " << i;
      ASSERT_NE(std::fpclassify(out.right[i]), FP_SUBNORMAL) << second << " s, frame " << i;
    }
  }
#if defined(__SSE2__)
  // The processor notes every operation that is given a denormal.
  constexpr unsigned kDenormalOperand = 0x2;
  _mm_setcsr(_mm_getcsr() & ~kDenormalOperand);
  play(plugin, quiet);
  EXPECT_EQ(_mm_getcsr() & kDenormalOperand, 0U);
  plugin.setParameter(3, 0.0F);
  play(plugin, quiet);
  EXPECT_EQ(_mm_getcsr() & kDenormalOperand, 0U);
#endif
}
