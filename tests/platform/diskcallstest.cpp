// What is on disk when: before a name is taken, the whole of what it will name.
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/linux/sharedfile.h"
#include "platform/savedfile.h"
#include "tests/support/diskcalls.h"
#include "tests/support/preferencestoretest.h"

namespace {

const std::string kNew(10537, 'n');

class DiskCalls : public testing::Test {
 protected:
  DiskCalls() {
    writeFile(file, "old");
    onSync = [this](const std::string& path) {
      synced.push_back(path);
      if (path == folder.path) {
        EXPECT_EQ(contentOf(file), kNew) << "the folder is put on disk when it has the new name";
        return true;
      }
      EXPECT_EQ(contentOf(path), kNew) << "all of it, while the old one still stands";
      EXPECT_EQ(contentOf(file), "old");
      return works;
    };
  }
  ~DiskCalls() override {
    onSync = nullptr;
    syncError = EIO;
  }
  DiskCalls(const DiskCalls&) = delete;
  DiskCalls& operator=(const DiskCalls&) = delete;

  bool save() const {
    return saveFile("a", (folder.path + "/").c_str(),
                    reinterpret_cast<const unsigned char*>(kNew.data()), kNew.size());
  }

  TemporaryFolder folder;
  const std::string file = folder / "a";
  std::vector<std::string> synced;
  bool works = true;
};

TEST_F(DiskCalls, PutASavedFileOnDiskBeforeItTakesItsName) {
  EXPECT_TRUE(save());
  ASSERT_EQ(synced.size(), 2U);
  EXPECT_NE(synced[0], file);
  EXPECT_EQ(synced[1], folder.path);
}

TEST_F(DiskCalls, LeaveTheOldFileWhereTheNewOneIsNotOnDisk) {
  works = false;
  EXPECT_FALSE(save());
  EXPECT_FALSE(sharedfile::replace(file, kNew));
  EXPECT_EQ(contentOf(file), "old");
}

// As some network and user-space file systems are.
TEST_F(DiskCalls, MayBeUnknownToAFileSystem) {
  works = false;
  for (const int error : {EINVAL, ENOTSUP, ENOSYS}) {
    syncError = error;
    writeFile(file, "old");
    EXPECT_TRUE(save()) << error;
    EXPECT_EQ(contentOf(file), kNew);
    writeFile(file, "old");
    EXPECT_TRUE(sharedfile::replace(file, kNew)) << error;
    EXPECT_EQ(contentOf(file), kNew);
  }
}

TEST_F(DiskCalls, PutPreferencesOnDiskBeforeTheyTakeTheirName) {
  EXPECT_TRUE(sharedfile::replace(file, kNew));
  ASSERT_EQ(synced.size(), 2U);
  EXPECT_NE(synced[0], file);
  EXPECT_EQ(synced[1], folder.path);
}

// Network and user-space file systems.
class NoLocks : public Preferences {
 protected:
  ~NoLocks() override {
    flockError = 0;
    onSync = nullptr;
  }
};

TEST_F(NoLocks, PreferencesAreStoredAllTheSame) {
  for (const int error : {ENOLCK, ENOTSUP, ENOSYS}) {
    flockError = error;
    store("Key", std::to_string(error));
    EXPECT_EQ(stored("Key"), std::to_string(error));
  }
}

TEST_F(NoLocks, EachWriterHasAFileOfItsOwn) {
  std::vector<std::string> written;
  onSync = [&](const std::string& path) {
    if (path != folder()) written.push_back(path);
    return true;
  };
  flockError = ENOLCK;
  store("Key", "one");
  store("Key", "two");
  ASSERT_EQ(written.size(), 2U);
  EXPECT_NE(written[0], written[1]);
  EXPECT_FALSE(std::filesystem::exists(written[0]));
}

}  // namespace
