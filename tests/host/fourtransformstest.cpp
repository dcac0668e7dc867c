// The power spectra of four signals at a time.
#include "host/plot/fourtransforms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace {

// By the definition.
std::vector<double> powersOf(const std::vector<double>& signal) {
  std::vector<double> powers;
  for (std::size_t bin = 0; bin <= signal.size() / 2; ++bin) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < signal.size(); ++i) {
      const double turns = static_cast<double>(bin * i % signal.size());
      sum += std::polar(signal[i],
                        -2.0 * std::numbers::pi * turns / static_cast<double>(signal.size()));
    }
    powers.push_back(std::norm(sum));
  }
  return powers;
}

}  // namespace

// Lengths whose last pass is by two, and by four.
TEST(FourTransforms, AddThePowersOfFourSignals) {
  for (const std::size_t length : {8U, 16U, 32U, 512U, 1024U}) {
    std::mt19937 random(static_cast<unsigned>(length));
    std::uniform_real_distribution<float> level(-1.0F, 1.0F);
    std::vector<FourTransforms::Pair> pairs(length / 2);
    std::vector<std::vector<double>> signals(4, std::vector<double>(length));
    for (std::size_t i = 0; i < length; ++i) {
      Four& values = i % 2 == 0 ? pairs[i / 2].re : pairs[i / 2].im;
      for (int lane = 0; lane < 4; ++lane) {
        values[lane] = level(random);
        signals[static_cast<std::size_t>(lane)][i] = values[lane];
      }
    }
    std::vector<double> expected(length / 2 + 1, 1.0);
    for (const std::vector<double>& signal : signals) {
      const std::vector<double> powers = powersOf(signal);
      for (std::size_t bin = 0; bin < powers.size(); ++bin) expected[bin] += powers[bin];
    }
    const FourTransforms transforms(length);
    std::vector<double> sums(length / 2 + 1, 1.0);
    transforms.addPowers(pairs.data(), sums.data());
    const std::vector<double> found = transforms.sorted(sums);
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t bin = 0; bin < found.size(); ++bin) {
      EXPECT_NEAR(found[bin], expected[bin], 1e-5 * static_cast<double>(length))
          << "bin " << bin << " of " << length;
    }
  }
}
