// Operator new and delete in front of malloc and free, with a count of the allocations that may
// still succeed.
#include "tests/support/failingmemory.h"

#include <cstdlib>
#include <new>

namespace {

long allocationsLeft = -1;  // until one fails; below 0: none does
bool allFail = false;       // after the first one
bool failed = false;

bool mayAllocate() {
  if (allocationsLeft == 0) {
    failed = true;
    if (!allFail) allocationsLeft = -1;
    return false;
  }
  if (allocationsLeft > 0) --allocationsLeft;
  return true;
}

void* allocated(std::size_t size) {
  return mayAllocate() ? std::malloc(size != 0 ? size : 1) : nullptr;
}

void* allocatedOrThrown(std::size_t size) {
  void* memory = allocated(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* alignedOrThrown(std::size_t size, std::size_t alignment) {
  const std::size_t rounded = (size + alignment - 1) / alignment * alignment;
  void* memory = mayAllocate() ? std::aligned_alloc(alignment, rounded) : nullptr;
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

FailingMemory::FailingMemory(long succeeding, Fails fails) {
  failed = false;
  allFail = fails == Fails::allFromThere;
  allocationsLeft = succeeding;
}

FailingMemory::~FailingMemory() {
  allocationsLeft = -1;
}

bool FailingMemory::hasFailed() const {
  return failed;
}

void* operator new(std::size_t size) {
  return allocatedOrThrown(size);
}
void* operator new[](std::size_t size) {
  return allocatedOrThrown(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocated(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return allocated(size);
}
// std::free takes these back, so the sizes are rounded up to what aligned_alloc wants.
void* operator new(std::size_t size, std::align_val_t alignment) {
  return alignedOrThrown(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return alignedOrThrown(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
