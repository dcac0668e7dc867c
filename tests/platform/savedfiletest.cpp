// Files that the user saves: what stands there afterwards, with room on the disk and without.
#include "platform/savedfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/fulldisk.h"
#include "tests/support/ownprocess.h"
#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;

// More than two of a stream's buffers, so that some of it goes out when the file is closed.
const std::string kNew(10537, 'n');
const std::string kOld = "the old content";

bool saveTo(const std::string& path, const std::string& content) {
  const std::size_t slash = path.rfind('/') + 1;
  return saveFile(path.substr(slash).c_str(), path.substr(0, slash).c_str(),
                  reinterpret_cast<const unsigned char*>(content.data()), content.size());
}

struct stat statusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return status;
}

mode_t rightsOf(const std::string& path) {
  return statusOf(path).st_mode & 07777U;
}

class SavedFile : public testing::Test {
 protected:
  // Names in the folder, in order.
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder.path))
      all.push_back(entry.path().filename());
    std::sort(all.begin(), all.end());
    return all;
  }

  TemporaryFolder folder;
  const std::string file = folder / "a.orv";
};

using Names = std::vector<std::string>;

TEST_F(SavedFile, TakesTheOldOnesPlaceWithItsRights) {
  for (const mode_t rights : {0600U, 0664U, 0604U}) {
    writeFile(file, kOld);
    ASSERT_EQ(chmod(file.c_str(), rights), 0);
    EXPECT_TRUE(saveTo(file, kNew));
    EXPECT_EQ(contentOf(file), kNew);
    EXPECT_EQ(rightsOf(file), rights);
    EXPECT_EQ(names(), Names{"a.orv"});
  }
  EXPECT_TRUE(saveTo(file, "short"));
  EXPECT_EQ(contentOf(file), "short");
}

TEST_F(SavedFile, HasTheRightsOfANewFileWhereThereWasNone) {
  const mode_t before = umask(027);
  EXPECT_TRUE(saveTo(file, kNew));
  umask(before);
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(rightsOf(file), 0640U);
  EXPECT_EQ(names(), Names{"a.orv"});
}

TEST_F(SavedFile, KeepsItsOwnerWhoeverSaves) {
  if (getuid() != 0) GTEST_SKIP() << "only root saves over everybody's";
  writeFile(file, kOld);
  ASSERT_EQ(chmod(file.c_str(), 0640), 0);
  ASSERT_EQ(chown(file.c_str(), kNobody, kNobody), 0);
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(statusOf(file).st_uid, kNobody);
  EXPECT_EQ(statusOf(file).st_gid, kNobody);
  EXPECT_EQ(rightsOf(file), 0640U);
}

TEST_F(SavedFile, IsTheOldOneWhereThereIsNoRoomForTheNewOne) {
  for (const std::size_t room :
       {std::size_t{0}, std::size_t{1}, std::size_t{4096}, std::size_t{9000}, kNew.size() - 1}) {
    writeFile(file, kOld);
    {
      const FullDisk full(room);
      EXPECT_FALSE(saveTo(file, kNew)) << room;
    }
    EXPECT_EQ(contentOf(file), kOld) << room;
    EXPECT_EQ(names(), Names{"a.orv"}) << room;
  }
  const FullDisk exactly(kNew.size());
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_EQ(contentOf(file), kNew);
}

TEST_F(SavedFile, IsNotThereWhereThereWasNoneAndNoRoom) {
  const FullDisk full(9000);
  EXPECT_FALSE(saveTo(file, kNew));
  EXPECT_EQ(names(), Names{});
}

TEST_F(SavedFile, IsWrittenWhereLinksLead) {
  fs::create_directory(folder / "elsewhere");
  writeFile(folder / "elsewhere/real.orv", kOld);
  ASSERT_EQ(chmod((folder / "elsewhere/real.orv").c_str(), 0604), 0);
  fs::create_symlink("elsewhere/next.orv", file);                 // from its own folder
  fs::create_symlink("real.orv", folder / "elsewhere/next.orv");  // likewise
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_TRUE(fs::is_symlink(folder / "elsewhere/next.orv"));
  EXPECT_EQ(contentOf(folder / "elsewhere/real.orv"), kNew);
  EXPECT_EQ(rightsOf(folder / "elsewhere/real.orv"), 0604U);

  const FullDisk full(9000);
  EXPECT_FALSE(saveTo(file, std::string(10000, 'x')));
  EXPECT_EQ(contentOf(file), kNew);
}

TEST_F(SavedFile, IsMadeWhereALinkLeadsToNothing) {
  fs::create_symlink(folder / "missing.orv", file);
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_FALSE(fs::is_symlink(folder / "missing.orv"));
  EXPECT_EQ(contentOf(folder / "missing.orv"), kNew);
}

TEST_F(SavedFile, IsNotSavedThroughLinksInACircle) {
  fs::create_symlink("b.orv", file);
  fs::create_symlink("a.orv", folder / "b.orv");
  EXPECT_FALSE(saveTo(file, kNew));
  EXPECT_EQ(names(), (Names{"a.orv", "b.orv"}));
}

