// The recursive lock on the standard library's recursive timed mutex.
#include "platform/xplatmutex.h"

#include <algorithm>
#include <chrono>
#include <mutex>

namespace {

// ms, a hundred years: the clocks count in nanoseconds, of which 64 bits hold three times as many
constexpr unsigned long kLongestWait = 100UL * 365 * 24 * 3600 * 1000;

std::recursive_timed_mutex* lockOf(void* mutex) {
  return static_cast<std::recursive_timed_mutex*>(mutex);
}

}  // namespace

void* XPlatCreateMutex() {
  return new std::recursive_timed_mutex;
}

void XPlatLockMutex(void* mutex, unsigned long timeoutMs) {
  if (mutex == nullptr) return;
  if (timeoutMs == 0) {
    lockOf(mutex)->lock();
  } else {
    // The outcome is dropped on purpose: callers go on either way.
    (void)lockOf(mutex)->try_lock_for(std::chrono::milliseconds(std::min(timeoutMs, kLongestWait)));
  }
}

void XPlatUnlockMutex(void* mutex) {
  if (mutex != nullptr) lockOf(mutex)->unlock();
}

void XPlatDeleteMutex(void* mutex) {
  delete lockOf(mutex);
}
