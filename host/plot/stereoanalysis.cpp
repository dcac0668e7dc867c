// What an effect did to the stereo image of a signal.
#include "host/plot/stereoanalysis.h"

#include "host/measure/midside.h"

void StereoImage::add(double left, double right) {
  plane.add(left, right);
  midSpectrum.add(midOf(left, right));
  sideSpectrum.add(sideOf(left, right));
  measured.add(left, right);
}

void StereoAnalysis::addBefore(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) imageBefore.add(left[frame], right[frame]);
  fold.addBefore(left, right, frames);
}

void StereoAnalysis::addAfter(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) imageAfter.add(left[frame], right[frame]);
  fold.addAfter(left, right, frames);
}
