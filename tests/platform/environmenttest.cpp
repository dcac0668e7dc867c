// The host's environment, read each time.
#include "platform/linux/environment.h"

#include <gtest/gtest.h>

#include "tests/support/temporaryfolder.h"

namespace {

TEST(Environment, IsReadAnewEachTimeAndEmptyWhereNothingIsSet) {
  ScopedVariable variable("TRELVAN_TEST_VARIABLE", "first");
  EXPECT_EQ(environmentVariable("TRELVAN_TEST_VARIABLE"), "first");
  variable.set("second");
  EXPECT_EQ(environmentVariable("TRELVAN_TEST_VARIABLE"), "second");
  variable.set(nullptr);
  EXPECT_EQ(environmentVariable("TRELVAN_TEST_VARIABLE"), "");
}

}  // namespace
