// The plug-in's sound against the reference, bit by bit: presets, sample rates, signals,
// blocks and precisions.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"

namespace {

// Hz. 96001: times the glide time it has more digits than a float. 384000: one period of the lowest
// frequency is longer than the delay line, so the read offset is negative.
constexpr float kRates[] = {8000.0F,  11025.0F, 22050.0F, 44100.0F,  44100.5F, 48000.0F,
                            88200.0F, 96000.0F, 96001.0F, 192000.0F, 384000.0F};
constexpr int kPresets = 32;

// Frames in one period of `hz`, rounded down.
std::size_t period(float rate, float hz) {
  return static_cast<std::size_t>(rate / hz);
}

const std::vector<std::vector<int>> kDivisions = {
    {1},
    {2,  3,  5,  7,  11, 13, 17, 19, 23, 29, 31, 37, 41,
     43, 47, 53, 59, 61, 67, 71, 73, 79, 83, 89, 97, 997},
    {0, 1, 0, 0, 300, 0},
    {16},
    {64},
    {256},
    {919, 105},
    {1024},
    {4096},  // more than announced
    {16384, 0, 16385},
};

template <typename Sample>
class Process : public testing::Test {};
TYPED_TEST_SUITE(Process, Precisions, PrecisionNames);

}  // namespace

TEST(Targets, EqualTheReferenceForEveryRawValue) {
  ProcessPair pair;
  for (int step = -10; step <= 1010; ++step) {
    const float raw = static_cast<float>(step) / 1000.0F;
    for (int index = 0; index < 5; ++index) pair.setParameter(index, raw);
    EXPECT_TRUE(sameBits(pair.plugin.getParameterValue(0), pair.reference->widthGain)) << raw;
    EXPECT_TRUE(sameBits(pair.plugin.getParameterValue(1), pair.reference->baseFreqHz)) << raw;
    EXPECT_TRUE(sameBits(pair.plugin.getParameterValue(2), pair.reference->emphasisTarget)) << raw;
    EXPECT_TRUE(sameBits(pair.plugin.getParameterValue(3), pair.reference->processOn)) << raw;
    EXPECT_TRUE(sameBits(pair.plugin.getParameterValue(4), pair.reference->phaseOn)) << raw;
  }
}

TEST(Targets, SwitchesAreOnWhereTheirPositionIsOne) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  for (const float raw : {-kInfinity, -1e9F, -1.0F, -0.0F, 0.0F, 0.49999997F, 0.5F, 0.75F, 1.0F,
                          7.0F, 1e9F, kInfinity, std::numeric_limits<float>::quiet_NaN()})
    EXPECT_EQ(parametercurves::isOn(raw), parametercurves::switchPosition(raw) >= 0.5F) << raw;
}

TYPED_TEST(Process, EqualsTheReferenceForEveryFactoryPresetAtEveryRate) {
  ProcessPair pair;
  for (const float rate : kRates) {
    // The lowest base frequency among the factory presets is above 31 Hz, so every preset
    // is heard delayed.
    const auto signal = makeSignal<TypeParam>(Signal::kNoise, 1000 + period(rate, 31.0F));
    pair.setSampleRate(rate);
    for (int preset = 0; preset < kPresets; ++preset) {
      pair.suspend();
      pair.setPreset(preset);
      pair.resume();
      ASSERT_TRUE(pair.all(signal)) << rate << " Hz, preset " << preset;
    }
  }
}

TYPED_TEST(Process, EqualsTheReferenceWhilePresetsFollowEachOtherWithoutAPause) {
  ProcessPair pair;
  const auto signal = makeSignal<TypeParam>(Signal::kSine, 3000);
  for (const float rate : kRates) {
    pair.setSampleRate(rate);
    pair.resume();
    for (int preset = 0; preset < kPresets; ++preset) {
      pair.setPreset(preset);
      ASSERT_TRUE(pair.all(signal)) << rate << " Hz, preset " << preset;
    }
  }
}

TYPED_TEST(Process, EqualsTheReferenceAtTheEndsOfTheBaseFrequency) {
  ProcessPair pair;
  for (const float rate : kRates) {
    const auto signal = makeSignal<TypeParam>(Signal::kNoise, 2000 + 2 * period(rate, 20.0F));
    pair.setSampleRate(rate);
    pair.setParameter(0, 1.0F);
    pair.setParameter(2, 1.0F);
    for (const float baseFreq : {0.0F, 1.0F}) {
      pair.setParameter(1, baseFreq);
      pair.resume();
      ASSERT_TRUE(pair.all(signal)) << rate << " Hz, baseFreq " << baseFreq;
      pair.setParameter(1, 1.0F - baseFreq);  // and all the way over
      ASSERT_TRUE(pair.all(signal)) << rate << " Hz, from baseFreq " << baseFreq;
    }
  }
}

