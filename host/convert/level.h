// Which gain brings a result to the level that is asked.
#pragma once

#include "host/options/arguments.h"
#include "host/sound/soundformat.h"

// The highest and the lowest sample of both channels. One thread.
class PeakMeter {
 public:
  void add(const double* left, const double* right, int frames);
  double highest() const { return most; }  // never below 0
  double lowest() const { return least; }  // never above 0

 private:
  double most = 0.0;
  double least = 0.0;
};

// A factor. What is written with it is not clipped by a single step: the highest positive sample of
// an integer format is a step below full scale, and dither needs room as well. Silence stays as it
// is.
double gainFor(const PeakAim& aim, const PeakMeter& peaks, SampleFormat format, bool dither);
