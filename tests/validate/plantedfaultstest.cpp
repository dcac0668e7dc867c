// Every check finds the fault that was planted for it, and the sound effect passes them all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/validate/validatetest.h"

namespace {

using testing::HasSubstr;

class PlantedFaults : public testing::TestWithParam<PlantedFault> {};

TEST_P(PlantedFaults, AreFoundByTheirCheck) {
  const PlantedFault& fault = GetParam();
  const ValidatorRun run = validateBroken(fault.plugin, fault.check);
  EXPECT_EQ(run.status, 1) << run.text;
  EXPECT_THAT(run.text, HasSubstr(std::string("FAIL      ") + fault.check));
  EXPECT_THAT(run.text, HasSubstr(fault.says));
  // The same check passes where nothing is wrong, so it was this fault that it found.
  const ValidatorRun sound = validateBroken("sound", fault.check);
  EXPECT_EQ(sound.status, 0) << sound.text;
  EXPECT_THAT(sound.text, HasSubstr(std::string("pass      ") + fault.check));
}

// plugin, check, what is said. A plug-in's name is its class's, in plugins/bad*.cpp.
INSTANTIATE_TEST_SUITE_P(Life, PlantedFaults,
                         testing::Values(PlantedFault{
                             "crashesonclose", "an effect is made, opened, closed and unloaded",
                             "crashes"}),
                         [](const auto& test) { return std::string(test.param.plugin); });

}  // namespace
