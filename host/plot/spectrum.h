// The mean power spectrum of a signal of any length.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

// Overlapping windows, averaged; memory does not grow with the signal.
class Spectrum {
 public:
  static constexpr int kSize = 16384;  // frames a window: 2.7 Hz a bin at 44100 Hz
  static constexpr int kBins = kSize / 2 + 1;

  Spectrum();
  ~Spectrum();
  Spectrum(Spectrum&&) noexcept;

  void add(double sample);
  // Mean power by bin, in which a sine of amplitude 1 on a bin is 1. A signal shorter than a window
  // is taken as one that is filled up with silence; all zero if there was none.
  std::vector<double> power() const;

 private:
  struct Transform;

  void analyse(const std::vector<float>& frames, std::vector<double>& sums) const;

  std::unique_ptr<Transform> transform;
  std::vector<float> window;
  std::vector<float> pending;  // up to kSize frames that wait for their window
  std::vector<double> sums;
  std::size_t windows = 0;
};
