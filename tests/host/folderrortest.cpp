// How far the mono fold of what an effect put out is from the fold of what it was given.
#include "host/measure/folderror.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

TEST(FoldError, IsTheLargest) {
  FoldError error;
  const std::vector<double> left = {0.5, 0.25, 0.0};
  const std::vector<double> right = {0.5, 0.75, 0.0};  // mid 0.5, 0.5, 0
  error.addBefore(left.data(), right.data(), 3);
  const std::vector<double> outLeft = {1.0, 0.5, 0.125};
  const std::vector<double> outRight = {0.0, 0.25, 0.125};  // folds to 0.5, 0.375, 0.125
  error.addAfter(outLeft.data(), outRight.data(), 3);
  EXPECT_EQ(error.largest(), 0.125);
}

TEST(FoldError, ExpectsTheGainInTheFold) {
  FoldError error(2.0);
  const double before = 0.25;
  const double after = 0.5;
  error.addBefore(&before, &before, 1);
  error.addAfter(&after, &after, 1);
  EXPECT_EQ(error.largest(), 0.0);
}

TEST(FoldError, ComparesLateFramesWithTheirOwnInput) {
  FoldError error;
  std::vector<double> signal;
  signal.reserve(5000);
  for (int i = 0; i < 5000; ++i) signal.push_back(std::sin(0.01 * i));
  // Blocks go in, and come out in other pieces and 300 frames later.
  std::size_t out = 0;
  for (std::size_t in = 0; in < signal.size(); in += 100) {
    error.addBefore(&signal[in], &signal[in], 100);
    for (; out + 300 < in; out += 50) error.addAfter(&signal[out], &signal[out], 50);
  }
  for (; out < signal.size(); out += 50) error.addAfter(&signal[out], &signal[out], 50);
  EXPECT_EQ(error.largest(), 0.0);
}

TEST(FoldError, ComparesATailWithSilence) {
  FoldError error;
  const std::vector<double> one = {1.0};
  error.addBefore(one.data(), one.data(), 1);
  error.addAfter(one.data(), one.data(), 1);
  const std::vector<double> left = {0.5, 0.5};
  const std::vector<double> right = {-0.5, -0.25};
  error.addAfter(left.data(), right.data(), 2);
  EXPECT_EQ(error.largest(), 0.125);
}
