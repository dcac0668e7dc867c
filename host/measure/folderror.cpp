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
  const std::size_t first = mids.size();
  mids.resize(first + static_cast<std::size_t>(frames));
  for (int frame = 0; frame < frames; ++frame)
    mids[first + static_cast<std::size_t>(frame)] = gain * midOf(left[frame], right[frame]);
}

void FoldError::addAfter(const double* left, const double* right, int frames) {
  const auto waiting =
      static_cast<int>(std::min(mids.size() - nextMid, static_cast<std::size_t>(frames)));
  const double* expected = mids.data() + nextMid;
  double largest = largestError;
  for (int i = 0; i < waiting; ++i)
    largest = std::max(largest, std::abs(midOf(left[i], right[i]) - expected[i]));
  for (int i = waiting; i < frames; ++i)
    largest = std::max(largest, std::abs(midOf(left[i], right[i])));
  largestError = largest;
  nextMid += static_cast<std::size_t>(waiting);
}
