// Where a loaded binary lies in memory.
#pragma once

struct MappedRange {
  const char* begin = nullptr;
  const char* end = nullptr;  // after its last byte

  bool contains(const void* address) const noexcept {
    const auto* byte = static_cast<const char*>(address);
    return byte >= begin && byte < end;
  }
};

// Of the binary that `address` is in; empty where there is none, or the system does not tell.
MappedRange rangeOfBinary(const void* address);
