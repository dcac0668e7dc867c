// The mean power spectrum of a signal.
#include "host/plot/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

void addSine(Spectrum& spectrum, double bin, double amplitude, int frames) {
  for (int i = 0; i < frames; ++i) {
    spectrum.add(amplitude * std::sin(2.0 * std::numbers::pi * bin * i / Spectrum::kSize + 0.3));
  }
}

}  // namespace

TEST(Spectrum, ShowsASineOnABinWithTheSquareOfItsAmplitude) {
  Spectrum spectrum;
  addSine(spectrum, 1000, 0.5, 5 * Spectrum::kSize + 17);
  const auto power = spectrum.power();
  EXPECT_NEAR(power[1000], 0.25, 1e-5);
  EXPECT_NEAR(power[1001], 0.25 / 4, 1e-5) << "the window's own neighbours: half the amplitude";
  EXPECT_LT(power[1010], 1e-9);
  EXPECT_LT(power[500], 1e-9);
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
  EXPECT_NEAR(spectrum.power()[2048], 0.5, 0.05) << "half of the time at 1";
}

TEST(Spectrum, ShowsASignalThatIsShorterThanAWindow) {
  Spectrum spectrum;
  addSine(spectrum, 1024, 1.0, Spectrum::kSize / 2);
  const auto power = spectrum.power();
  const auto loudest = std::max_element(power.begin(), power.end()) - power.begin();
  EXPECT_NEAR(static_cast<double>(loudest), 1024.0, 2.0);
}
