// Every check finds the fault that was planted for it, and the sound effect passes them all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/validate/validatetest.h"

using testing::HasSubstr;

namespace {

// Where a system has not the means of every check, nor of every fault.
bool cannotBeSeen(const PlantedFault& fault, const ValidatorRun& run) {
  if (VALIDATE_EVERY_CHECK) return false;
  return !std::filesystem::exists(pluginFile(fault.plugin)) ||
         run.text.find(std::string("left out  ") + fault.check) != std::string::npos;
}

}  // namespace

TEST_P(PlantedFaults, AreFoundByTheirCheck) {
  const PlantedFault& fault = GetParam();
  const ValidatorRun run = validateBroken(fault.plugin, fault.check);
  if (VALIDATE_SANITIZED && !fault.alsoSanitized) {
    EXPECT_EQ(run.status, 0) << run.text;
    EXPECT_THAT(run.text, HasSubstr(std::string("left out  ") + fault.check));
    GTEST_SKIP() << "a sanitizer stands where this check would have to";
  }
  if (cannotBeSeen(fault, run)) GTEST_SKIP() << "this system has not the means";
  EXPECT_EQ(run.status, 1) << run.text;
  EXPECT_THAT(run.text, HasSubstr(std::string("FAIL      ") + fault.check));
  EXPECT_THAT(run.text, HasSubstr(fault.says));
  // The same check passes where nothing is wrong, so it was this fault that it found.
  const ValidatorRun sound = validateBroken(fault.sound, fault.check);
  EXPECT_EQ(sound.status, 0) << sound.text;
  EXPECT_THAT(sound.text, HasSubstr(std::string("pass      ") + fault.check));
}
