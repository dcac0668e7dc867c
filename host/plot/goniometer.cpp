// How often a stereo signal is where in the plane of side and mid.
#include "host/plot/goniometer.h"

#include <algorithm>
#include <cmath>

#include "host/measure/midside.h"

void Goniometer::add(double left, double right) {
  const double mid = midOf(left, right);
  const double side = sideOf(left, right);
  if (!std::isfinite(mid) || !std::isfinite(side)) return;
  while (std::max(std::abs(mid), std::abs(side)) >= halfWidth) doubleRange();
  const auto cell = [this](double value) {
    const auto index = static_cast<int>(std::floor((value / halfWidth + 1.0) * 0.5 * kCells));
    return static_cast<std::size_t>(std::clamp(index, 0, kCells - 1));
  };
  ++counts[cell(mid) * kCells + cell(side)];
}

// Four cells become one, around the middle.
void Goniometer::doubleRange() {
  constexpr std::size_t kHalf = kCells / 2;
  constexpr std::size_t kQuarter = kCells / 4;
  std::vector<std::uint32_t> wider(counts.size());
  for (std::size_t row = 0; row < kCells; ++row) {
    for (std::size_t column = 0; column < kCells; ++column) {
      wider[(row / 2 + kQuarter) * kCells + column / 2 + kQuarter] += counts[row * kCells + column];
    }
  }
  static_assert(kHalf / 2 == kQuarter);
  counts = std::move(wider);
  halfWidth *= 2.0;
}