TEST_F(SavedFile, KeepsAllItsNames) {
  writeFile(file, kOld);
  fs::create_hard_link(file, folder / "b.orv");
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_EQ(contentOf(folder / "b.orv"), kNew);
  {
    const FullDisk full(kNew.size());
    EXPECT_FALSE(saveTo(file, kNew + "and more"));
  }
  EXPECT_EQ(contentOf(file), kNew) << "put back";
  EXPECT_EQ(contentOf(folder / "b.orv"), kNew);
  EXPECT_EQ(names(), (Names{"a.orv", "b.orv"}));
}

// More than is kept in memory to be put back.
TEST_F(SavedFile, OfSeveralNamesIsLeftAloneWhereItIsTooLongToPutBack) {
  writeFile(file, kOld);
  fs::create_hard_link(file, folder / "b.orv");
  fs::resize_file(file, (1U << 24) + 1U);
  EXPECT_FALSE(saveTo(file, kNew));
  EXPECT_EQ(fs::file_size(file), (1U << 24) + 1U);
  fs::resize_file(file, 1U << 24);
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_EQ(contentOf(folder / "b.orv"), kNew);
}

TEST_F(SavedFile, GoesThroughAPipeThatStaysOne) {
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  const int reader = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  EXPECT_TRUE(saveTo(file, kNew));
  std::string got(kNew.size() + 1, '\0');
  got.resize(static_cast<std::size_t>(std::max<ssize_t>(0, read(reader, got.data(), got.size()))));
  close(reader);
  EXPECT_EQ(got, kNew);
  EXPECT_TRUE(S_ISFIFO(statusOf(file).st_mode));
  EXPECT_EQ(names(), Names{"a.orv"});
}

TEST_F(SavedFile, LeavesDevicesAsTheyAre) {
  EXPECT_TRUE(saveTo("/dev/null", kNew));
  EXPECT_TRUE(S_ISCHR(statusOf("/dev/null").st_mode));
  fs::create_symlink("/dev/null", file);
  EXPECT_TRUE(saveTo(file, kNew));
  EXPECT_TRUE(fs::is_symlink(file));
  if (!fs::exists("/dev/full")) return;
  EXPECT_FALSE(saveTo("/dev/full", kNew));
  EXPECT_TRUE(S_ISCHR(statusOf("/dev/full").st_mode));
}

// What a process has open is written there, and its name stays that file's.
TEST_F(SavedFile, GoesToTheStandardOutput) {
  writeFile(file, kOld);
  const ino_t before = statusOf(file).st_ino;
  EXPECT_TRUE(succeeded(inProcess([&] {
    const int output = open(file.c_str(), O_WRONLY);
    dup2(output, STDOUT_FILENO);
    EXPECT_TRUE(saveTo("/dev/stdout", kNew));
  })));
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(statusOf(file).st_ino, before);
}

TEST_F(SavedFile, IsWrittenWhereTheFolderMayNotBe) {
  writeFile(file, kOld);
  chmod(file.c_str(), 0666);
  chmod(folder.path.c_str(), 0555);
  asNobody([&] {
    {
      const FullDisk full(9000);
      EXPECT_FALSE(saveTo(file, kNew));
    }
    EXPECT_EQ(contentOf(file), kOld) << "put back";
    EXPECT_TRUE(saveTo(file, kNew));
    EXPECT_FALSE(saveTo(folder / "b.orv", kNew)) << "a new one";
  });
  chmod(folder.path.c_str(), 0755);
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(names(), Names{"a.orv"});
}

// Everybody may write it, in a folder where nobody may replace what is another's.
TEST_F(SavedFile, StaysItsOwnersWhereAnotherSaves) {
  writeFile(file, kOld);
  chmod(file.c_str(), 0666);
  chmod(folder.path.c_str(), 01777);
  const struct stat before = statusOf(file);
  asNobody([&] { EXPECT_TRUE(saveTo(file, kNew)); });
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(statusOf(file).st_uid, before.st_uid);
  EXPECT_EQ(names(), Names{"a.orv"});
}

TEST_F(SavedFile, LeavesAFileAloneThatMayOnlyBeRead) {
  writeFile(file, kOld);
  chmod(file.c_str(), 0444);
  const bool own = getuid() != 0 || chown(file.c_str(), kNobody, kNobody) == 0;
  ASSERT_TRUE(own);
  chmod(folder.path.c_str(), 0777);
  asNobody([&] { EXPECT_FALSE(saveTo(file, kNew)); });
  EXPECT_EQ(contentOf(file), kOld);
  EXPECT_EQ(names(), Names{"a.orv"});
}

TEST_F(SavedFile, MayHaveTheLongestName) {
  const std::string longest(255, 'x');
  writeFile(folder / longest, kOld);
  EXPECT_TRUE(saveTo(folder / longest, kNew));
  EXPECT_EQ(contentOf(folder / longest), kNew);
  EXPECT_FALSE(saveTo(folder / (longest + "x"), kNew));
  EXPECT_FALSE(saveTo(folder / "no such folder/a.orv", kNew));
  EXPECT_FALSE(saveTo(folder.path, kNew)) << "a folder";
  EXPECT_EQ(names(), Names{longest});
}

}  // namespace
