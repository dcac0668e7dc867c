// Runs widen with --json and reads the document that it prints.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/cli/json.h"
#include "tests/host/program.h"

class DocumentTest : public ProgramTest {
 protected:
  // The standard output is one document and nothing else.
  Json document(std::vector<std::string> words, int status = 0) {
    words.emplace_back("--json");
    const Outcome outcome = widen(words);
    EXPECT_EQ(outcome.status, status) << outcome.error;
    said = outcome.error;
    Json parsed = Json::parse(outcome.out, nullptr, false);
    EXPECT_FALSE(parsed.is_discarded()) << outcome.out;
    return parsed;
  }

  std::string said;  // on the error stream
};
