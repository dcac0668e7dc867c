// Noise that takes the place of rounding's distortion.
#include "host/sound/dither.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <numeric>

#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double kStep = 1.0 / 32768.0;  // of 16 bits
constexpr std::size_t kMany = 200000;    // frames: chance moves a mean of them by some thousandths

// In steps: what is added to silence, left.
std::vector<double> noiseFor(std::string_view name, std::size_t frames = kMany,
                             std::size_t block = 1000) {
  Dither dither(SampleFormat::pcm16, name);
  std::vector<double> left(frames);
  std::vector<double> right(frames);
  for (std::size_t at = 0; at < frames; at += block) {
    const auto count = static_cast<int>(std::min(block, frames - at));
    dither.add(left.data() + at, right.data() + at, count);
  }
  for (double& sample : left) sample /= kStep;
  return left;
}

double meanOf(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

double meanProduct(const std::vector<double>& a, const std::vector<double>& b,
                   std::size_t later = 0) {
  double sum = 0.0;
  for (std::size_t i = 0; i + later < a.size(); ++i) sum += a[i] * b[i + later];
  return sum / static_cast<double>(a.size() - later);
}

}  // namespace

// The sum of two even distributions, each a step wide: its variance is twice 1/12, and three
// quarters of it are within half a step.
TEST(Dithers, AreTriangularAndOneStepEitherWay) {
  const auto all = noiseFor("a");
  const auto [least, most] = std::minmax_element(all.begin(), all.end());
  EXPECT_GE(*least, -1.0);
  EXPECT_LE(*most, 1.0);
  EXPECT_LT(*least, -0.98);
  EXPECT_GT(*most, 0.98);
  EXPECT_NEAR(meanOf(all), 0.0, 0.004);
  EXPECT_NEAR(meanProduct(all, all), 1.0 / 6.0, 0.002);
  const auto inner =
      std::count_if(all.begin(), all.end(), [](double value) { return std::abs(value) < 0.5; });
  EXPECT_NEAR(static_cast<double>(inner) / kMany, 0.75, 0.004);
}

TEST(Dithers, AreWhiteAndOthersForSoundsOfOtherNames) {
  const auto all = noiseFor("a");
  for (const std::size_t later : {1U, 2U, 3U, 7U})
    EXPECT_NEAR(meanProduct(all, all, later), 0.0, 0.002) << later;
  EXPECT_NEAR(meanProduct(all, noiseFor("b")), 0.0, 0.002);
  EXPECT_EQ(all, noiseFor("a")) << "but the same in every run";
  EXPECT_EQ(all, noiseFor("a", kMany, 77)) << "and for every block";
}

// The error's mean and variance are the same wherever between two steps the signal is: without
// dither both follow the signal, which is distortion.
TEST(Dithers, MakeOfRoundingANoiseThatDoesNotFollowTheSignal) {
  for (const double at : {0.0, 0.1, 0.25, 0.5, 0.8}) {
    Dither dither(SampleFormat::pcm16, "a");
    std::vector<double> left(kMany, at * kStep);
    std::vector<double> right(left);
    dither.add(left.data(), right.data(), static_cast<int>(kMany));
    for (auto* channel : {&left, &right}) {
      for (double& sample : *channel) sample = heldSample(SampleFormat::pcm16, sample) / kStep - at;
      EXPECT_NEAR(meanOf(*channel), 0.0, 0.006) << at;
      EXPECT_NEAR(meanProduct(*channel, *channel), 0.25, 0.004) << at;
    }
  }
}

TEST(Dithers, CancelInTheFoldWhichStaysAsNearAsByRoundingAlone) {
  const Sound sound = noise(kMany, 2, 1);
  Dither dither(SampleFormat::pcm16, "a");
  for (std::size_t frame = 0; frame < kMany; ++frame) {
    const double l = sound.at(frame, 0) * 0.777;
    const double r = sound.at(frame, 1) * 0.777;
    double left = l;
    double right = r;
    dither.add(&left, &right, 1);
    const double fold =
        (heldSample(SampleFormat::pcm16, left) + heldSample(SampleFormat::pcm16, right)) / 2.0;
    ASSERT_LE(std::abs(fold - (l + r) / 2.0), kStep / 2.0 * (1.0 + 1e-9)) << frame;
  }
}

