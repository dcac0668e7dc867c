// The recursive lock with its timeout.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <thread>

#include "platform/xplatmutex.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(XPlatMutex, LocksTwiceOnOneThreadAndNeedsTwoUnlocks) {
  void* mutex = XPlatCreateMutex();
  XPlatLockMutex(mutex, 0);
  XPlatLockMutex(mutex, 0);
  std::atomic<bool> entered{false};
  std::thread other([&] {
    XPlatLockMutex(mutex, 0);
    entered = true;
    XPlatUnlockMutex(mutex);
  });
  std::this_thread::sleep_for(milliseconds(30));
  EXPECT_FALSE(entered);
  XPlatUnlockMutex(mutex);
  std::this_thread::sleep_for(milliseconds(30));
  EXPECT_FALSE(entered) << "one level is still held";
  XPlatUnlockMutex(mutex);
  other.join();
  EXPECT_TRUE(entered);
  XPlatDeleteMutex(mutex);
}

TEST(XPlatMutex, GoesOnAfterTheTimeout) {
  void* mutex = XPlatCreateMutex();
  XPlatLockMutex(mutex, 0);
  const auto start = steady_clock::now();
  // goes on as if it held the lock; it has nothing to release
  std::thread other([&] { XPlatLockMutex(mutex, 50); });
  other.join();
  const auto waited = steady_clock::now() - start;
  EXPECT_GE(waited, milliseconds(50));
  EXPECT_LT(waited, milliseconds(5000)) << "it would wait for ever without its limit";
  XPlatUnlockMutex(mutex);
  XPlatDeleteMutex(mutex);
}

// More milliseconds than the nanoseconds of 64 bits hold, and the most of all.
TEST(XPlatMutex, WaitsForTheLockWithTheLongestTimeouts) {
  constexpr auto kMost = std::numeric_limits<unsigned long>::max();
  for (const unsigned long timeout : {10000000000000UL, kMost / 1000000 + 1, kMost / 2, kMost}) {
    void* mutex = XPlatCreateMutex();
    XPlatLockMutex(mutex, 0);
    std::atomic<bool> entered{false};
    std::thread other([&] {
      XPlatLockMutex(mutex, timeout);
      entered = true;
      XPlatUnlockMutex(mutex);
    });
    std::this_thread::sleep_for(milliseconds(30));
    EXPECT_FALSE(entered) << timeout;
    XPlatUnlockMutex(mutex);
    other.join();
    XPlatDeleteMutex(mutex);
  }
}

TEST(XPlatMutex, TakesAFreeLockWithinTheTimeout) {
  void* mutex = XPlatCreateMutex();
  const auto start = steady_clock::now();
  std::thread other([&] {
    XPlatLockMutex(mutex, 60000);
    XPlatLockMutex(mutex, 60000);  // its own: at once
    XPlatUnlockMutex(mutex);
    XPlatUnlockMutex(mutex);
  });
  other.join();
  EXPECT_LT(steady_clock::now() - start, milliseconds(5000));
  XPlatDeleteMutex(mutex);
}

TEST(XPlatMutex, KeepsThreadsApart) {
  void* mutex = XPlatCreateMutex();
  int counter = 0;  // plain on purpose: the lock is what protects it
  const auto count = [&] {
    for (int i = 0; i < 20000; ++i) {
      XPlatLockMutex(mutex, 0);
      ++counter;
      XPlatUnlockMutex(mutex);
    }
  };
  std::thread first(count);
  std::thread second(count);
  first.join();
  second.join();
  EXPECT_EQ(counter, 40000);
  XPlatDeleteMutex(mutex);
}

TEST(XPlatMutex, IgnoresNull) {
  XPlatLockMutex(nullptr, 0);
  XPlatLockMutex(nullptr, 10);
  XPlatUnlockMutex(nullptr);
  XPlatDeleteMutex(nullptr);
}

}  // namespace
