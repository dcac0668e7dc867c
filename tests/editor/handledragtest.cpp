// What a pointer's way makes of a value.
#include "editor/controls/handledrag.h"

#include <gtest/gtest.h>

namespace {

constexpr double kPerPixel = 1.0 / 160;  // of a travel of 160 pixels
constexpr double kTenth = 10;            // the fine steps' divisor

HandleDrag dragFrom(double x, double value, bool fine = false) {
  return {x, value, fine, -kPerPixel, kTenth};  // the value grows to the left
}

TEST(HandleDrag, WithoutMotionTheValueIsTheSameToTheLastBit) {
  HandleDrag drag = dragFrom(100, 1e-20);
  EXPECT_FALSE(drag.moveTo(100, false));
  EXPECT_EQ(drag.value(), 1e-20);
  EXPECT_FALSE(drag.moveTo(100, true));
  EXPECT_FALSE(drag.moveTo(100, false));
  EXPECT_EQ(drag.value(), 1e-20);
}

TEST(HandleDrag, TheValueGoesWithThePointer) {
  HandleDrag drag = dragFrom(100, 0.5);
  EXPECT_TRUE(drag.moveTo(116, false));
  EXPECT_DOUBLE_EQ(drag.value(), 0.4);
  drag.moveTo(99.5, false);  // half a pixel of a large screen
  EXPECT_DOUBLE_EQ(drag.value(), 0.5 + 0.5 / 160);
  drag.moveTo(100, false);
  EXPECT_EQ(drag.value(), 0.5);
}

TEST(HandleDrag, FineStepsAreATenth) {
  HandleDrag drag = dragFrom(100, 0.5, true);
  drag.moveTo(116, true);
  EXPECT_DOUBLE_EQ(drag.value(), 0.49);
}

TEST(HandleDrag, AChangeOfTheStepsMovesNothingByItself) {
  HandleDrag drag = dragFrom(100, 0.5);
  drag.moveTo(148, false);
  EXPECT_DOUBLE_EQ(drag.value(), 0.2);
  drag.moveTo(148, true);
  EXPECT_DOUBLE_EQ(drag.value(), 0.2);
  drag.moveTo(132, true);
  EXPECT_DOUBLE_EQ(drag.value(), 0.21);
  drag.moveTo(132, false);
  EXPECT_DOUBLE_EQ(drag.value(), 0.21);
  drag.moveTo(116, false);
  EXPECT_DOUBLE_EQ(drag.value(), 0.31);
}

// The first motion that is told to be fine has been made with the finer steps.
TEST(HandleDrag, TheFirstFineMotionIsFine) {
  HandleDrag drag = dragFrom(100, 0.5);
  drag.moveTo(116, false);
  drag.moveTo(132, true);
  EXPECT_DOUBLE_EQ(drag.value(), 0.39);
}

TEST(HandleDrag, BeyondTheEndThePointerHasToComeBackToWhereItLeftTheHandle) {
  HandleDrag drag = dragFrom(100, 0.25);
  drag.moveTo(300, false);
  EXPECT_EQ(drag.value(), 0.0);
  drag.moveTo(141, false);
  EXPECT_EQ(drag.value(), 0.0);
  drag.moveTo(132, false);
  EXPECT_DOUBLE_EQ(drag.value(), 0.05);
  drag.moveTo(-500, false);
  EXPECT_EQ(drag.value(), 1.0);
  drag.moveTo(100, false);
  EXPECT_EQ(drag.value(), 0.25);
}

// Shift is pressed to set a value finely: it is not the way back that becomes ten times as long.
TEST(HandleDrag, BeyondTheEndFineStepsBeginAtTheEnd) {
  HandleDrag drag = dragFrom(100, 0.25);
  drag.moveTo(300, false);
  drag.moveTo(300, true);
  drag.moveTo(284, true);
  EXPECT_DOUBLE_EQ(drag.value(), 0.01);
}

TEST(HandleDrag, AValueThatGrowsToTheRightDoes) {
  HandleDrag drag(10, 0.5, false, kPerPixel, kTenth);
  drag.moveTo(26, false);
  EXPECT_DOUBLE_EQ(drag.value(), 0.6);
}

}  // namespace
