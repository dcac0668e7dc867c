// Memory after whose end the process may not even read.
#pragma once

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <vector>

// Its last byte is the last of its pages.
class GuardedMemory {
 public:
  // size: bytes that it can hold at least.
  explicit GuardedMemory(std::size_t size) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    room = (size + page - 1) / page * page;
    length = room + page;
    base = static_cast<unsigned char*>(
        mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    EXPECT_EQ(mprotect(base + room, page, PROT_NONE), 0);
  }
  ~GuardedMemory() { munmap(base, length); }
  GuardedMemory(const GuardedMemory&) = delete;
  GuardedMemory& operator=(const GuardedMemory&) = delete;

  // The first `count` of `values`, up against the end.
  template <typename Value>
  Value* holding(const std::vector<Value>& values, std::size_t count) {
    auto* start = reinterpret_cast<Value*>(base + room - count * sizeof(Value));
    std::copy_n(values.begin(), count, start);
    return start;
  }

 private:
  unsigned char* base;
  std::size_t room;
  std::size_t length;
};
