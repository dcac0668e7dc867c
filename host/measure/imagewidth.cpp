// How wide a stereo signal is.
#include "host/measure/imagewidth.h"

#include <cmath>
#include <limits>
#include <numeric>

// The sums stay in registers while whole turns of them are done.
void ImageWidth::add(const double* left, const double* right, int frames) {
  int frame = 0;
  for (; frame < frames && next != 0; ++frame) addFrame(left[frame], right[frame]);
  Sums mids = mid;
  Sums sides = side;
  for (; frame + static_cast<int>(kSums) <= frames; frame += static_cast<int>(kSums)) {
    for (std::size_t sum = 0; sum < kSums; ++sum) {
      const double l = left[static_cast<std::size_t>(frame) + sum];
      const double r = right[static_cast<std::size_t>(frame) + sum];
      mids[sum] += (l + r) * (l + r);
      sides[sum] += (l - r) * (l - r);
    }
  }
  mid = mids;
  side = sides;
  for (; frame < frames; ++frame) addFrame(left[frame], right[frame]);
}

void ImageWidth::addFrame(double left, double right) {
  mid[next] += (left + right) * (left + right);
  side[next] += (left - right) * (left - right);
  next = (next + 1) % kSums;
}

double ImageWidth::sideToMid() const {
  const double sides = std::accumulate(side.begin(), side.end(), 0.0);
  const double mids = std::accumulate(mid.begin(), mid.end(), 0.0);
  if (sides == 0.0) return 0.0;
  return mids > 0.0 ? std::sqrt(sides / mids) : std::numeric_limits<double>::infinity();
}

bool isNarrower(double sideToMid, double before) {
  constexpr double kShown = 0.98855;  // -0.1 dB
  return sideToMid < before * kShown;
}
