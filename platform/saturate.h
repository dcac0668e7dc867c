// Conversion of a floating-point number to an integer that is defined for every number.
#pragma once

#include <cstdint>
#include <limits>

// Truncates toward zero; numbers beyond the range become its ends, a NaN becomes 0. Any thread.
constexpr std::int32_t truncatedToInt32(double value) {
  constexpr double kEnd = 2147483648.0;  // 2^31, the first number beyond the range
  if (value >= kEnd) return std::numeric_limits<std::int32_t>::max();
  if (value < -kEnd) return std::numeric_limits<std::int32_t>::min();
  return value == value ? static_cast<std::int32_t>(value) : 0;
}
