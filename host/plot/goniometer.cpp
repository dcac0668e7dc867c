// How often a stereo signal is where in the plane of side and mid.
#include "host/plot/goniometer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "host/base/blockarithmetic.h"
#include "host/measure/midside.h"

namespace {

constexpr int kPiece = 256;  // frames

}  // namespace

void Goniometer::add(double left, double right) {
  const auto mid = static_cast<float>(midOf(left, right));
  const auto side = static_cast<float>(sideOf(left, right));
  addPiece(&mid, &side, 1);
}

void Goniometer::add(const float* mids, const float* sides, int frames) {
  for (int first = 0; first < frames; first += kPiece)
    addPiece(mids + first, sides + first, std::min(kPiece, frames - first));
}

// All places first, then the counts: these lie far apart in memory, and so more of them are on
// their way at a time.
void Goniometer::addPiece(const float* mids, const float* sides, int frames) {
  if (!allFinite(mids, frames) || !allFinite(sides, frames)) {
    for (int i = 0; i < frames && frames > 1; ++i) addPiece(mids + i, sides + i, 1);
    return;
  }
  const float reach = std::max(largestMagnitude(mids, frames), largestMagnitude(sides, frames));
  while (reach >= halfWidth) doubleRange();
  constexpr int kMiddle = kCells / 2;
  const auto scale = static_cast<float>(kMiddle / halfWidth);  // a power of two
  // Positive, and so rounded down.
  const auto cell = [scale](float value) {
    return std::min(static_cast<int>(value * scale + kMiddle), kCells - 1);
  };
  std::array<int, kPiece> places;
  for (int i = 0; i < frames; ++i)
    places[static_cast<std::size_t>(i)] = cell(mids[i]) * kCells + cell(sides[i]);
  for (int i = 0; i < frames; ++i) {
    const auto place = static_cast<std::size_t>(places[static_cast<std::size_t>(i)]);
    if (++counts[place] == 0) ++full[place];
  }
}

// Four cells become one, around the middle.
void Goniometer::doubleRange() {
  constexpr int kHalf = kCells / 2;
  constexpr int kQuarter = kCells / 4;
  Goniometer wider;
  wider.halfWidth = 2.0 * halfWidth;
  for (int row = 0; row < kCells; ++row) {
    for (int column = 0; column < kCells; ++column) {
      const int cell = (row / 2 + kQuarter) * kCells + column / 2 + kQuarter;
      const std::uint32_t sum =
          wider.count(column / 2 + kQuarter, row / 2 + kQuarter) + count(column, row);
      wider.counts[static_cast<std::size_t>(cell)] = static_cast<std::uint16_t>(sum);
      wider.full[static_cast<std::size_t>(cell)] = sum >> 16U;
    }
  }
  static_assert(kHalf / 2 == kQuarter);
  *this = std::move(wider);
}
