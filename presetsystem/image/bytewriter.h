// Writes words and bytes, in this machine's byte order, into a piece of memory.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

// Never writes past the end: what finds no room is left out whole, and so is everything after it.
class ByteWriter {
 public:
  explicit ByteWriter(std::span<unsigned char> memory) : rest(memory), capacity(memory.size()) {}

  void bytes(const void* from, std::size_t count) {
    if (unsigned char* to = take(count)) std::memcpy(to, from, count);
  }
  void zeros(std::size_t count) {
    if (unsigned char* to = take(count)) std::memset(to, 0, count);
  }
  void uint8(std::uint8_t value) { bytes(&value, sizeof value); }
  void int32(std::int32_t value) { bytes(&value, sizeof value); }
  void float32(float value) { int32(std::bit_cast<std::int32_t>(value)); }

  std::size_t size() const { return capacity - rest.size(); }  // bytes written

 private:
  // The place of the next `count` bytes; null where there is none, or nothing to write.
  unsigned char* take(std::size_t count) {
    if (count > rest.size()) full = true;
    if (full || count == 0) return nullptr;
    unsigned char* place = rest.data();
    rest = rest.subspan(count);
    return place;
  }

  std::span<unsigned char> rest;
  std::size_t capacity;
  bool full = false;
};
