// What an effect did to the stereo image of a signal.
#include "host/plot/stereoanalysis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

TEST(StereoAnalysis, IsTheSameForBlocksOfEverySize) {
  constexpr int kFrames = 100001;
  std::vector<double> left;
  std::vector<double> right;
  for (int i = 0; i < kFrames; ++i) {
    left.push_back(std::sin(0.01 * i));
    right.push_back(std::sin(0.013 * i) * i / kFrames);
  }
  const auto imageBy = [&](StereoImage& image, int block) {
    for (int at = 0; at < kFrames; at += block)
      image.add(&left[static_cast<std::size_t>(at)], &right[static_cast<std::size_t>(at)],
                std::min(block, kFrames - at));
  };
  StereoImage whole;
  imageBy(whole, kFrames);
  for (const int block : {1, 7, 1024, 65536}) {
    StereoImage image;
    imageBy(image, block);
    EXPECT_EQ(image.levels().peak(), whole.levels().peak()) << block;
    EXPECT_EQ(image.levels().mid(), whole.levels().mid()) << block;
    EXPECT_EQ(image.levels().side(), whole.levels().side()) << block;
    EXPECT_EQ(image.levels().correlation(), whole.levels().correlation()) << block;
    EXPECT_EQ(image.midPower(), whole.midPower()) << block;
    EXPECT_EQ(image.sidePower(), whole.sidePower()) << block;
    EXPECT_EQ(image.goniometer().range(), whole.goniometer().range()) << block;
    EXPECT_EQ(image.goniometer().count(300, 200), whole.goniometer().count(300, 200)) << block;
  }
  EXPECT_GT(whole.goniometer().count(256, 256), 0U);
}
