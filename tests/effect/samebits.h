// Comparing samples bit by bit.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

template <typename Sample>
using BitsOf = std::conditional_t<sizeof(Sample) == 4, std::uint32_t, std::uint64_t>;

// Which NaN an operation on two NaNs returns depends on the order in which the compiler hands them
// over, so all NaNs count as one.
template <typename Sample>
bool sameBits(Sample a, Sample b) {
  return std::bit_cast<BitsOf<Sample>>(a) == std::bit_cast<BitsOf<Sample>>(b) ||
         (std::isnan(a) && std::isnan(b));
}

// size where there is none.
template <typename Sample>
std::size_t firstDifference(const Sample* a, const Sample* b, std::size_t size) {
  if (size == 0 || std::memcmp(a, b, size * sizeof(Sample)) == 0) return size;
  std::size_t place = 0;
  while (place < size && sameBits(a[place], b[place])) ++place;
  return place;
}
