// The mean power spectrum of a signal.
#include "host/plot/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <random>
#include <vector>

namespace {

void addSine(Spectrum& spectrum, double bin, double amplitude, int frames) {
  for (int i = 0; i < frames; ++i) {
    spectrum.add(amplitude * std::sin(2.0 * std::numbers::pi * bin * i / Spectrum::kSize + 0.3));
  }
}

}  // namespace

// The signal's beginning and end are clicks of their own, which reach all bins a little.
TEST(Spectrum, ShowsASineOnABinWithTheSquareOfItsAmplitude) {
  Spectrum spectrum;
  addSine(spectrum, 1000, 0.5, 100 * Spectrum::kSize + 17);
  const auto power = spectrum.power();
  EXPECT_NEAR(power[1000], 0.25, 0.25 * 0.01) << "two of 202 windows see half of it";
  EXPECT_NEAR(power[1001], 0.25 / 4, 0.25 * 0.01)
      << "the window's own neighbours: half the amplitude";
  EXPECT_LT(power[1010], 1e-5);
  EXPECT_LT(power[500], 1e-8);
}

// By Parseval's theorem: a window's powers sum up to eight times the energy that it sees, divided
// by its size.
TEST(Spectrum, WeighsAClickAnywhereInAShortSignalBetweenOnceAndTwice) {
  constexpr int kHalf = Spectrum::kSize / 2;
  for (const int frames : {100, kHalf, 2 * kHalf, 3 * kHalf + 100, 4 * kHalf - 1, 6 * kHalf + 5}) {
    std::vector<double> totals;
    for (const int place : {0, frames / 4, frames / 2, frames - 1}) {
      Spectrum spectrum;
      for (int i = 0; i < frames; ++i) spectrum.add(i == place ? 1.0 : 0.0);
      const auto power = spectrum.power();
      totals.push_back(std::accumulate(power.begin(), power.end(), 0.0));
    }
    const auto [least, most] = std::minmax_element(totals.begin(), totals.end());
    EXPECT_LT(*most, *least * 2.02) << frames << " frames: the squares of two windows that overlap "
                                    << "sum up to between a half and one";
    EXPECT_NEAR(*most * frames, 3.0, 1.1) << frames << " frames: three times the mean square";
  }
}

TEST(Spectrum, ShowsASteadyNoiseOfAnyLengthAtTheSameLevel) {
  for (const int frames : {2000, Spectrum::kSize / 2 + 1, Spectrum::kSize, 10 * Spectrum::kSize}) {
    Spectrum spectrum;
    std::minstd_rand coin(1);
    for (int i = 0; i < frames; ++i) spectrum.add(coin() % 1000 < 500 ? 0.5 : -0.5);
    const auto power = spectrum.power();
    EXPECT_NEAR(std::accumulate(power.begin(), power.end(), 0.0), 3.0 * 0.25, 0.02) << frames;
  }
}

TEST(Spectrum, IsZeroForNothingAndForSilence) {
  Spectrum spectrum;
  const auto nothing = spectrum.power();
  EXPECT_EQ(nothing.size(), static_cast<std::size_t>(Spectrum::kBins));
  EXPECT_EQ(std::accumulate(nothing.begin(), nothing.end(), 0.0), 0.0);
}

TEST(Spectrum, AveragesOverTheWindows) {
  Spectrum spectrum;
  addSine(spectrum, 2048, 1.0, 8 * Spectrum::kSize);
  for (int i = 0; i < 8 * Spectrum::kSize; ++i) spectrum.add(0.0);
  EXPECT_NEAR(spectrum.power()[2048], 0.5, 0.02) << "half of the time at 1";
}

TEST(Spectrum, ShowsASignalThatIsShorterThanAWindow) {
  Spectrum spectrum;
  addSine(spectrum, 1024, 1.0, Spectrum::kSize / 2);
  const auto power = spectrum.power();
  const auto loudest = std::max_element(power.begin(), power.end()) - power.begin();
  EXPECT_NEAR(static_cast<double>(loudest), 1024.0, 2.0);
}
