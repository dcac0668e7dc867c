// Blocks of samples as a file holds them.
#include "host/sound/heldsamples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

std::vector<double> anySamples() {
  std::vector<double> samples = {0.0, 1.0, -1.0, 1.5, -1.5, 1e300, -1e300, 0x1p-1074};
  std::mt19937 random(3);
  std::uniform_real_distribution<double> level(-1.1, 1.1);
  for (int i = 0; i < 10000; ++i) samples.push_back(level(random));
  for (int step = -70000; step < 70000; step += 3) samples.push_back(step / 65536.0);  // halves
  return samples;
}

}  // namespace

TEST(HeldSamples, AreOfABlockWhatTheyAreOfEachSample) {
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

TEST(HeldSamples, AreRoundedAsTheProcessorDoes) {
  for (const double sample : anySamples()) {
    const double value = std::fmod(sample, 2.0) * 2147483648.0;
    EXPECT_EQ(nearestWhole(value), std::nearbyint(value));
  }
}
