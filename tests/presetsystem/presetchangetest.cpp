// Which thread is applying a preset, and until when.
#include "presetsystem/store/presetchange.h"

#include <gtest/gtest.h>

namespace {

template <typename Work>
void onAnotherThread(Work&& work) {
  std::thread(work).join();
}

TEST(PresetChange, IsThatThreadsAloneAndEndsWithTheOuterOne) {
  PresetChange change;
  EXPECT_FALSE(change.isMine());
  {
    const PresetChange::Scope outer(change);
    {
      const PresetChange::Scope inner(change);
      EXPECT_TRUE(change.isMine());
    }
    EXPECT_TRUE(change.isMine());
    onAnotherThread([&] { EXPECT_FALSE(change.isMine()); });
  }
  EXPECT_FALSE(change.isMine());
}

// The other way round a thread would be left that stores nothing ever again.
TEST(PresetChange, OfAnotherThreadTakesTheMarkAndLeavesNone) {
  PresetChange change;
  const PresetChange::Scope mine(change);
  onAnotherThread([&] {
    const PresetChange::Scope theirs(change);
    EXPECT_TRUE(change.isMine());
  });
  EXPECT_FALSE(change.isMine());
  onAnotherThread([&] { EXPECT_FALSE(change.isMine()); });
}

TEST(PresetChange, LeavesTheMarkToTheLaterThread) {
  PresetChange change;
  std::thread other;
  std::atomic<int> step{0};
  {
    const PresetChange::Scope mine(change);
    other = std::thread([&] {
      const PresetChange::Scope theirs(change);
      step = 1;
      while (step != 2) std::this_thread::yield();
      EXPECT_TRUE(change.isMine());
    });
    while (step != 1) std::this_thread::yield();
  }
  step = 2;
  other.join();
}

}  // namespace
