// Stands in front of operator new and delete, so that who called them is seen and not the library
// that they are in.
#include <cstddef>
#include <cstdlib>
#include <new>

#include "host/validate/means/memorywatch.h"

// Seen by the shared libraries too, so it may not be hidden.
#define WIDEN_IN_FRONT __attribute__((visibility("default")))

// The C library names them so.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

constexpr std::size_t kAnyAlignment = 0;

// Null where there is none. A size of 0 gets an address of its own, which malloc gives too.
void* ask(const void* caller, std::size_t size, std::size_t alignment) noexcept {
  if (!MemoryWatch::allowsAllocation(caller)) return nullptr;
  return alignment == kAnyAlignment ? __libc_malloc(size) : __libc_memalign(alignment, size);
}

void* need(const void* caller, std::size_t size, std::size_t alignment = kAnyAlignment) {
  while (true) {
    if (void* memory = ask(caller, size, alignment)) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

void* ifThereIs(const void* caller, std::size_t size,
                std::size_t alignment = kAnyAlignment) noexcept {
  try {
    return need(caller, size, alignment);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void release(const void* caller, void* memory) noexcept {
  if (memory != nullptr) MemoryWatch::noteRelease(caller);
  __libc_free(memory);
}

std::size_t bytes(std::align_val_t alignment) noexcept {
  return static_cast<std::size_t>(alignment);
}

}  // namespace

#define CALLER __builtin_return_address(0)

WIDEN_IN_FRONT void* operator new(std::size_t size) {
  return need(CALLER, size);
}
WIDEN_IN_FRONT void* operator new[](std::size_t size) {
  return need(CALLER, size);
}
WIDEN_IN_FRONT void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return ifThereIs(CALLER, size);
}
WIDEN_IN_FRONT void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return ifThereIs(CALLER, size);
}
WIDEN_IN_FRONT void* operator new(std::size_t size, std::align_val_t alignment) {
  return need(CALLER, size, bytes(alignment));
}
WIDEN_IN_FRONT void* operator new[](std::size_t size, std::align_val_t alignment) {
  return need(CALLER, size, bytes(alignment));
}
WIDEN_IN_FRONT void* operator new(std::size_t size, std::align_val_t alignment,
                                  const std::nothrow_t&) noexcept {
  return ifThereIs(CALLER, size, bytes(alignment));
}
WIDEN_IN_FRONT void* operator new[](std::size_t size, std::align_val_t alignment,
                                    const std::nothrow_t&) noexcept {
  return ifThereIs(CALLER, size, bytes(alignment));
}

WIDEN_IN_FRONT void operator delete(void* memory) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete[](void* memory) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete(void* memory, std::size_t) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete[](void* memory, std::size_t) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete(void* memory, const std::nothrow_t&) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete(void* memory, std::align_val_t) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete[](void* memory, std::align_val_t) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  release(CALLER, memory);
}
WIDEN_IN_FRONT void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
  release(CALLER, memory);
}
