// How loud a sound is, by EBU R128, and its true peak.
#include "host/measure/loudness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace {

constexpr int kRate = 48000;  // Hz

struct Signal {
  std::vector<double> left;
  std::vector<double> right;
};

// A sine on both channels, appended. amplitude: dBFS.
void addSine(Signal& signal, double seconds, double decibels, double hertz = 1000.0,
             double phase = 0.0) {
  const double amplitude = std::pow(10.0, decibels / 20.0);
  const auto frames = static_cast<int>(seconds * kRate);
  for (int frame = 0; frame < frames; ++frame) {
    const double sample =
        amplitude * std::sin(phase + 2.0 * std::numbers::pi * hertz * frame / kRate);
    signal.left.push_back(sample);
    signal.right.push_back(sample);
  }
}

Loudness::Result measured(const Signal& signal, int channels = 2, std::size_t piece = 4096) {
  Loudness loudness(channels, kRate);
  for (std::size_t at = 0; at < signal.left.size(); at += piece) {
    const std::size_t frames = std::min(piece, signal.left.size() - at);
    loudness.add(&signal.left[at], &signal.right[at], static_cast<int>(frames));
  }
  return loudness.finish();
}

}  // namespace

// By the recommendation's own test signals: a sine of 1 kHz on both channels has as many LUFS as
// its amplitude has dBFS.
TEST(Loudness, OfASineIsItsAmplitude) {
  for (const double decibels : {-23.0, -33.0, 0.0}) {
    Signal signal;
    addSine(signal, 20.0, decibels);
    EXPECT_NEAR(measured(signal).integrated.value(), decibels, 0.1);
  }
}

TEST(Loudness, LeavesOutWhatLiesFarBelowTheRest) {
  Signal signal;
  addSine(signal, 10.0, -36.0);
  addSine(signal, 60.0, -23.0);
  addSine(signal, 10.0, -36.0);
  EXPECT_NEAR(measured(signal).integrated.value(), -23.0, 0.1);
}

// Half the energy of two.
TEST(Loudness, CountsOneChannelOnce) {
  Signal signal;
  addSine(signal, 5.0, -20.0);
  EXPECT_NEAR(measured(signal, 1).integrated.value(), -23.0, 0.1);
}

TEST(Loudness, IsNotThereForSilenceAndForShortSounds) {
  Signal silence{std::vector<double>(kRate), std::vector<double>(kRate)};
  EXPECT_EQ(measured(silence).integrated, std::nullopt);
  EXPECT_EQ(measured(silence).truePeak, 0.0);
  Signal brief;
  addSine(brief, 0.399, -10.0);
  EXPECT_EQ(measured(brief).integrated, std::nullopt);
  addSine(brief, 0.001, -10.0);
  EXPECT_NE(measured(brief).integrated, std::nullopt) << "0.4 s are enough";
  EXPECT_EQ(measured({}).integrated, std::nullopt);
}

// A quarter of the rate, met at 45 degrees: the samples reach 3 dB less than the wave between them.
TEST(Loudness, FindsThePeakBetweenTheSamples) {
  Signal signal;
  addSine(signal, 1.0, -6.0, kRate / 4.0, std::numbers::pi / 4.0);
  const double decibels = 20.0 * std::log10(measured(signal).truePeak.value());
  EXPECT_GT(decibels, -6.4);  // as exact as the recommendation asks for
  EXPECT_LT(decibels, -5.8);
}

TEST(Loudness, FindsThePeakBetweenTheLastSamples) {
  Signal signal{std::vector<double>(100), std::vector<double>(100)};
  signal.right[98] = signal.right[99] = 0.5;
  const double peak = measured(signal).truePeak.value();
  EXPECT_GT(peak, 0.6);  // sin(pi t)/(pi t) of both, half-way: 2/pi = 0.637
  EXPECT_LT(peak, 0.65);
}

TEST(Loudness, DoesNotDependOnThePieces) {
  Signal signal;
  addSine(signal, 0.7, -14.0, 997.0);
  addSine(signal, 0.5, -34.0, 5123.0);
  const Loudness::Result whole = measured(signal, 2, signal.left.size());
  for (const std::size_t piece : {1UL, 7UL, 480UL, 4801UL}) {
    EXPECT_EQ(measured(signal, 2, piece).integrated, whole.integrated) << piece;
    EXPECT_EQ(measured(signal, 2, piece).truePeak, whole.truePeak) << piece;
  }
}

TEST(Loudness, IsNotMeasuredAtRatesThatNobodyHears) {
  const double sample = 0.5;
  for (const int rate : {1, 999, 2822401, std::numeric_limits<int>::max()}) {
    Loudness loudness(2, rate);
    loudness.add(&sample, &sample, 1);
    const Loudness::Result result = loudness.finish();
    EXPECT_EQ(result.integrated, std::nullopt) << rate;
    EXPECT_EQ(result.truePeak, std::nullopt) << rate;
  }
  for (const int rate : {1000, 2822400})
    EXPECT_NE(Loudness(2, rate).finish().truePeak, std::nullopt);
}
