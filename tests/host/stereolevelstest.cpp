// The levels of a stereo signal.
#include "host/measure/stereolevels.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(StereoLevels, MeasuresLevelsOfMidAndSide) {
  StereoLevels levels;
  for (int i = 0; i < 1000; ++i) levels.add(0.75, 0.25);  // mid 0.5, side 0.25
  EXPECT_NEAR(levels.mid(), 0.5, 1e-12);
  EXPECT_NEAR(levels.side(), 0.25, 1e-12);
  EXPECT_EQ(levels.peak(), 0.75);
}

TEST(StereoLevels, TellsTheSameOppositeAndUnrelatedChannelsApart) {
  StereoLevels same;
  StereoLevels opposite;
  StereoLevels unrelated;
  for (int i = 0; i < 1000; ++i) {
    const double x = std::sin(0.1 * i);
    same.add(x, 0.5 * x);
    opposite.add(x, -2.0 * x);
    unrelated.add(i % 2 == 0 ? 1.0 : 0.0, i % 2 == 0 ? 0.0 : 1.0);
  }
  EXPECT_NEAR(same.correlation(), 1.0, 1e-9);
  EXPECT_NEAR(opposite.correlation(), -1.0, 1e-9);
  EXPECT_EQ(unrelated.correlation(), 0.0);
  EXPECT_EQ(StereoLevels().correlation(), 0.0) << "nothing at all";
}