TYPED_TEST(Process, EqualsTheReferenceForEverySignalAndSwitchPosition) {
  for (const Signal kind : kFiniteSignals) {
    const auto signal = makeSignal<TypeParam>(kind, 8000);
    for (const int switches : {0, 1, 2, 3}) {
      ProcessPair pair;
      pair.setParameter(0, 0.8F);
      pair.setParameter(1, 0.4F);
      pair.setParameter(2, 0.6F);
      pair.setParameter(3, (switches & 1) != 0 ? 1.0F : 0.0F);
      pair.setParameter(4, (switches & 2) != 0 ? 1.0F : 0.0F);
      ASSERT_TRUE(pair.all(signal)) << nameOf(kind) << ", gliding, switches " << switches;
      pair.resume();
      ASSERT_TRUE(pair.all(signal)) << nameOf(kind) << ", at rest, switches " << switches;
    }
  }
}

TYPED_TEST(Process, EqualsTheReferenceWhenSumsOverflow) {
  const auto loud = makeSignal<TypeParam>(Signal::kOverflowing, 5000);
  const auto noise = makeSignal<TypeParam>(Signal::kNoise, 5000);
  for (const float process : {1.0F, 0.0F}) {
    ProcessPair pair;
    pair.setPreset(14);  // full width
    pair.setParameter(3, process);
    pair.resume();
    ASSERT_TRUE(pair.all(loud)) << process;
    ASSERT_TRUE(pair.all(noise)) << process << ", afterwards";
    ASSERT_TRUE(std::isfinite(pair.plugin.getWidthMeter())) << process << ", by itself";
    pair.resume();
    ASSERT_TRUE(pair.all(noise)) << process << ", after a resume";
    // a resume ends every infinity and NaN
    ASSERT_TRUE(std::isfinite(pair.plugin.getWidthMeter()));
  }
}

// What comes out is the same as ever, for every division into blocks, and the meter goes on.
TYPED_TEST(Process, EqualsTheReferenceWhereSamplesAreNoNumbers) {
  constexpr auto kNaN = std::numeric_limits<TypeParam>::quiet_NaN();
  constexpr auto kInfinity = std::numeric_limits<TypeParam>::infinity();
  auto signal = makeSignal<TypeParam>(Signal::kNoise, 5000);
  signal.left[100] = kNaN;
  signal.right[333] = kInfinity;
  signal.left[2000] = signal.right[2000] = -kInfinity;
  signal.left[3500] = kInfinity;
  signal.right[3500] = -kInfinity;
  for (const float process : {1.0F, 0.0F}) {
    for (const std::vector<int>& sizes : kDivisions) {
      ProcessPair pair;
      pair.setPreset(14);  // full width
      pair.setParameter(3, process);
      pair.resume();
      ASSERT_TRUE(pair.all(signal, sizes)) << process;
      ASSERT_TRUE(std::isfinite(pair.plugin.getWidthMeter())) << process;
    }
  }
}

// Through the levels at which the meter and the flush constants take over.
TYPED_TEST(Process, EqualsTheReferenceWhileASoundDiesAway) {
  for (const float process : {1.0F, 0.0F}) {
    ProcessPair pair;
    pair.setSampleRate(8000.0F);
    pair.setPreset(22);
    pair.resume();
    ASSERT_TRUE(pair.all(makeSignal<TypeParam>(Signal::kNoise, 8000), {64}));
    pair.setParameter(3, process);
    ASSERT_TRUE(pair.all(makeSignal<TypeParam>(Signal::kSilence, 200000), {64}))
        << "process " << process;
    pair.setParameter(3, 1.0F);
    ASSERT_TRUE(pair.all(makeSignal<TypeParam>(Signal::kNoise, 8000), {64}))
        << "process " << process;
  }
}

