// Tests of what an instance stores while another process keeps the preferences locked.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tests/presetsystem/filesfixture.h"
#include "tests/support/ownprocess.h"
#include "tests/support/preferencestoretest.h"

namespace {

using imagebytes::Bytes;
using imagebytes::Preset;

const Preset kPad = {"soft pad", {0.3F, 0.25F, 0.5F, 1.0F, 0.0F}};

// Another process that has stopped with the lock in its hands.
class LockedStore : public Files {
 protected:
  LockedStore() {
    instance->effect.setPresetNo(0);
    preset(0) = recordOf(kPad);
    PreferenceStore preferences("com.orv.trelvan");  // makes folder and lock
    preferences.setBytes("Other", "1", 1);
    EXPECT_TRUE(preferences.synchronise());
    take();
  }
  ~LockedStore() override { release(); }
  LockedStore(const LockedStore&) = delete;
  LockedStore& operator=(const LockedStore&) = delete;

  static Bytes stored(const char* key) {
    Bytes value;
    PreferenceStore("com.orv.trelvan").getBytes(key, value);
    return value;
  }
  // Idle passes, until the memory is stored or the time is over. Returns how long.
  std::chrono::steady_clock::duration idle(const char* key, std::chrono::milliseconds longest) {
    const auto begin = std::chrono::steady_clock::now();
    while (stored(key).empty() && std::chrono::steady_clock::now() - begin < longest) {
      editor().tryToStoreAgain();
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return std::chrono::steady_clock::now() - begin;
  }
  void take() {
    lock = open((prefsFile() + ".lock").c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(flock(lock, LOCK_EX), 0);
  }
  void release() {
    if (lock >= 0) close(lock);
    lock = -1;
  }

  int lock = -1;
};

// Forty clicks that waited would take two seconds and more.
TEST_F(LockedStore, IsWaitedForOnceAndNotAtEveryClick) {
  const auto begin = std::chrono::steady_clock::now();
  for (int click = 0; click < 40; ++click) editor().storeA();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1500));
  EXPECT_EQ(stored("MemoAPreset"), Bytes());
}

TEST_F(LockedStore, LosesNothingAndIsWrittenAtTheNextClick) {
  editor().storeA();
  editor().saveDefaultPreset();
  instance->effect.setPresetNo(7);
  editor().recallA();
  EXPECT_TRUE(sameRecord(preset(7), recordOf(kPad))) << "this instance knows it";
  release();
  editor().storeB();
  for (const char* key : {"MemoAPreset", "MemoBPreset", "DefaultPreset"})
    EXPECT_EQ(stored(key), imagebytes::presetImage(kPad)) << key;
  EXPECT_EQ(stored("Other"), Bytes{'1'});
}

TEST_F(LockedStore, IsWrittenFromAnIdlePassWithinASecondOrSo) {
  editor().storeA();
  editor().tryToStoreAgain();
  release();
  const auto begin = std::chrono::steady_clock::now();
  while (stored("MemoAPreset").empty() &&
         std::chrono::steady_clock::now() - begin < std::chrono::seconds(20)) {
    editor().tryToStoreAgain();
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(kPad));
}

// After one second and three, and not four times; when it could be written, after one second again.
TEST_F(LockedStore, IsTriedEverMoreSeldom) {
  using std::chrono::milliseconds;
  editor().storeA();
  FolderWatch watch(std::filesystem::path(prefsFile()).parent_path(), IN_OPEN);
  idle("MemoAPreset", milliseconds(4500));
  const int tries = watch.count(std::filesystem::path(prefsFile()).filename().string() + ".lock");
  EXPECT_GE(tries, 1);
  EXPECT_LE(tries, 2);
  release();
  editor().saveDefaultPreset();  // whatever is stored takes the rest along
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(kPad));
  take();
  editor().storeB();
  release();
  EXPECT_LT(idle("MemoBPreset", milliseconds(20000)), milliseconds(3500));
}

// Another writer's turn may take longer than a click may wait.
TEST_F(LockedStore, IsWaitedForALittleLongerAtTheInstancesEnd) {
  editor().storeA();
  const pid_t other = inProcess([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    flock(lock, LOCK_UN);
  });
  instance.reset();
  EXPECT_TRUE(succeeded(other));
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(kPad));
}

// Ten ends that waited a second each would take ten.
TEST_F(LockedStore, HoldsTheEndOfOneInstanceInAProcessAndNotOfEach) {
  const auto begin = std::chrono::steady_clock::now();
  for (int end = 0; end < 10; ++end) {
    if (end > 0) instance = std::make_unique<FilesInstance>();
    editor().storeA();
    instance.reset();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(5000));
  EXPECT_EQ(stored("MemoAPreset"), Bytes());
}

TEST_F(LockedStore, IsWrittenWhenTheInstanceEnds) {
  editor().storeA();
  std::strcpy(editor().currentDirectory, "/a/");
  editor().storePathsAndFilenames();
  release();
  instance.reset();
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(kPad));
  char folder[8] = "";
  EXPECT_TRUE(PreferenceStore("com.orv.trelvan").getString("CurrDir", folder, sizeof folder));
  EXPECT_STREQ(folder, "/a/");
}

TEST_F(LockedStore, IsWrittenWhenTheInstanceEndsThoughNothingElseIsNew) {
  editor().storeA();
  release();
  instance.reset();
  EXPECT_EQ(stored("MemoAPreset"), imagebytes::presetImage(kPad));
}

TEST_F(LockedStore, KeepsNoInstanceFromEnding) {
  editor().storeA();
  const auto begin = std::chrono::steady_clock::now();
  instance.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1500));
  EXPECT_EQ(stored("MemoAPreset"), Bytes());
}

}  // namespace
