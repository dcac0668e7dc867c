// Tells the thread sanitizer of locks that are taken with a time limit: clang 14's does not see
// them, and calls their unlocking wrong.
#include <dlfcn.h>
#include <pthread.h>
#include <sanitizer/tsan_interface.h>

// In front of the C library's.
extern "C" __attribute__((visibility("default"))) int pthread_mutex_clocklock(
    pthread_mutex_t* mutex, clockid_t clock, const timespec* limit) noexcept {
  using Lock = int (*)(pthread_mutex_t*, clockid_t, const timespec*);
  static const auto real = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_clocklock"));
  constexpr unsigned kTried = __tsan_mutex_try_lock | __tsan_mutex_write_reentrant;
  __tsan_mutex_pre_lock(mutex, kTried);
  const int result = real(mutex, clock, limit);
  __tsan_mutex_post_lock(mutex, result == 0 ? kTried : kTried | __tsan_mutex_try_lock_failed, 0);
  return result;
}
