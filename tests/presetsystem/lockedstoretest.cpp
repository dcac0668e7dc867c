// Tests of what an instance stores while another process keeps the preferences locked.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "tests/presetsystem/filesfixture.h"

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
    lock = open((prefsFile() + ".lock").c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(flock(lock, LOCK_EX), 0);
  }
  ~LockedStore() override { release(); }
  LockedStore(const LockedStore&) = delete;
  LockedStore& operator=(const LockedStore&) = delete;

  static Bytes stored(const char* key) {
    Bytes value;
    PreferenceStore("com.orv.trelvan").getBytes(key, value);
    return value;
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
