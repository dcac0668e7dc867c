// Reads words of either byte order from a bounded piece of memory.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

// Reverses the four bytes of a word.
constexpr std::uint32_t reversedBytes(std::uint32_t word) {
  return (word >> 24) | ((word >> 8) & 0x0000FF00U) | ((word << 8) & 0x00FF0000U) | (word << 24);
}

// Never looks past the end: what is not there reads as zero, and the position stays at the end.
class ByteReader {
 public:
  // data: stays the caller's. swapped: the words were written on a machine of the other byte order.
  ByteReader(std::span<const unsigned char> data, bool swapped) : rest(data), swap(swapped) {}

  std::size_t left() const { return rest.size(); }
  std::span<const unsigned char> remaining() const { return rest; }

  void skip(std::size_t count) { rest = rest.subspan(count < rest.size() ? count : rest.size()); }

  // Takes the next `count` bytes out as a reader of their own.
  ByteReader part(std::size_t count) {
    const ByteReader taken(rest.first(count < rest.size() ? count : rest.size()), swap);
    skip(count);
    return taken;
  }

  void bytes(void* to, std::size_t count) {
    const std::size_t there = count < rest.size() ? count : rest.size();
    std::memset(to, 0, count);
    if (there != 0) std::memcpy(to, rest.data(), there);
    skip(there);
  }

  std::uint8_t uint8() {
    std::uint8_t value = 0;
    bytes(&value, sizeof value);
    return value;
  }

  std::int32_t int32() {
    std::uint32_t word = 0;
    bytes(&word, sizeof word);
    return static_cast<std::int32_t>(swap ? reversedBytes(word) : word);
  }

  float float32() { return std::bit_cast<float>(int32()); }

 private:
  std::span<const unsigned char> rest;
  bool swap;
};
