// Two presses make a double click when they are close in time and place.
#include "editor/controls/doubleclick.h"

#include <gtest/gtest.h>

#include "editor/base/linux/handledevent.h"
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

TEST_F(DoubleClicks, TheDesktopsTimeIsTheMost) {
  for (const std::uint32_t longest : {250U, 400U, 1000U}) {
    clicks.setClock([this] { return time; }, longest);
    EXPECT_FALSE(pressAt(1000));
    EXPECT_TRUE(pressAt(1000 + longest));
    EXPECT_FALSE(pressAt(5000));
    EXPECT_FALSE(pressAt(5001 + longest));
    clicks.forget();
  }
}

TEST_F(DoubleClicks, WithoutADesktopFourHundredMillisecondsAreTheMost) {
  EXPECT_EQ(longestDoubleClick(), 400U);
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
  EXPECT_FALSE(pressAt(1500));
  EXPECT_TRUE(pressAt(1600));
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

TEST_F(DoubleClicks, TheTimeIsWhenTheEventWasMadeHoweverLateItIsHandled) {
  DoubleClick own;
  const auto pressMadeAt = [&own](std::uint32_t serverTime) {
    const HandledEvent event(serverTime);
    return own.press({0, 0});
  };
  EXPECT_FALSE(pressMadeAt(70000));
  EXPECT_FALSE(pressMadeAt(70600));
  EXPECT_TRUE(pressMadeAt(70700));
}

TEST_F(DoubleClicks, TheServersTimeStartsAgainAfterSevenWeeks) {
  DoubleClick own;
  for (const std::uint32_t first : {0xFFFFFFF0U, 0xFFFFFE00U}) {
    {
      const HandledEvent event(first);
      EXPECT_FALSE(own.press({0, 0}));
    }
    const HandledEvent event(first + 600U);  // past the end of 32 bits
    EXPECT_FALSE(own.press({0, 0}));
    const HandledEvent next(first + 700U);
    EXPECT_TRUE(own.press({0, 0}));
  }
}

}  // namespace
