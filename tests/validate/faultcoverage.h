// Looks among the faults that are planted in this program for one of every check.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>

#include "host/validate/check.h"

inline bool isAFaultPlantedFor(const std::string& check) {
  const testing::UnitTest& program = *testing::UnitTest::GetInstance();
  for (int suite = 0; suite < program.total_test_suite_count(); ++suite) {
    const testing::TestSuite& tests = *program.GetTestSuite(suite);
    for (int i = 0; i < tests.total_test_count(); ++i) {
      const char* fault = tests.GetTestInfo(i)->value_param();  // as PrintTo has it
      if (fault != nullptr && std::string(fault).ends_with(" in \"" + check + "\"")) return true;
    }
  }
  return false;
}

inline bool isOfWindows(const std::string& check) {
  for (const auto& checks : {editorChecks(), editorWorkChecks(), editorEndChecks()}) {
    if (std::any_of(checks.begin(), checks.end(),
                    [&](const Check& one) { return one.name == check; })) {
      return true;
    }
  }
  return false;
}
