// What counts of several measured times.
#pragma once

#include <algorithm>
#include <vector>

// Of an even number the upper one of the two; their order changes.
inline double median(std::vector<double>& times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}
