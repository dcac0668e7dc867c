// Wheel travel becomes whole steps.
#include "editor/controls/wheelsteps.h"

#include <gtest/gtest.h>

namespace {

TEST(WheelSteps, AWheelsClickIsOneStep) {
  WheelSteps steps;
  EXPECT_EQ(steps.add(1), 1);
  EXPECT_EQ(steps.add(1), 1);
  EXPECT_EQ(steps.add(-1), -1);
  EXPECT_EQ(steps.add(-3), -3);
}

TEST(WheelSteps, PartsOfAClickAddUp) {
  WheelSteps steps;
  EXPECT_EQ(steps.add(0.25), 0);
  EXPECT_EQ(steps.add(0.5), 0);
  EXPECT_EQ(steps.add(0.25), 1);
  EXPECT_EQ(steps.add(0.25), 0);
}

TEST(WheelSteps, TurningBackForgetsTheRest) {
  WheelSteps steps;
  EXPECT_EQ(steps.add(0.75), 0);
  EXPECT_EQ(steps.add(-0.5), 0);
  EXPECT_EQ(steps.add(-0.5), -1);
}

TEST(WheelSteps, AnAbsurdTravelStaysInRange) {
  WheelSteps steps;
  EXPECT_EQ(steps.add(1e300), 1000);
  EXPECT_EQ(steps.add(1), 1);
  EXPECT_EQ(steps.add(-1e300), -1000);
}

}  // namespace
