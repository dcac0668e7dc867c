// Stands in front of the C library's memory functions and locks, for this program and every binary
// that it loads. Part of the executable, since a library's would come after the C library's.
#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <bit>
#include <cerrno>
#include <cstdlib>

#include "host/validate/means/memorywatch.h"

// Seen by the shared libraries too, so it may not be hidden.
#define WIDEN_IN_FRONT extern "C" __attribute__((visibility("default")))

// The C library names them so.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

void* refused() noexcept {
  errno = ENOMEM;
  return nullptr;
}

// The C library's own. `found` keeps it: the same value whoever comes first.
template <typename Lock>
int lockFor(const void* caller, const char* name, std::atomic<int (*)(Lock*)>& found,
            Lock* lock) noexcept {
  if (found == nullptr) found = reinterpret_cast<int (*)(Lock*)>(dlsym(RTLD_NEXT, name));
  MemoryWatch::noteLock(caller);
  return found.load()(lock);
}

}  // namespace

WIDEN_IN_FRONT void* malloc(std::size_t size) noexcept {
  if (!MemoryWatch::allowsAllocation(__builtin_return_address(0))) return refused();
  return __libc_malloc(size);
}

WIDEN_IN_FRONT void* calloc(std::size_t count, std::size_t size) noexcept {
  if (!MemoryWatch::allowsAllocation(__builtin_return_address(0))) return refused();
  return __libc_calloc(count, size);
}

WIDEN_IN_FRONT void* realloc(void* memory, std::size_t size) noexcept {
  if (!MemoryWatch::allowsAllocation(__builtin_return_address(0))) return refused();
  return __libc_realloc(memory, size);
}

WIDEN_IN_FRONT void* memalign(std::size_t alignment, std::size_t size) noexcept {
  if (!MemoryWatch::allowsAllocation(__builtin_return_address(0))) return refused();
  return __libc_memalign(alignment, size);
}

WIDEN_IN_FRONT void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  if (!MemoryWatch::allowsAllocation(__builtin_return_address(0))) return refused();
  return __libc_memalign(alignment, size);
}

WIDEN_IN_FRONT int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept {
  if (alignment % sizeof(void*) != 0 || !std::has_single_bit(alignment)) return EINVAL;
  if (!MemoryWatch::allowsAllocation(__builtin_return_address(0))) return ENOMEM;
  void* const got = __libc_memalign(alignment, size);
  if (got == nullptr) return ENOMEM;
  *memory = got;
  return 0;
}

WIDEN_IN_FRONT void free(void* memory) noexcept {
  if (memory != nullptr) MemoryWatch::noteRelease(__builtin_return_address(0));
  __libc_free(memory);
}

WIDEN_IN_FRONT int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
  static constinit std::atomic<int (*)(pthread_mutex_t*)> real = nullptr;
  return lockFor(__builtin_return_address(0), "pthread_mutex_lock", real, mutex);
}

WIDEN_IN_FRONT int pthread_rwlock_rdlock(pthread_rwlock_t* lock) noexcept {
  static constinit std::atomic<int (*)(pthread_rwlock_t*)> real = nullptr;
  return lockFor(__builtin_return_address(0), "pthread_rwlock_rdlock", real, lock);
}

WIDEN_IN_FRONT int pthread_rwlock_wrlock(pthread_rwlock_t* lock) noexcept {
  static constinit std::atomic<int (*)(pthread_rwlock_t*)> real = nullptr;
  return lockFor(__builtin_return_address(0), "pthread_rwlock_wrlock", real, lock);
}
