// The mean power spectrum of a signal of any length.
#pragma once

#include <cstddef>
#include <vector>

#include "host/plot/fourtransforms.h"

// Overlapping windows, averaged; memory does not grow with the signal. One thread calls; another
// one works on what has come, a few seconds at a time, and the result does not depend on it.
class Spectrum {
 public:
  static constexpr int kSize = 16384;  // frames a window: 2.7 Hz a bin at 44100 Hz
  static constexpr int kBins = kSize / 2 + 1;

  Spectrum();

  void add(const float* samples, int count);
  void add(double sample) {
    const auto single = static_cast<float>(sample);
    add(&single, 1);
  }
  // Mean power by bin over the signal's own length, in which a sine of amplitude 1 on a bin is 1;
  // all zero if there was no signal.
  std::vector<double> power() const;

 private:
  // Powers of windows, and for how many whole ones they stand.
  struct Sums {
    std::vector<double> power;
    double windows = 0.0;
  };
  // frames: what four windows see; the signal among them lies from `begin` to `end`.
  void analyse(const float* frames, std::size_t begin, std::size_t end, Sums& into) const;

  FourTransforms transforms;
  std::vector<float> window;
  std::vector<double> energy;  // of the window up to each of its frames
  std::vector<float> pending;  // waits until it fills four windows
  std::size_t filled;          // frames of it
  std::size_t silence;         // frames in front of the signal that are still among them
  Sums sums;
};
