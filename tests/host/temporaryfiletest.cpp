// A file that takes its own name only when it is complete.
#include "host/base/temporaryfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/base/failure.h"
#include "tests/host/foldertest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class TemporaryFiles : public FolderTest {
 protected:
  static void fill(const TemporaryFile& file) { ASSERT_EQ(write(file.descriptor(), "new", 3), 3); }

  std::string refusalOf(const std::filesystem::path& target, bool replace = false) const {
    try {
      const TemporaryFile file(target, replace);
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.status(), ExitStatus::failed);
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(TemporaryFiles, TakeTheirNameWhenKept) {
  TemporaryFile file(in("a.txt"), false);
  fill(file);
  EXPECT_FALSE(std::filesystem::exists(in("a.txt")));
  file.keep();
  EXPECT_THAT(names(), ElementsAre("a.txt"));
  EXPECT_EQ(textOf(in("a.txt")), "new");
}

TEST_F(TemporaryFiles, GoWhenNotKept) {
  {
    const TemporaryFile file(in("a.txt"), false);
    fill(file);
    EXPECT_EQ(names().size(), 1U);
  }
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(TemporaryFiles, ReplaceAFileOnlyIfTheyMay) {
  writeText(in("a.txt"), "old");
  EXPECT_THAT(refusalOf(in("a.txt")), HasSubstr("already there"));
  EXPECT_EQ(textOf(in("a.txt")), "old");
  TemporaryFile file(in("a.txt"), true);
  fill(file);
  EXPECT_EQ(textOf(in("a.txt")), "old") << "until it is complete";
  file.keep();
  EXPECT_EQ(textOf(in("a.txt")), "new");
  EXPECT_THAT(names(), ElementsAre("a.txt"));
}

TEST_F(TemporaryFiles, DoNotOverwriteAFileThatCameMeanwhile) {
  TemporaryFile file(in("a.txt"), false);
  fill(file);
  writeText(in("a.txt"), "somebody else's");
  EXPECT_THROW(file.keep(), Failure);
  EXPECT_EQ(textOf(in("a.txt")), "somebody else's");
}

TEST_F(TemporaryFiles, MakeWhatALinkPointsToThatLeadsToNothingYet) {
  std::filesystem::create_directory(in("sub"));
  std::filesystem::create_symlink("sub/second", in("first"));
  std::filesystem::create_symlink("real.txt", in("sub/second"));
  TemporaryFile file(in("first"), false);
  fill(file);
  file.keep();
  EXPECT_TRUE(std::filesystem::is_symlink(in("first")));
  EXPECT_TRUE(std::filesystem::is_symlink(in("sub/second")));
  EXPECT_EQ(textOf(in("sub/real.txt")), "new");
}

TEST_F(TemporaryFiles, FollowNoLinksInACircle) {
  std::filesystem::create_symlink("b", in("a"));
  std::filesystem::create_symlink("a", in("b"));
  EXPECT_THAT(refusalOf(in("a")), HasSubstr("cannot be written"));
  EXPECT_EQ(names().size(), 2U);
}

TEST_F(TemporaryFiles, MayHaveANameOfAnyLengthThatTheFileSystemTakes) {
  const std::string longest(255, 'x');
  TemporaryFile file(in(longest), false);
  fill(file);
  ASSERT_EQ(names().size(), 1U);
  EXPECT_THAT(names()[0], testing::StartsWith(".xxx"));
  EXPECT_THAT(names()[0], testing::EndsWith(".part"));
  file.keep();
  EXPECT_THAT(names(), ElementsAre(longest));
}

TEST_F(TemporaryFiles, ReplaceWhatALinkPointsTo) {
  writeText(in("real.txt"), "old");
  std::filesystem::create_symlink("real.txt", in("link.txt"));
  TemporaryFile file(in("link.txt"), true);
  fill(file);
  file.keep();
  EXPECT_TRUE(std::filesystem::is_symlink(in("link.txt")));
  EXPECT_EQ(textOf(in("real.txt")), "new");
}

TEST_F(TemporaryFiles, KeepTheRightsOfTheFileThatTheyReplace) {
  writeText(in("a.txt"), "old");
  chmod(in("a.txt").c_str(), 0640);
  TemporaryFile file(in("a.txt"), true);
  file.keep();
  EXPECT_EQ(std::filesystem::status(in("a.txt")).permissions(), std::filesystem::perms{0640});
}

TEST_F(TemporaryFiles, LeaveTheRightsOfNewFilesToTheUmask) {
  const mode_t before = umask(027);
  TemporaryFile file(in("a.txt"), false);
  file.keep();
  umask(before);
  EXPECT_EQ(std::filesystem::status(in("a.txt")).permissions(), std::filesystem::perms{0640});
}

TEST_F(TemporaryFiles, AreRefusedWhereTheyCannotBe) {
  EXPECT_THAT(refusalOf(in("missing") / "a.txt"), HasSubstr("there is no folder"));
  EXPECT_THAT(refusalOf(folder, true), HasSubstr("it is a folder"));
  writeText(in("file"), "");
  EXPECT_THAT(refusalOf(in("file") / "a.txt"), HasSubstr("cannot be written"));
  EXPECT_THAT(refusalOf("/dev/null", true), HasSubstr("no regular file"));
  EXPECT_THAT(refusalOf(in(std::string(300, 'x'))), HasSubstr("cannot be written"));
}

TEST_F(TemporaryFiles, OfOneTargetDoNotDisturbEachOther) {
  TemporaryFile first(in("a.txt"), true);
  TemporaryFile second(in("a.txt"), true);
  fill(first);
  first.keep();
  second.keep();
  EXPECT_EQ(textOf(in("a.txt")), "");
  EXPECT_THAT(names(), ElementsAre("a.txt"));
}
