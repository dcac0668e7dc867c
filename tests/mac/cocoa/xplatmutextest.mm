// The recursive lock, on GNUstep.
#include "platform/xplatmutex.h"

#import <objc/runtime.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <thread>

#import "cocoatest.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// What a lock was given in the place of waiting.
double secondsToWait = 0;
BOOL noteDeadline(id, SEL, NSDate* deadline) {
  secondsToWait = [deadline timeIntervalSinceNow];
  return YES;
}

class XplatMutexMac : public CocoaTest {
 protected:
  void SetUp() override {
    CocoaTest::SetUp();
    locksBefore = alive("NSRecursiveLock");
    mutex = XPlatCreateMutex();
  }
  void TearDown() override {
    XPlatDeleteMutex(mutex);
    EXPECT_EQ(alive("NSRecursiveLock"), locksBefore);
    CocoaTest::TearDown();
  }

  int locksBefore = 0;
  void* mutex = nullptr;
};

TEST_F(XplatMutexMac, NeedsAsManyUnlocksAsLocks) {
  XPlatLockMutex(mutex, 0);
  XPlatLockMutex(mutex, 0);
  std::atomic<bool> got{false};
  std::thread other([&] {
    XPlatLockMutex(mutex, 0);
    got = true;
    XPlatUnlockMutex(mutex);
  });
  std::this_thread::sleep_for(milliseconds(100));
  EXPECT_FALSE(got);
  XPlatUnlockMutex(mutex);
  std::this_thread::sleep_for(milliseconds(100));
  EXPECT_FALSE(got);
  XPlatUnlockMutex(mutex);
  other.join();
  EXPECT_TRUE(got);
}

TEST_F(XplatMutexMac, GoesOnWhenTheTimeIsUp) {
  XPlatLockMutex(mutex, 0);
  const auto begin = Clock::now();
  milliseconds waited{};
  std::thread other([&] {
    XPlatLockMutex(mutex, 150);
    waited = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
  });
  other.join();
  XPlatUnlockMutex(mutex);
  EXPECT_GE(waited, milliseconds(145));
  EXPECT_LT(waited, milliseconds(5000));
}

// Long enough that no pause of this process makes a difference.
TEST_F(XplatMutexMac, TakesItsTimeInMilliseconds) {
  Method lock = class_getInstanceMethod([NSRecursiveLock class], @selector(lockBeforeDate:));
  const IMP real = method_setImplementation(lock, reinterpret_cast<IMP>(noteDeadline));
  XPlatLockMutex(mutex, 10000000);
  method_setImplementation(lock, real);
  EXPECT_LE(secondsToWait, 10000);
  EXPECT_GT(secondsToWait, 9000);
}

TEST_F(XplatMutexMac, WaitsForTheLockWithTheLongestTimeouts) {
  constexpr auto kMost = std::numeric_limits<unsigned long>::max();
  for (const unsigned long timeout : {10000000000000UL, kMost / 1000000 + 1, kMost / 2, kMost}) {
    XPlatLockMutex(mutex, 0);
    std::atomic<bool> got{false};
    std::thread other([&] {
      XPlatLockMutex(mutex, timeout);
      got = true;
      XPlatUnlockMutex(mutex);
    });
    std::this_thread::sleep_for(milliseconds(50));
    EXPECT_FALSE(got) << timeout;
    XPlatUnlockMutex(mutex);
    other.join();
  }
}

TEST_F(XplatMutexMac, IsHadAtOnceWhileItIsFree) {
  const auto begin = Clock::now();
  XPlatLockMutex(mutex, 5000);
  EXPECT_LT(Clock::now() - begin, milliseconds(2500));
  XPlatUnlockMutex(mutex);
}

TEST_F(XplatMutexMac, LeavesNoDeadlineBehindOnAThreadWithoutAPool) {
  const int before = alive("GSDateSingle") + alive("NSGDate");
  std::thread([&] {
    for (int i = 0; i < 10; ++i) {
      XPlatLockMutex(mutex, 1);
      XPlatUnlockMutex(mutex);
    }
  }).join();
  EXPECT_EQ(alive("GSDateSingle") + alive("NSGDate"), before);
}

TEST_F(XplatMutexMac, TakesNull) {
  XPlatLockMutex(nullptr, 0);
  XPlatLockMutex(nullptr, 5);
  XPlatUnlockMutex(nullptr);
  XPlatDeleteMutex(nullptr);
}

}  // namespace
