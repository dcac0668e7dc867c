// Two presses make a double click when they are close in time and place.
#include "editor/controls/doubleclick.h"

#include <gtest/gtest.h>

#include "vstgui.h"

namespace {

using VSTGUI::CPoint;

class DoubleClicks : public testing::Test {
 protected:
  DoubleClicks() {
    clicks.setClock([this] { return time; });
  }
  bool pressAt(std::uint64_t milliseconds, CPoint where = {10, 10}) {
    time = milliseconds;
    return clicks.press(where);
  }
  std::uint64_t time = 0;
  DoubleClick clicks;
};

TEST_F(DoubleClicks, TheSecondPressMakesOne) {
  EXPECT_FALSE(pressAt(1000));
  EXPECT_TRUE(pressAt(1100));
}

TEST_F(DoubleClicks, ThreeHundredMillisecondsAreTheMost) {
  EXPECT_FALSE(pressAt(1000));
  EXPECT_TRUE(pressAt(1300));
  EXPECT_FALSE(pressAt(5000));
  EXPECT_FALSE(pressAt(5301));
}

TEST_F(DoubleClicks, FivePixelsEachWayAreTheMost) {
  for (const CPoint near :
       {CPoint(15, 10), CPoint(5, 10), CPoint(10, 15), CPoint(10, 5), CPoint(15, 5)}) {
    EXPECT_FALSE(pressAt(1000));
    EXPECT_TRUE(pressAt(1001, near)) << near.x << "," << near.y;
  }
  for (const CPoint far : {CPoint(16, 10), CPoint(4, 10), CPoint(10, 16), CPoint(10, 4)}) {
    clicks.forget();
    EXPECT_FALSE(pressAt(1000));
    EXPECT_FALSE(pressAt(1001, far)) << far.x << "," << far.y;
  }
}

TEST_F(DoubleClicks, APressTooLateIsTheFirstOfTheNext) {
  EXPECT_FALSE(pressAt(1000));
  EXPECT_FALSE(pressAt(1400));
  EXPECT_TRUE(pressAt(1500));
}

TEST_F(DoubleClicks, TheThirdOfThreeQuickPressesIsAFirstOne) {
  EXPECT_FALSE(pressAt(1000));
  EXPECT_TRUE(pressAt(1100));
  EXPECT_FALSE(pressAt(1200));
  EXPECT_TRUE(pressAt(1300));
}

TEST_F(DoubleClicks, AForgottenPressIsNoFirstOne) {
  EXPECT_FALSE(pressAt(1000));
  clicks.forget();
  EXPECT_FALSE(pressAt(1001));
}

TEST_F(DoubleClicks, TheOwnClockCountsMilliseconds) {
  DoubleClick own;
  EXPECT_FALSE(own.press({0, 0}));
  EXPECT_TRUE(own.press({0, 0}));  // at once
}

}  // namespace
