// What is done with whole blocks of samples.
#include "host/sound/blockarithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

// Longer than what is done at a time, by every rest.
constexpr int kLongest = 40;  // samples

std::vector<double> anySamples() {
  std::vector<double> samples = {0.0, 1.0, -1.0, 1.5, -1.5, 1e300, -1e300, 0x1p-1074};
  std::mt19937 random(3);
  std::uniform_real_distribution<double> level(-1.1, 1.1);
  for (int i = 0; i < 10000; ++i) samples.push_back(level(random));
  for (int step = -70000; step < 70000; step += 3) samples.push_back(step / 65536.0);  // halves
  return samples;
}

}  // namespace

TEST(BlockArithmetic, HoldsABlockAsItHoldsASample) {
  for (const SampleFormat format :
       {SampleFormat::pcm8, SampleFormat::pcm16, SampleFormat::pcm24, SampleFormat::pcm32,
        SampleFormat::float32, SampleFormat::float64}) {
    std::vector<double> samples = anySamples();
    if (format == SampleFormat::float32) std::erase_if(samples, [](double x) { return x > 1e38; });
    std::vector<double> expected;
    for (const double sample : samples) expected.push_back(heldSample(format, sample));
    holdSamples(format, samples.data(), static_cast<int>(samples.size()));
    EXPECT_EQ(samples, expected) << textOf(format);
  }
}

TEST(BlockArithmetic, RoundsAsTheProcessorDoes) {
  for (const double sample : anySamples()) {
    const double value = std::fmod(sample, 2.0) * 2147483648.0;
    EXPECT_EQ(nearestWhole(value), std::nearbyint(value));
  }
}

TEST(BlockArithmetic, FindsTheLargestMagnitudeAnywhere) {
  EXPECT_EQ(largestMagnitude(nullptr, 0), 0.0);
  for (int count = 1; count <= kLongest; ++count) {
    for (int place = 0; place < count; ++place) {
      std::vector<double> samples(static_cast<std::size_t>(count), 0.25);
      samples[static_cast<std::size_t>(place)] = -0.5;
      EXPECT_EQ(largestMagnitude(samples.data(), count), 0.5) << place << " of " << count;
    }
  }
}

TEST(BlockArithmetic, FindsWhatIsNotFiniteAnywhere) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (int count = 1; count <= kLongest; ++count) {
    std::vector<double> samples(static_cast<std::size_t>(count), kLargest);
    EXPECT_TRUE(allFinite(samples.data(), count)) << "sums of large numbers are no infinity";
    for (const double bad : {kInfinite, -kInfinite, std::nan("")}) {
      for (int place = 0; place < count; ++place) {
        std::vector<double> damaged = samples;
        damaged[static_cast<std::size_t>(place)] = bad;
        EXPECT_FALSE(allFinite(damaged.data(), count)) << place << " of " << count;
      }
    }
  }
}
