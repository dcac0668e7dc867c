// What an effect did to the stereo image of a signal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/plot/goniometer.h"
#include "host/plot/spectrum.h"

// One side of the comparison: the signal before, or the signal after.
class StereoImage {
 public:
  void add(double left, double right);

  const Goniometer& goniometer() const { return plane; }
  std::vector<double> midPower() const { return midSpectrum.power(); }  // as Spectrum::power
  std::vector<double> sidePower() const { return sideSpectrum.power(); }
  double peak() const { return highest; }  // of both channels, 1 is full scale
  double midLevel() const { return rms(midSquares); }
  double sideLevel() const { return rms(sideSquares); }
  // -1 opposite .. 0 independent .. 1 the same; 0 where a channel is silent.
  double correlation() const;

 private:
  double rms(double squares) const;

  Goniometer plane;
  Spectrum midSpectrum;
  Spectrum sideSpectrum;
  std::int64_t frames = 0;
  double highest = 0.0;
  double midSquares = 0.0;
  double sideSquares = 0.0;
  double leftSquares = 0.0;
  double rightSquares = 0.0;
  double products = 0.0;
};

// Before and after, frame by frame; "after" may lag behind by the effect's latency and be longer by
// its tail.
class StereoAnalysis {
 public:
  // gain: of what comes after, a factor; the fold is expected to have it too.
  explicit StereoAnalysis(int hertz, double afterGain = 1.0) : rate(hertz), gain(afterGain) {}

  // mono: the same for both. After: what belongs to the frames before, in order; frames beyond them
  // belong to silence.
  void addBefore(const double* left, const double* right, int frames);
  void addAfter(const double* left, const double* right, int frames);

  int sampleRate() const { return rate; }
  const StereoImage& before() const { return imageBefore; }
  const StereoImage& after() const { return imageAfter; }
  // Largest |(L+R)/2 after - mid before, with the gain|, 1 is full scale: how far the mono fold is
  // from the original.
  double foldError() const { return largestFoldError; }

 private:
  int rate;
  double gain;
  StereoImage imageBefore;
  StereoImage imageAfter;
  std::vector<double> mids;  // before, waiting for their frames after
  std::size_t nextMid = 0;
  double largestFoldError = 0.0;
};
