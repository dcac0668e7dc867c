// How wide a stereo signal is.
#include "host/measure/imagewidth.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/host/sounds.h"

namespace {

double widthOf(const std::vector<double>& left, const std::vector<double>& right,
               std::size_t block) {
  ImageWidth width;
  for (std::size_t at = 0; at < left.size(); at += block) {
    width.add(left.data() + at, right.data() + at,
              static_cast<int>(std::min(block, left.size() - at)));
  }
  return width.sideToMid();
}

}  // namespace

TEST(ImageWidths, AreTheSideAgainstTheMid) {
  const std::vector<double> one = {0.5, -0.25, 0.125, 0.0, 0.75};
  std::vector<double> half = one;
  std::vector<double> opposite = one;
  for (double& sample : half) sample *= 0.5;
  for (double& sample : opposite) sample = -sample;
  const std::vector<double> none(one.size());
  EXPECT_EQ(widthOf(one, one, 5), 0.0) << "mono";
  EXPECT_EQ(widthOf(one, none, 5), 1.0) << "one side alone: both are half of it";
  EXPECT_NEAR(widthOf(one, half, 5), 1.0 / 3.0, 1e-15) << "a quarter against three";
  EXPECT_EQ(widthOf(one, opposite, 5), std::numeric_limits<double>::infinity());
  EXPECT_EQ(widthOf(none, none, 5), 0.0);
  EXPECT_EQ(ImageWidth().sideToMid(), 0.0);
}

TEST(ImageWidths, DoNotDependOnTheBlocks) {
  const Sound sound = noise(1003, 2, 1);
  std::vector<double> left;
  std::vector<double> right;
  for (std::size_t frame = 0; frame < sound.frames(); ++frame) {
    left.push_back(sound.at(frame, 0) / 3.0);  // so that sums are rounded
    right.push_back(sound.at(frame, 1) / 3.0);
  }
  const double whole = widthOf(left, right, 1003);
  for (const std::size_t block : {1U, 2U, 4U, 5U, 6U, 7U, 9U, 10U, 11U, 13U, 101U})
    EXPECT_EQ(widthOf(left, right, block), whole) << block;
}

TEST(ImageWidths, AreNarrowerFromATenthOfADecibelOn) {
  const auto decibels = [](double db) { return std::pow(10.0, db / 20.0); };
  EXPECT_TRUE(isNarrower(decibels(-6.11), decibels(-6.0)));
  EXPECT_FALSE(isNarrower(decibels(-6.09), decibels(-6.0)));
  EXPECT_FALSE(isNarrower(0.0, 0.0)) << "mono stays mono";
  EXPECT_TRUE(isNarrower(0.0, 0.001));
  EXPECT_TRUE(isNarrower(1.0, std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(
      isNarrower(std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()));
}
