// The file that several processes replace as a whole: what is read, what is left, and who waits.
#include "platform/linux/sharedfile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

#include "tests/support/ownprocess.h"
#include "tests/support/temporaryfolder.h"

namespace {

using sharedfile::Reading;

constexpr std::chrono::milliseconds kLong = std::chrono::seconds(5);  // to wait for a lock

class SharedFile : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string file = folder / "settings";
  std::string out = "untouched";
};

TEST_F(SharedFile, IsReadUpToItsLimit) {
  const std::string content(40000, 'x');  // more than one part
  writeFile(file, content);
  EXPECT_EQ(sharedfile::read(file, content.size() - 1, out), Reading::tooLarge);
  EXPECT_EQ(out, "untouched");
  EXPECT_EQ(sharedfile::read(file, content.size(), out), Reading::done);
  EXPECT_EQ(out, content);
}

TEST_F(SharedFile, IsAbsentOrUnreadable) {
  EXPECT_EQ(sharedfile::read(file, 100, out), Reading::absent);
  EXPECT_EQ(sharedfile::read(folder.path, 100, out), Reading::unreadable) << "a folder";
  EXPECT_EQ(out, "untouched");
}

TEST_F(SharedFile, NeverWaitsForAPipe) {
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_EQ(sharedfile::read(file, 100, out), Reading::done);
  EXPECT_EQ(out, "");
}

TEST_F(SharedFile, IsReplacedAsAWholeAndForItsUserAlone) {
  writeFile(file, "a long old content");
  EXPECT_TRUE(sharedfile::replace(file, "new"));
  EXPECT_EQ(contentOf(file), "new");
  EXPECT_FALSE(std::filesystem::exists(file + ".new"));
  struct stat status {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  const mode_t forOthers = status.st_mode & (S_IRWXG | S_IRWXO);
  EXPECT_EQ(forOthers, 0U);
  writeFile(file + ".new", "what a killed writer has left, longer than what comes");
  EXPECT_TRUE(sharedfile::replace(file, "newer"));
  EXPECT_EQ(contentOf(file), "newer");
}

TEST_F(SharedFile, StaysWhereNothingCanTakeItsPlace) {
  writeFile(file, "old");
  writeFile(folder / "somebody's", "not ours");
  ASSERT_EQ(symlink((folder / "somebody's").c_str(), (file + ".new").c_str()), 0);
  EXPECT_FALSE(sharedfile::replace(file, "new"));
  EXPECT_EQ(contentOf(file), "old");
  EXPECT_EQ(contentOf(folder / "somebody's"), "not ours");
  EXPECT_FALSE(sharedfile::replace(folder / "no such folder/settings", "new"));
}

TEST_F(SharedFile, IsKeptAsideUnderNineNames) {
  for (int damage = 1; damage <= 10; ++damage) {
    writeFile(file, "damage " + std::to_string(damage));
    EXPECT_TRUE(sharedfile::keepAside(file)) << damage;
    EXPECT_FALSE(std::filesystem::exists(file));
  }
  EXPECT_EQ(contentOf(file + ".damaged"), "damage 1");
  EXPECT_EQ(contentOf(file + ".damaged-2"), "damage 2");
  EXPECT_EQ(contentOf(file + ".damaged-9"), "damage 10") << "the last one is given up";
  EXPECT_FALSE(std::filesystem::exists(file + ".damaged-10"));
  EXPECT_FALSE(sharedfile::keepAside(file)) << "there is none";
}

TEST_F(SharedFile, HasOneWriterAtATime) {
  auto first = std::make_optional<sharedfile::Lock>(file + ".lock", kLong);
  ASSERT_TRUE(first->isHeld());
  std::atomic<bool> entered{false};
  std::thread other([&] {
    const sharedfile::Lock second(file + ".lock", kLong);
    EXPECT_TRUE(second.isHeld());
    entered = true;
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_FALSE(entered);
  first.reset();
  other.join();
  EXPECT_TRUE(entered);
}

// A child of the host's holds the descriptor, and does not hold the lock with it.
TEST_F(SharedFile, IsFreeThoughAForkedChildLives) {
  auto lock = std::make_optional<sharedfile::Lock>(file + ".lock", kLong);
  const pid_t child = inProcess([] { usleep(300000); });
  lock.reset();
  const auto before = std::chrono::steady_clock::now();
  EXPECT_TRUE(sharedfile::Lock(file + ".lock", kLong).isHeld());
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(250));
  EXPECT_TRUE(succeeded(child));
}

TEST_F(SharedFile, HasNoLockWithoutAFolder) {
  EXPECT_FALSE(sharedfile::Lock(folder / "no such folder/lock", kLong).isHeld());
}

}  // namespace
