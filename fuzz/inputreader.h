// Takes a fuzz target's input apart from its front: choices, numbers and texts.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace fuzz {

// Zeros and empty texts where nothing is left. Words stand in the machine's byte order.
class InputReader {
 public:
  InputReader(const std::uint8_t* input, std::size_t size) : rest(input, size) {}

  bool empty() const { return rest.empty(); }
  std::span<const unsigned char> remaining() const { return rest; }

  unsigned byte() {
    const std::span<const unsigned char> taken = take(1);
    return taken.empty() ? 0 : taken[0];
  }
  unsigned below(unsigned count) { return byte() % count; }  // count: 1..256
  bool flag() { return (byte() & 1U) != 0; }
  std::int32_t word() {
    std::uint32_t value = 0;
    for (int index = 0; index < 4; ++index) value |= byte() << (8 * index);
    return static_cast<std::int32_t>(value);
  }
  float real() { return std::bit_cast<float>(word()); }  // any bits
  // At most `count` bytes.
  std::span<const unsigned char> take(std::size_t count) {
    const std::span<const unsigned char> taken = rest.first(std::min(count, rest.size()));
    rest = rest.subspan(taken.size());
    return taken;
  }
  // A byte that says how long it is, then that many.
  std::string text() {
    const std::span<const unsigned char> taken = take(byte());
    return {taken.begin(), taken.end()};
  }

 private:
  std::span<const unsigned char> rest;
};

}  // namespace fuzz
