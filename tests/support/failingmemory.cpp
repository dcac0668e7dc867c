// Operator new and delete in front of malloc and free, with a count of the allocations that may still succeed.
#include "tests/support/failingmemory.h"

#include <cstdlib>
#include <new>

namespace {

long allocationsLeft = -1;  // until one fails; below 0: none does
bool allFail = false;       // after the first one
bool failed = false;

void* allocated(std::size_t size) {
  if (allocationsLeft == 0) {
    failed = true;
    if (!allFail) allocationsLeft = -1;
    return nullptr;
  }
  if (allocationsLeft > 0) --allocationsLeft;
  return std::malloc(size != 0 ? size : 1);
}

void* allocatedOrThrown(std::size_t size) {
  void* memory = allocated(size);
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
