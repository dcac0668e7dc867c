// Milliseconds of a clock that never goes back.
#include "editor/base/steadytime.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(SteadyTime, GoesOnByTheMillisecondsThatPass) {
  const std::uint64_t before = steadyMilliseconds();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  const std::uint64_t after = steadyMilliseconds();
  EXPECT_GE(after - before, 19U) << "20 ms, less the rounding down of the second";
  EXPECT_LT(after - before, 10000U) << "milliseconds, not micro- or nanoseconds";
}

}  // namespace
