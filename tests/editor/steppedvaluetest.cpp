// Steps of wheel and keys, and parts of them.
#include "editor/controls/steppedvalue.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/hostsettings.h"

namespace {

TEST(SteppedValue, TenStepsOfATenthGoFromEndToEndOverTheTenthsThatPeopleWrite) {
  const std::vector<float> tenths = {0.0F, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F,
                                     0.6F, 0.7F, 0.8F, 0.9F, 1.0F};
  for (const int rounding : kRoundings) {
    const ScopedRounding hosts(rounding);
    SteppedValue steps;
    float value = 0;
    for (std::size_t i = 1; i < tenths.size(); ++i) {
      value = steps.after(value, 0.1);
      EXPECT_EQ(value, tenths[i]);
    }
    for (std::size_t i = tenths.size() - 1; i-- > 0;) {
      value = steps.after(value, -0.1);
      EXPECT_EQ(value, tenths[i]);
    }
  }
}

TEST(SteppedValue, PartsOfAStepAddUpToIt) {
  for (const int parts : {3, 7, 64, 100000}) {
    SteppedValue steps;
    float value = 0.333F;
    for (int i = 0; i < parts; ++i) value = steps.after(value, 0.1 / parts);
    EXPECT_EQ(value, 0.433F) << parts;
  }
}

TEST(SteppedValue, GoesOnFromAValueThatSomethingElseHasSet) {
  SteppedValue steps;
  EXPECT_EQ(steps.after(0.5F, 0.1), 0.6F);
  EXPECT_EQ(steps.after(0.25F, 0.1), 0.35F);
}

TEST(SteppedValue, TurnsBackAtOnceAtAnEnd) {
  SteppedValue steps;
  float value = 0.95F;
  for (int i = 0; i < 50; ++i) value = steps.after(value, 0.1);
  EXPECT_EQ(value, 1.0F);
  EXPECT_EQ(steps.after(value, -0.1), 0.9F);
}

}  // namespace
