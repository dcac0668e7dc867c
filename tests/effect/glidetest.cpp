// How parameters travel to their targets: 15/16 of a step in 277 ms, and the read offset within its
// unequal limits.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"

namespace {

template <typename Sample>
class Glides : public testing::Test {};
TYPED_TEST_SUITE(Glides, Precisions, PrecisionNames);

constexpr double kClosingTime = 0.277;  // s in which 15/16 of a step are closed

// What is left of a step after so many frames, from the continuous law: (1/16)^(time
// / closing time).
double unclosed(double frames, double rate) {
  return std::pow(1.0 / 16.0, frames / rate / kClosingTime);
}

// The delay in frames, frame by frame, as a listener finds it: mid rises by one a frame, so that
// the delayed sample tells its own age, also between two frames. In double, with a side
// gain of 0.5.
class DelayMeter {
 public:
  explicit DelayMeter(Trelvan& heard) : plugin(heard) {}

  std::vector<double> listen(std::size_t frames) {
    Stereo<double> ramp = silence<double>(frames);
    for (std::size_t i = 0; i < frames; ++i)
      ramp.left[i] = ramp.right[i] = next + static_cast<double>(i);
    const auto side = sideOf(play(plugin, ramp));
    std::vector<double> delays(frames);
    for (std::size_t i = 0; i < frames; ++i) delays[i] = ramp.left[i] - side[i] / 0.5;
    next += static_cast<double>(frames);
    return delays;
  }

 private:
  Trelvan& plugin;
  double next = 1.0;
};

constexpr double kHeard = 1e-6;  // frames; what the ramp's doubles leave of a delay

// Frames until the delay has come within `near` frames of `goal`.
std::size_t arrival(const std::vector<double>& delays, double goal, double near) {
  std::size_t i = 0;
  while (i < delays.size() && std::fabs(delays[i] - goal) > near) ++i;
  return i;
}

// An instance whose coefficients are of 8000 Hz while one period is counted at 192000 Hz, so that
// the read offset is far from its target and its steps meet their limits: 9600 frames at 20 Hz, 192
// at 1000 Hz.
struct FastInstance : Player {
  FastInstance() : Player({.rate = 8000.0F}) {
    setSampleRate(192000.0F);
    suspend();
  }
  static constexpr double kCoefficient = 0.00125039;  // 1 - 16^(-1 / (8000 * 0.277))
};

}  // namespace

TYPED_TEST(Glides, WidthClosesFifteenSixteenthsIn277Milliseconds) {
  for (const float rate : {8000.0F, 44100.0F, 192000.0F}) {
    Player plugin({.rate = rate, .width = 0.0F});
    play(plugin, steady(TypeParam(1), 1000));
    plugin.setParameter(0, 1.0F);  // side gain 2
    const auto closing = static_cast<std::size_t>(kClosingTime * static_cast<double>(rate));
    const auto side = sideOf(play(plugin, steady(TypeParam(1), 2 * closing)));
    for (const std::size_t frames : {closing / 10, closing / 2, closing, 2 * closing}) {
      const double expected =
          2.0 * (1.0 - unclosed(static_cast<double>(frames), static_cast<double>(rate)));
      EXPECT_NEAR(side[frames - 1], expected, 1e-3) << rate << " Hz, frame " << frames;
    }
    EXPECT_NEAR(side[closing - 1], 2.0 * 15.0 / 16.0, 1e-3);
  }
}

TYPED_TEST(Glides, EmphasisClosesFifteenSixteenthsIn277Milliseconds) {
  Player plugin;
  play(plugin, steady(TypeParam(1), 1000));
  plugin.setParameter(2, 1.0F);
  const auto side = sideOf(play(plugin, steady(TypeParam(1), 12216)));  // 277 ms
  EXPECT_NEAR(side[0], 0.5, 2e-4);
  EXPECT_NEAR(side[6107], 0.5 * (1.0 / 4.0), 5e-4);  // half the time leaves the square root
  EXPECT_NEAR(side[12215], 0.5 * (1.0 / 16.0), 5e-4);
}

TYPED_TEST(Glides, GainsGoOnThroughBypass) {
  Player plugin({.width = 0.0F, .process = 0.0F});
  plugin.setParameter(0, 1.0F);
  plugin.setParameter(2, 0.5F);
  play(plugin, steady(TypeParam(1), 12216));  // 277 ms
  plugin.setParameter(3, 1.0F);
  const auto side = sideOf(play(plugin, steady(TypeParam(1), 2)));
  constexpr double kClosed = 15.0 / 16.0;
  EXPECT_NEAR(side[0], 2.0 * kClosed, 1e-3);  // the tap's memory is still empty
  EXPECT_NEAR(side[1], 2.0 * kClosed * (1.0 - 0.5 * kClosed), 1e-3);
}

