// What an effect did to the stereo image of a signal.
#pragma once

#include <vector>

#include "host/measure/folderror.h"
#include "host/measure/stereolevels.h"
#include "host/plot/goniometer.h"
#include "host/plot/spectrum.h"

// One side of the comparison: the signal before, or the signal after.
class StereoImage {
 public:
  void add(double left, double right);

  const Goniometer& goniometer() const { return plane; }
  std::vector<double> midPower() const { return midSpectrum.power(); }  // as Spectrum::power
  std::vector<double> sidePower() const { return sideSpectrum.power(); }
  const StereoLevels& levels() const { return measured; }

 private:
  Goniometer plane;
  Spectrum midSpectrum;
  Spectrum sideSpectrum;
  StereoLevels measured;
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
