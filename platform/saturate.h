// Conversion of a floating-point number to an integer that is defined for every number.
#pragma once

#include <cstdint>
#include <limits>

// Truncates toward zero; numbers beyond the range become its ends, a NaN becomes 0. Any thread.
template <typename Integer>
constexpr Integer truncatedTo(double value) {
  using Limits = std::numeric_limits<Integer>;
  // 2^31 or 2^63, the first number beyond the range: the range's own end may be no double
  constexpr Integer kHalf = Limits::max() / 2 + 1;
  constexpr double kEnd = 2.0 * static_cast<double>(kHalf);
  if (value >= kEnd) return Limits::max();
  if (value < -kEnd) return Limits::min();
  return value == value ? static_cast<Integer>(value) : 0;
}

constexpr std::int32_t truncatedToInt32(double value) {
  return truncatedTo<std::int32_t>(value);
}