TEST(DelayGlide, ClosesFifteenSixteenthsIn277MillisecondsOverTheWholeRange) {
  for (const float rate : {44100.0F, 96000.0F}) {
    const auto hertz = static_cast<double>(rate);
    const double shortest = std::ceil(hertz / 1000.0);
    const double longest = std::ceil(hertz / 20.0);
    Player plugin({.rate = rate});
    DelayMeter meter(plugin);
    EXPECT_NEAR(meter.listen(10000).back(), shortest, kHeard);
    const auto closing = static_cast<std::size_t>(kClosingTime * hertz);
    plugin.setParameter(1, 0.0F);
    auto delays = meter.listen(2 * closing);
    // The same step near the limit of a shrinking offset takes a little longer than the law says,
    // if anything.
    EXPECT_NEAR(delays[closing], longest - (longest - shortest) / 16.0, 2.0) << rate;
    meter.listen(10 * closing);
    plugin.setParameter(1, 1.0F);
    delays = meter.listen(2 * closing);
    EXPECT_NEAR(delays[closing], shortest + (longest - shortest) / 16.0, 2.0) << rate;
  }
}

TEST(DelayGlide, StandsOnAWholeFrameOnceItIsWithinAHundredth) {
  Player plugin;
  DelayMeter meter(plugin);
  meter.listen(3000);
  plugin.setParameter(1, 0.5F);  // 167 frames
  const auto delays = meter.listen(60000);
  const std::size_t near = arrival(delays, 167.0, 0.01);
  // 122 frames are closed to a hundredth by ln(12200) / ln(16) closing times.
  EXPECT_NEAR(static_cast<double>(near),
              std::log(12200.0) / std::log(16.0) * kClosingTime * 44100.0, 30.0);
  EXPECT_GT(std::fabs(delays[near - 1] - 167.0), 0.009);
  for (std::size_t i = near + 1; i < delays.size(); ++i) ASSERT_NEAR(delays[i], 167.0, kHeard) << i;
}

// A longer delay is a smaller read offset, which shrinks by half a frame a frame at most.
TEST(DelayGlide, LengthensTheDelayByHalfAFrameAFrameAtMost) {
  FastInstance plugin;
  DelayMeter meter(plugin);
  meter.listen(40000);
  plugin.setParameter(1, 0.0F);
  const auto delays = meter.listen(40000);
  constexpr double kDistance = 9600.0 - 192.0;
  // frames of distance below which the limit is not met
  constexpr double kFree = 0.5 / FastInstance::kCoefficient;
  const auto limited = static_cast<std::size_t>((kDistance - kFree) / 0.5);
  for (std::size_t i = 1; i < limited; ++i)
    ASSERT_NEAR(delays[i] - delays[i - 1], 0.5, kHeard) << i;
  EXPECT_LT(delays[limited + 1000] - delays[limited + 999], 0.4);
  // From there one closing time of 8000 Hz, 2216 frames, leaves a sixteenth.
  const double expected = static_cast<double>(limited) + 2216.0;
  EXPECT_NEAR(static_cast<double>(arrival(delays, 9600.0, kFree / 16.0)), expected, 5.0);
}

// A shorter delay is a larger read offset, which may grow twice as fast.
TEST(DelayGlide, ShortensTheDelayByOneFrameAFrameAtMost) {
  FastInstance plugin;
  plugin.setParameter(1, 0.0F);
  DelayMeter meter(plugin);
  meter.listen(60000);
  plugin.setParameter(1, 1.0F);
  const auto delays = meter.listen(40000);
  constexpr double kDistance = 9600.0 - 192.0;
  constexpr double kFree = 1.0 / FastInstance::kCoefficient;
  const auto limited = static_cast<std::size_t>(kDistance - kFree);
  for (std::size_t i = 1; i < limited; ++i)
    ASSERT_NEAR(delays[i] - delays[i - 1], -1.0, kHeard) << i;
  EXPECT_GT(delays[limited + 1000] - delays[limited + 999], -0.8);
  const double expected = static_cast<double>(limited) + 2216.0;
  EXPECT_NEAR(static_cast<double>(arrival(delays, 192.0, kFree / 16.0)), expected, 5.0);
}

TEST(DelayGlide, WaitsDuringBypass) {
  Player plugin;
  DelayMeter meter(plugin);
  meter.listen(3000);
  plugin.setParameter(3, 0.0F);
  plugin.setParameter(1, 0.0F);
  meter.listen(44100);
  plugin.setParameter(3, 1.0F);
  const auto delays = meter.listen(10);
  const double step = (2205.0 - 45.0) * (1.0 - unclosed(1.0, 44100.0));  // of the first frame
  EXPECT_NEAR(delays[0], 45.0 + step, 1e-3);
}
