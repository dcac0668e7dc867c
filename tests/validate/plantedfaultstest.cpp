// Every check finds the fault that was planted for it, and the sound effect passes them all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/validate/validatetest.h"

using testing::HasSubstr;

namespace {

// Why the check has to be left out on this machine; empty where it has not.
std::string reasonToLeaveOut(const PlantedFault& fault) {
  if (VALIDATE_SANITIZED && !fault.alsoSanitized)
    return "a sanitizer stands where this check would have to";
  if (fault.needsDecimalComma && !std::filesystem::exists(VALIDATE_LOCALES "/de_DE.UTF-8"))
    return "no locale with a decimal comma could be made";
  return {};
}

}  // namespace

TEST_P(PlantedFaults, AreFoundByTheirCheck) {
  const PlantedFault& fault = GetParam();
  const ValidatorRun run = validateBroken(fault.plugin, fault.check);
  if (const std::string reason = reasonToLeaveOut(fault); !reason.empty()) {
    EXPECT_EQ(run.status, 0) << run.text;
    EXPECT_THAT(run.text, HasSubstr(std::string("left out  ") + fault.check));
    GTEST_SKIP() << reason;
  }
  EXPECT_EQ(run.status, 1) << run.text;
  EXPECT_THAT(run.text, HasSubstr(std::string("FAIL      ") + fault.check));
  EXPECT_THAT(run.text, HasSubstr(fault.says));
  // The same check passes where nothing is wrong, so it was this fault that it found.
  const ValidatorRun sound = validateBroken("sound", fault.check);
  EXPECT_EQ(sound.status, 0) << sound.text;
  EXPECT_THAT(sound.text, HasSubstr(std::string("pass      ") + fault.check));
}

INSTANTIATE_TEST_SUITE_P(Life, PlantedFaults,
                         testing::Values(PlantedFault{
                             "crashesonclose", "an effect is made, opened, closed and unloaded",
                             "crashes"}),
                         nameOfFault);
