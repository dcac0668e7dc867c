// The list of checks as a whole: names that can be typed, a fault for each, and its page.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/validate/faultcoverage.h"

namespace {

// The lines of the page's first table, "| from | check | what it asks |".
std::vector<std::string> rowsOfPage() {
  std::ifstream page(VALIDATE_PAGE);
  std::vector<std::string> rows;
  bool inTable = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("| from | check |")) {
      inTable = true;
      std::getline(page, line);  // the line below the heads
    } else if (inTable && !line.starts_with("|")) {
      break;
    } else if (inTable) {
      rows.push_back(line);
    }
  }
  return rows;
}

}  // namespace

TEST(ChecksOfTheValidator, HaveNamesOfTheirOwnThatNeedNoEscaping) {
  std::set<std::string> names;
  for (const Check& check : allChecks()) {
    EXPECT_TRUE(names.insert(check.name).second) << check.name;
    EXPECT_EQ(std::string(check.name).find_first_of("'\"\\$`|"), std::string::npos) << check.name;
    EXPECT_GE(check.strictness, 1) << check.name;
    EXPECT_LE(check.strictness, 10) << check.name;
  }
}

// Those of windows are asked of a program that has a display.
TEST(ChecksOfTheValidator, HaveAFaultPlantedForEach) {
  for (const Check& check : allChecks()) {
    if (isOfWindows(check.name)) continue;
    EXPECT_TRUE(isAFaultPlantedFor(check.name)) << check.name;
  }
  EXPECT_FALSE(isAFaultPlantedFor("no check has this name"));
}

TEST(ChecksOfTheValidator, AreOnTheirPageInTheirOrder) {
  const std::vector<std::string> rows = rowsOfPage();
  const std::vector<Check> checks = allChecks();
  ASSERT_EQ(rows.size(), checks.size());
  for (std::size_t i = 0; i < checks.size(); ++i) {
    std::ostringstream opening;
    opening << "| " << checks[i].strictness << " | " << checks[i].name << " | ";
    EXPECT_TRUE(rows[i].starts_with(opening.str())) << rows[i] << " should be of " << opening.str();
  }
}
