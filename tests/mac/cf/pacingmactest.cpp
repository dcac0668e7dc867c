// Ticks and waiting on Carbon's test double.
#include <gtest/gtest.h>

#include "carbon.h"
#include "editor/base/pacing.h"

namespace {

TEST(PacingMac, CountsTheSystemsTicks) {
  carbondouble::ticks = 0xFFFFFFFE;
  EXPECT_EQ(platformTickCount(), 0xFFFFFFFE);
}

TEST(PacingMac, RunsTheEventLoopForTheSecondsAskedFor) {
  carbondouble::secondsRun = 0;
  platformRunEventLoop(0.004);
  EXPECT_EQ(carbondouble::secondsRun, 0.004);
}

}  // namespace
