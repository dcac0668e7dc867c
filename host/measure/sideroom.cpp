// How much of the side signal fits into full scale.
#include "host/measure/sideroom.h"

#include <algorithm>
#include <cmath>

void SideRoom::add(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) {
    if (std::max(std::abs(left[frame]), std::abs(right[frame])) > 1.0)
      narrowFor(left[frame], right[frame]);
  }
}

// The louder of mid + side and mid - side has the sum of their magnitudes.
void SideRoom::narrowFor(double left, double right) {
  const double mid = std::abs(left + right) / 2.0;
  const double side = std::abs(left - right) / 2.0;
  most = mid < 1.0 ? std::min(most, (1.0 - mid) / side) : 0.0;
}
