// Collects words and bytes, in this machine's byte order, into one block.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

class ByteWriter {
 public:
  void bytes(const void* from, std::size_t count) {
    const std::size_t at = block.size();
    block.resize(at + count);
    if (count != 0) std::memcpy(block.data() + at, from, count);  // an empty source may be null
  }
  void zeros(std::size_t count) { block.resize(block.size() + count); }
  void uint8(std::uint8_t value) { block.push_back(value); }
  void int32(std::int32_t value) { bytes(&value, sizeof value); }
  void float32(float value) { int32(std::bit_cast<std::int32_t>(value)); }

  std::size_t size() const { return block.size(); }
  std::vector<unsigned char> take() { return std::move(block); }

 private:
  std::vector<unsigned char> block;
};
