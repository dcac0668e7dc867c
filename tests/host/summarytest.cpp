// What became of all files of a run.
#include "host/cli/summary.h"

#include <gtest/gtest.h>

#include "host/cli/json.h"

namespace {

FileOutcome outcome(const std::string& warning, const std::string& failure,
                    const std::string& document = "") {
  FileOutcome made;
  made.warning = warning;
  made.failure = failure;
  made.document = document;
  return made;
}

}  // namespace

TEST(Summary, CountsFilesOnlyWhereThereAreSeveral) {
  Summary summary;
  EXPECT_EQ(summary.line(), "");
  summary.add({"a", "", {}, ""}, outcome("", ""));
  EXPECT_EQ(summary.line(), "");
  summary.add({"b", "", {}, ""}, outcome("", ""));
  EXPECT_EQ(summary.line(), "2 files: 2 done");
  summary.add({"c", "", {}, ""}, outcome("loud", ""));
  EXPECT_EQ(summary.line(), "3 files: 3 done, 1 with warnings");
  summary.add({"d", "", {}, ""}, outcome("", "lost"));
  EXPECT_EQ(summary.line(), "4 files: 3 done, 1 failed, 1 with warnings");
}

TEST(Summary, PutsTheFilesOfADocumentTogether) {
  Summary summary;
  summary.add({"a", "", {}, ""}, outcome("", "", "{\"b\": 1, \"a\": [2]}"));
  summary.add({"b\xFF", "", {}, ""}, outcome("", "b: lost"));
  const Json document = Json::parse(summary.document({"d: gone"}));
  EXPECT_EQ(document.at("files").dump(),
            "[{\"b\":1,\"a\":[2]},"
            "{\"input\":{\"file\":\"b\xEF\xBF\xBD\"},\"error\":\"b: lost\"}]");
  EXPECT_EQ(document.at("summary"),
            Json({{"files", 2}, {"done", 1}, {"skipped", 0}, {"failed", 1}, {"warned", 0}}));
  EXPECT_EQ(document.at("errors"), Json::array({"d: gone"}));
}
