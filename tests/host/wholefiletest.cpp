// Small files read and written at once.
#include "host/base/wholefile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "tests/host/foldertest.h"

namespace {

class WholeFiles : public FolderTest {
 protected:
  std::string refusalOf(const std::string& name) const {
    try {
      readWholeFile(in(name));
    } catch (const Failure& failure) {
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(WholeFiles, ComeBackAsTheyWereWritten) {
  std::vector<unsigned char> bytes;
  bytes.reserve(100000);
  for (int i = 0; i < 100000; ++i) bytes.push_back(static_cast<unsigned char>(i * 7));
  writeWholeFile(in("a"), bytes, false);
  EXPECT_EQ(readWholeFile(in("a")), bytes);
  EXPECT_THROW(writeWholeFile(in("a"), bytes, false), Failure);
  writeWholeFile(in("a"), std::vector<unsigned char>{1}, true);
  EXPECT_EQ(readWholeFile(in("a")).size(), 1U);
}

TEST_F(WholeFiles, SayWhyTheyCannotBeRead) {
  using testing::HasSubstr;
  EXPECT_THAT(refusalOf("missing"), HasSubstr("no such file"));
  EXPECT_THAT(refusalOf("."), HasSubstr("is a folder"));
  writeText(in("empty"), "");
  EXPECT_THAT(refusalOf("empty"), HasSubstr("is empty"));
  writeText(in("huge"), "");
  std::filesystem::resize_file(in("huge"), (std::uintmax_t{1} << 28) + 1);
  EXPECT_THAT(refusalOf("huge"), HasSubstr("too large"));
}
