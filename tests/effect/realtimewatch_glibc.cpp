// Stands in front of the C library's malloc and mutexes, with tests that it really does.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <cstdlib>
#include <mutex>

#include "tests/effect/realtimewatch.h"

// Seen by the shared libraries too, so it may not be hidden.
#define TRELVAN_IN_FRONT extern "C" __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}

TRELVAN_IN_FRONT void* malloc(std::size_t size) noexcept {
  RealtimeWatch::noteAllocation();
  return __libc_malloc(size);
}

TRELVAN_IN_FRONT void* calloc(std::size_t count, std::size_t size) noexcept {
  RealtimeWatch::noteAllocation();
  return __libc_calloc(count, size);
}

TRELVAN_IN_FRONT void* realloc(void* memory, std::size_t size) noexcept {
  RealtimeWatch::noteAllocation();
  return __libc_realloc(memory, size);
}

TRELVAN_IN_FRONT int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
  using Lock = int (*)(pthread_mutex_t*);
  static std::atomic<Lock> real = nullptr;  // the same value whoever comes first
  if (real == nullptr) real = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
  RealtimeWatch::noteLock();
  return real.load()(mutex);
}

TEST(RealtimeWatch, SeesMallocCallocAndRealloc) {
  RealtimeWatch watch;
  void* volatile memory = std::malloc(8);
  memory = std::realloc(memory, 16);
  std::free(memory);
  memory = std::calloc(2, 8);
  std::free(memory);
  EXPECT_EQ(watch.allocations(), 3U);
}

TEST(RealtimeWatch, SeesALock) {
  static std::mutex mutex;
  RealtimeWatch watch;
  mutex.lock();
  mutex.unlock();
  EXPECT_EQ(watch.locks(), 1U);
}