// Values beyond 0..1 are taken as given. Far above, the read offset is the whole line: the newest
// frame itself, whose neighbour is the oldest.
TYPED_TEST(Process, EqualsTheReferenceForRawValuesThatNoHostShouldSend) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  for (const Signal kind : {Signal::kNoise, Signal::kOverflowing}) {
    const auto signal = makeSignal<TypeParam>(kind, 20000);
    for (const int index : {0, 1, 2}) {
      for (const float value : {-0.0F, -1.0F, 2.0F, 10.0F, 1000.0F, 1e18F, kInfinity, 1e-20F}) {
        ProcessPair pair;
        pair.setPreset(22);
        pair.resume();
        ASSERT_TRUE(pair.all(signal));
        pair.setParameter(index, value);
        ASSERT_TRUE(pair.all(signal))
            << nameOf(kind) << ", parameter " << index << ", " << value << ", gliding";
        pair.resume();
        ASSERT_TRUE(pair.all(signal)) << nameOf(kind) << ", parameter " << index << ", " << value;
      }
    }
  }
}

TYPED_TEST(Process, EqualsTheReferenceForEveryDivisionIntoBlocks) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 40000);
  for (std::size_t division = 0; division < kDivisions.size(); ++division) {
    ProcessPair pair;
    pair.setPreset(2);
    pair.resume();
    pair.setPreset(23);  // everything glides
    ASSERT_TRUE(pair.all(signal, kDivisions[division])) << "division " << division;
  }
}

// Against itself, without the reference: the whole signal in one block, and cut.
TYPED_TEST(Process, GivesTheSameBitsForEveryDivisionIntoBlocks) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 40000);
  const auto frames = signal.left.size();
  const auto render = [&](const std::vector<int>& sizes, bool process) {
    Stereo<TypeParam> in = signal;
    Stereo<TypeParam> out{std::vector<TypeParam>(frames), std::vector<TypeParam>(frames)};
    Trelvan plugin(processHost);
    plugin.setPresetNo(2);
    plugin.resume();
    plugin.setPresetNo(23);
    plugin.setParameter(3, process ? 1.0F : 0.0F);
    std::size_t first = 0;
    for (std::size_t turn = 0; first < frames; ++turn) {
      const int count = std::min(sizes[turn % sizes.size()], static_cast<int>(frames - first));
      TypeParam* ins[] = {in.left.data() + first, in.right.data() + first};
      TypeParam* outs[] = {out.left.data() + first, out.right.data() + first};
      processBlock(plugin, ins, outs, count);
      first += static_cast<std::size_t>(count);
    }
    out.left.push_back(static_cast<TypeParam>(plugin.getWidthMeter()));
    return out;
  };
  for (const bool process : {true, false}) {
    const auto whole = render({static_cast<int>(frames)}, process);
    ASSERT_NE(whole.left, whole.right);
    for (std::size_t division = 0; division < kDivisions.size(); ++division) {
      const auto cut = render(kDivisions[division], process);
      ASSERT_TRUE(
          std::equal(whole.left.begin(), whole.left.end(), cut.left.begin(), sameBits<TypeParam>))
          << division;
      ASSERT_TRUE(std::equal(whole.right.begin(), whole.right.end(), cut.right.begin(),
                             sameBits<TypeParam>))
          << division;
    }
  }
}

TEST(MixedPrecisions, EqualTheReferenceOnOneInstance) {
  const auto singles = makeSignal<float>(Signal::kNoise, 600, 5);
  const auto doubles = makeSignal<double>(Signal::kNoise, 600, 6);
  ProcessPair pair;
  pair.setPreset(22);
  pair.resume();
  for (int turn = 0; turn < 100; ++turn) {
    pair.setParameter(turn % 3, static_cast<float>(turn % 7) / 6.0F);
    if (turn % 9 == 0) pair.setParameter(3, turn % 2 == 0 ? 0.0F : 1.0F);
    ASSERT_TRUE(pair.all(singles, {100 + turn})) << turn;
    ASSERT_TRUE(pair.all(doubles, {77 + turn})) << turn;
  }
}

// Both paths share all state, and a block of either carries on where the other stopped.
TEST(MixedPrecisions, HearInDoubleWhatWasPlayedInSingle) {
  ProcessPair pair;
  pair.setParameter(0, 0.5F);
  pair.setParameter(1, 1.0F);  // 45 frames
  pair.resume();
  auto impulse = makeSignal<float>(Signal::kSilence, 20);
  impulse.left[0] = impulse.right[0] = 1.0F;
  ASSERT_TRUE(pair.all(impulse));
  std::vector<double> in(60), left(60), right(60);
  double* ins[] = {in.data(), in.data()};
  double* outs[] = {left.data(), right.data()};
  pair.plugin.processDoubleReplacing(ins, outs, 60);
  EXPECT_EQ(left[45 - 20], 0.5);
  EXPECT_EQ(right[45 - 20], -0.5);
}
