// The levels of a stereo signal.
#include "host/measure/stereolevels.h"

#include <algorithm>
#include <cmath>

#include "host/base/blockarithmetic.h"

void StereoLevels::add(const double* left, const double* right, int frames) {
  Sums now = sums;
  const auto add = [&](Lanes l, Lanes r) {
    const Lanes mid = (l + r) * 0.5;
    const Lanes side = (l - r) * 0.5;
    now.midSquares += mid * mid;
    now.sideSquares += side * side;
    now.leftSquares += l * l;
    now.rightSquares += r * r;
    now.products += l * r;
  };
  int i = 0;
  // A frame's lane follows from its number alone.
  if (count % 2 != 0 && frames > 0) {
    add(Lanes{0.0, left[0]}, Lanes{0.0, right[0]});
    i = 1;
  }
  for (; i + 1 < frames; i += 2) add(Lanes{left[i], left[i + 1]}, Lanes{right[i], right[i + 1]});
  if (i < frames) add(Lanes{left[i], 0.0}, Lanes{right[i], 0.0});
  sums = now;
  count += frames;
  highest = std::max({highest, largestMagnitude(left, frames), largestMagnitude(right, frames)});
}

double StereoLevels::rms(const Lanes& squares) const {
  return count == 0 ? 0.0 : std::sqrt((squares[0] + squares[1]) / static_cast<double>(count));
}

double StereoLevels::correlation() const {
  const auto sum = [](const Lanes& lanes) { return lanes[0] + lanes[1]; };
  const double energy = std::sqrt(sum(sums.leftSquares) * sum(sums.rightSquares));
  return energy > 0.0 ? sum(sums.products) / energy : 0.0;
}
