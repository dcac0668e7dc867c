// What an effect did to the stereo image of a signal.
#include "host/plot/stereoanalysis.h"

#include <algorithm>
#include <cmath>

#include "host/plot/midside.h"

void StereoImage::add(double left, double right) {
  const double mid = midOf(left, right);
  const double side = sideOf(left, right);
  plane.add(left, right);
  midSpectrum.add(mid);
  sideSpectrum.add(side);
  ++frames;
  highest = std::max({highest, std::abs(left), std::abs(right)});
  midSquares += mid * mid;
  sideSquares += side * side;
  leftSquares += left * left;
  rightSquares += right * right;
  products += left * right;
}

double StereoImage::rms(double squares) const {
  return frames == 0 ? 0.0 : std::sqrt(squares / static_cast<double>(frames));
}

double StereoImage::correlation() const {
  const double energy = std::sqrt(leftSquares * rightSquares);
  return energy > 0.0 ? products / energy : 0.0;
}

void StereoAnalysis::addBefore(const double* left, const double* right, int frames) {
  // What has been used up goes when it outweighs what waits.
  if (nextMid > mids.size() / 2) {
    mids.erase(mids.begin(), mids.begin() + static_cast<std::ptrdiff_t>(nextMid));
    nextMid = 0;
  }
  for (int frame = 0; frame < frames; ++frame) {
    imageBefore.add(left[frame], right[frame]);
    mids.push_back(gain * midOf(left[frame], right[frame]));
  }
}

void StereoAnalysis::addAfter(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) {
    imageAfter.add(left[frame], right[frame]);
    const double mid = nextMid < mids.size() ? mids[nextMid++] : 0.0;
    largestFoldError = std::max(largestFoldError, std::abs(midOf(left[frame], right[frame]) - mid));
  }
}
