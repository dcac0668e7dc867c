// A file that takes its own name only when it is complete.
#include "host/base/temporaryfile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
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

TEST_F(TemporaryFiles, RemoveWhatAKilledProgramLeftInTheFolder) {
  const std::vector<std::string> left = {".a.txt.widen-123-0.part", ".b.wav.widen-1-99.part",
                                         ".c.widen-1-1.widen-2-2.part"};
  const std::vector<std::string> others = {".a.txt.123-0.part",     ".a.txt.widen-123.part",
                                           ".a.txt.widen--0.part",  ".a.txt.widen-123-.part",
                                           ".a.txt.widen-x-0.part", ".a.txt.widen-1-0x.part",
                                           ".a.txt.widen-1-0",      "a.txt.widen-1-0.part"};
  for (const std::string& name : left) writeText(in(name), "half");
  for (const std::string& name : others) writeText(in(name), "somebody else's");
  std::filesystem::create_directory(in(".d.widen-1-1.part"));
  { const TemporaryFile file(in("new.txt"), false); }
  for (const std::string& name : left) EXPECT_FALSE(std::filesystem::exists(in(name))) << name;
  for (const std::string& name : others) EXPECT_TRUE(std::filesystem::exists(in(name))) << name;
  EXPECT_EQ(names().size(), others.size() + 1) << "and the folder";
}

TEST_F(TemporaryFiles, LeaveWhatAnotherProgramWorksOn) {
  const std::string name = ".a.txt.widen-123-0.part";
  const int theirs = open(in(name).c_str(), O_RDWR | O_CREAT, 0600);
  ASSERT_EQ(flock(theirs, LOCK_EX), 0);
  { const TemporaryFile file(in("new.txt"), false); }
  EXPECT_THAT(names(), ElementsAre(name));
  close(theirs);
}

// Programs in containers have the same numbers.
TEST_F(TemporaryFiles, TakeAnotherNameWhereTheirsIsThere) {
  const auto nameOfTheFile = [this] {
    for (const std::string& name : names())
      if (name.ends_with(".part")) return name;
    return std::string();
  };
  std::string first;
  {
    const TemporaryFile file(in("a.txt"), false);
    first = nameOfTheFile();
  }
  const auto dash = first.rfind('-');
  const int number = std::stoi(first.substr(dash + 1));
  const auto numbered = [&](int n) {
    return first.substr(0, dash + 1) + std::to_string(n) + ".part";
  };
  writeText(in(numbered(number + 1)), "somebody else's");
  TemporaryFile file(in("a.txt"), false);
  fill(file);
  file.keep();
  EXPECT_THAT(names(), ElementsAre(numbered(number + 1), "a.txt"));
  EXPECT_EQ(textOf(in("a.txt")), "new");
}