// Where one side has no room for the noise, the other does without it too.
TEST(Dithers, CancelInTheFoldAtFullScaleToo) {
  const double highest = 1.0 - kStep;
  for (const auto& [l, r] :
       {std::pair(highest, 0.1 + kStep / 3.0), std::pair(0.1, highest - kStep / 3.0),
        std::pair(-1.0, 0.1), std::pair(0.1, -1.0 + kStep / 3.0)}) {
    Dither dither(SampleFormat::pcm16, "a");
    for (std::size_t frame = 0; frame < 1000; ++frame) {
      double left = l;
      double right = r;
      dither.add(&left, &right, 1);
      const double fold =
          (heldSample(SampleFormat::pcm16, left) + heldSample(SampleFormat::pcm16, right)) / 2.0;
      ASSERT_LE(std::abs(fold - (l + r) / 2.0), kStep / 2.0 * (1.0 + 1e-9)) << l << ' ' << r;
    }
  }
}

TEST(Dithers, BringNoSampleBeyondFullScale) {
  for (const double level : {1.0, -1.0, 1.0 - kStep / 2.0, 1.25, -1.25}) {
    std::vector<double> left(1000, level);
    std::vector<double> right(1000, level);
    Dither(SampleFormat::pcm16, "a").add(left.data(), right.data(), 1000);
    for (std::size_t i = 0; i < left.size(); ++i) {
      ASSERT_LE(std::abs(left[i]), std::max(1.0, std::abs(level)));
      ASSERT_LE(std::abs(right[i]), std::max(1.0, std::abs(level)));
    }
  }
}

TEST(Dithers, AreForCoarseIntegers) {
  for (const auto format : {SampleFormat::pcm8, SampleFormat::pcm16, SampleFormat::pcm24})
    EXPECT_TRUE(isDithered(format)) << textOf(format);
  for (const auto format : {SampleFormat::pcm32, SampleFormat::float32, SampleFormat::float64})
    EXPECT_FALSE(isDithered(format)) << textOf(format);
}

using DitheredFiles = Conversions;

// A sine of 0.4 steps is rounded to silence; with dither it is there under the noise.
TEST_F(DitheredFiles, KeepWhatIsSofterThanAStep) {
  Sound sound{44100, 1, std::vector<double>(kMany)};
  for (std::size_t i = 0; i < kMany; ++i)
    sound.samples[i] = 0.4 * std::sin(0.05 * static_cast<double>(i));
  const std::pair<const char*, double> formats[] = {{"pcm16", 32768.0}, {"pcm24", 8388608.0}};
  for (const auto& [format, stepsToFullScale] : formats) {
    const double steps = stepsToFullScale;  // for the lambda
    Sound soft = sound;
    for (double& sample : soft.samples) sample /= steps;
    writeSound(in("in.wav"), soft, kFloatWav);
    const auto sineIn = [&](const Sound& out) {
      double sum = 0.0;
      for (std::size_t i = 0; i < kMany; ++i) sum += out.at(i, 0) * steps * sound.samples[i];
      return sum / (0.08 * kMany);  // 0.08 is the mean square of 0.4 sin
    };
    EXPECT_EQ(sineIn(result({"in.wav", "--process", "off", "--format", format})), 0.0);
    const Sound dithered = result({"in.wav", "--process", "off", "--format", format, "--dither"});
    EXPECT_NEAR(sineIn(dithered), 1.0, 0.02) << format;
  }
}

TEST_F(DitheredFiles, SayThatTheyAreAndAreTheSameInEveryRun) {
  writeSound(in("in.wav"), noise(3000, 1, 2), kFloatWav);
  const std::vector<std::string> words = {"in.wav",   "--format",  "pcm16",
                                          "--dither", "--process", "off"};
  result(words, "a.wav");
  std::vector<std::string> again = words;
  again.insert(again.end(), {"--block", "7"});
  result(again, "b.wav");
  EXPECT_EQ(textOf(in("a.wav")), textOf(in("b.wav")));
  again.insert(again.end(), {"-o", "c.wav", "-f"});
  EXPECT_THAT(widen(again).out, HasSubstr(", dithered"));
}

TEST_F(DitheredFiles, AreNotThoseThatNeedNone) {
  writeSound(in("in.wav"), noise(3000, 1, 3), kFloatWav);
  EXPECT_EQ(result({"in.wav", "--dither"}).samples, result({"in.wav"}, "plain.wav").samples)
      << "float is kept as it is";
  EXPECT_THAT(widen({"in.wav", "-o", "o.wav", "--dither"}).out, Not(HasSubstr("dithered")));
  for (const char* format : {"float", "double", "pcm32"}) {
    expectRefusal(widen({"in.wav", "-o", "o.wav", "-f", "--dither", "--format", format}), 2,
                  "--dither is for 8, 16 and 24 bits");
  }
}
