// How far the mono fold of what an effect put out is from the fold of what it was given.
#include "host/measure/folderror.h"

#include <algorithm>
#include <cmath>

#include "host/measure/midside.h"

void FoldError::addBefore(const double* left, const double* right, int frames) {
  // What has been used up goes when it outweighs what waits.
  if (nextMid > mids.size() / 2) {
    mids.erase(mids.begin(), mids.begin() + static_cast<std::ptrdiff_t>(nextMid));
    nextMid = 0;
  }
  for (int frame = 0; frame < frames; ++frame)
    mids.push_back(gain * midOf(left[frame], right[frame]));
}

void FoldError::addAfter(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) {
    const double mid = nextMid < mids.size() ? mids[nextMid++] : 0.0;
    largestError = std::max(largestError, std::abs(midOf(left[frame], right[frame]) - mid));
  }
}
