// The counts, and operator new and delete in front of malloc and free.
#include "tests/effect/realtimewatch.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool watching = false;
thread_local std::size_t allocated = 0;
thread_local std::size_t locked = 0;

void* counted(std::size_t size) {
  RealtimeWatch::noteAllocation();
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

RealtimeWatch::RealtimeWatch() {
  allocated = 0;
  locked = 0;
  watching = true;
}

RealtimeWatch::~RealtimeWatch() {
  watching = false;
}

std::size_t RealtimeWatch::allocations() {
  return allocated;
}
std::size_t RealtimeWatch::locks() {
  return locked;
}

void RealtimeWatch::noteAllocation() noexcept {
  if (watching) ++allocated;
}
void RealtimeWatch::noteLock() noexcept {
  if (watching) ++locked;
}

void* operator new(std::size_t size) {
  return counted(size);
}
void* operator new[](std::size_t size) {
  return counted(size);
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
