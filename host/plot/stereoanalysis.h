// What an effect did to the stereo image of a signal.
#pragma once

#include <vector>

#include "host/measure/folderror.h"
#include "host/measure/stereolevels.h"
#include "host/plot/framesaside.h"
#include "host/plot/goniometer.h"
#include "host/plot/spectrum.h"

// One side of the comparison: the signal before, or the signal after. One thread calls; another one
// does most of the work meanwhile.
class StereoImage {
 public:
  // The result does not depend on the blocks.
  void add(const double* left, const double* right, int frames);
  void add(double left, double right) { add(&left, &right, 1); }

  const Goniometer& goniometer() const;
  std::vector<double> midPower() const;  // as Spectrum::power
  std::vector<double> sidePower() const;
  const StereoLevels& levels() const { return measured; }

 private:
  Goniometer plane;
  Spectrum midSpectrum;
  Spectrum sideSpectrum;
  StereoLevels measured;
  // After what it fills: it ends first.
  mutable FramesAside aside{[this](const float* mids, const float* sides, int count) {
    plane.add(mids, sides, count);
    midSpectrum.add(mids, count);
    sideSpectrum.add(sides, count);
  }};
};

// Before and after, in frames as FoldError takes them.
class StereoAnalysis {
 public:
  // gain: of what comes after, a factor; the fold is expected to have it too.
  explicit StereoAnalysis(int hertz, double afterGain = 1.0) : rate(hertz), fold(afterGain) {}

  void addBefore(const double* left, const double* right, int frames);
  void addAfter(const double* left, const double* right, int frames);

  int sampleRate() const { return rate; }
  const StereoImage& before() const { return imageBefore; }
  const StereoImage& after() const { return imageAfter; }
  double foldError() const { return fold.largest(); }  // 1 is full scale

 private:
  int rate;
  StereoImage imageBefore;
  StereoImage imageAfter;
  FoldError fold;
};
