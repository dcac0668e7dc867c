// The user's time for double clicks on Carbon's test double.
#include "editor/base/eventtime.h"

#include <gtest/gtest.h>

#include "carbon.h"

namespace {

TEST(EventTimeMac, ADoubleClickMayTakeTheSystemsTime) {
  carbondouble::doubleClickTicks = 30;  // of 1/60 s
  EXPECT_EQ(longestDoubleClick(), 500U);
}

TEST(EventTimeMac, NeverGoesBack) {
  const std::uint64_t before = eventMilliseconds();
  EXPECT_LE(before, eventMilliseconds());
}

}  // namespace
