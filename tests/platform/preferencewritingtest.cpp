// Tests of how the preferences are written: for how long a lock is waited for, what waits
// meanwhile, and where links lead.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>

#include <chrono>

#include "tests/support/preferencestoretest.h"

namespace {

TEST_F(Preferences, WaitNoLongerForALockThanTheyAreTold) {
  using std::chrono::milliseconds;
  store("Key", "value");
  const int lock = open((file() + ".lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(lock, LOCK_EX), 0);
  PreferenceStore preferences(kId);
  preferences.setBytes("Key", "new", 3);
  for (const milliseconds longest : {milliseconds(0), PreferenceStore::kLongestWait}) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(preferences.synchronise(longest));
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(waited, longest);
    EXPECT_LT(waited, longest + milliseconds(1000)) << "and a busy machine's pauses";
    EXPECT_TRUE(preferences.hasChanges());
  }
  close(lock);
  EXPECT_TRUE(preferences.synchronise());
  EXPECT_FALSE(preferences.hasChanges());
  EXPECT_EQ(stored("Key"), "new");
}

// Another writer, for as long as the object lives.
class Locked {
 public:
  explicit Locked(const std::string& file)
      : lock(open((file + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    EXPECT_EQ(flock(lock, LOCK_EX), 0);
  }
  ~Locked() { close(lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  int lock;
};

TEST_F(Preferences, ThatWaitedPutNothingOverWhatIsNewer) {
  store("Changed", "before");
  PreferenceStore waiting(kId);
  waiting.setBytes("Changed", "old", 3);
  waiting.setBytes("Made", "old", 3);
  waiting.setBytes("Untouched", "mine", 4);
  {
    const Locked locked(file());
    EXPECT_FALSE(waiting.synchronise());
  }
  store("Changed", "newer");
  store("Made", "newer");
  EXPECT_TRUE(waiting.synchronise());
  EXPECT_FALSE(waiting.hasChanges());
  EXPECT_EQ(stored("Changed"), "newer");
  EXPECT_EQ(stored("Made"), "newer");
  EXPECT_EQ(stored("Untouched"), "mine");
  std::vector<unsigned char> value;
  EXPECT_TRUE(waiting.getBytes("Changed", value));
  EXPECT_EQ(std::string(value.begin(), value.end()), "newer") << "its own questions";
}

TEST_F(Preferences, ThatWaitedRemoveNothingThatIsNewer) {
  store("Changed", "before");
  store("Untouched", "before");
  PreferenceStore waiting(kId);
  for (const char* key : {"Changed", "Made", "Untouched"}) waiting.remove(key);
  {
    const Locked locked(file());
    EXPECT_FALSE(waiting.synchronise());
  }
  store("Changed", "newer");
  store("Made", "newer");
  EXPECT_TRUE(waiting.synchronise());
  EXPECT_EQ(stored("Changed"), "newer");
  EXPECT_EQ(stored("Made"), "newer");
  EXPECT_EQ(stored("Untouched"), "missing");
}

TEST_F(Preferences, AreAsNewAsTheirLastChange) {
  store("Key", "before");
  PreferenceStore waiting(kId);
  waiting.setBytes("Key", "old", 3);
  {
    const Locked locked(file());
    EXPECT_FALSE(waiting.synchronise());
  }
  store("Key", "newer");
  waiting.setBytes("Key", "newest", 6);
  EXPECT_TRUE(waiting.synchronise());
  EXPECT_EQ(stored("Key"), "newest");
}

TEST_F(Preferences, ReadAgainWhenTheyAreTold) {
  store("Key", "old");
  PreferenceStore preferences(kId);
  preferences.setBytes("Own", "mine", 4);
  std::vector<unsigned char> value;
  ASSERT_TRUE(preferences.getBytes("Key", value));
  store("Key", "new");
  ASSERT_TRUE(preferences.getBytes("Key", value));
  EXPECT_EQ(std::string(value.begin(), value.end()), "old");
  preferences.readAgain();
  ASSERT_TRUE(preferences.getBytes("Key", value));
  EXPECT_EQ(std::string(value.begin(), value.end()), "new");
  EXPECT_TRUE(preferences.getBytes("Own", value)) << "changes stay";
}

TEST_F(Preferences, FollowALinkInPlaceOfTheFile) {
  namespace fs = std::filesystem;
  fs::create_directory(temporary / "elsewhere");
  const std::string real = temporary / "elsewhere/real.conf";
  fs::create_symlink("../elsewhere/real.conf", file());
  store("Key", "value");  // it leads to nothing yet
  EXPECT_TRUE(fs::is_symlink(file()));
  EXPECT_FALSE(fs::is_symlink(real));
  EXPECT_THAT(contentOf(real), testing::HasSubstr("Key=bytes:"));
  store("Key", "other");
  EXPECT_TRUE(fs::is_symlink(file()));
  EXPECT_EQ(stored("Key"), "other");

  writeFile(real, "no key file");
  store("Key", "again");
  EXPECT_TRUE(fs::is_symlink(file()));
  EXPECT_EQ(contentOf(real + ".damaged"), "no key file");
  EXPECT_EQ(stored("Key"), "again");
}

TEST_F(Preferences, AreNotWrittenThroughLinksInACircle) {
  std::filesystem::create_symlink("product.conf", file());
  PreferenceStore preferences(kId);
  preferences.setBytes("Key", "value", 5);
  EXPECT_FALSE(preferences.synchronise());
  EXPECT_TRUE(std::filesystem::is_symlink(file()));
}

}  // namespace
