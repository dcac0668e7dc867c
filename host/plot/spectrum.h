// The mean power spectrum of a signal of any length.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
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
  // Mean power by bin over the signal's own length, in which a sine of amplitude 1 on a bin is 1;
  // all zero if there was no signal.
  std::vector<double> power() const;

 private:
  struct Transform;

  // Powers of windows, and for how many whole ones they stand.
  struct Sums {
    std::vector<double> power;
    double windows = 0.0;
  };
  // frames: up to kSize, after which there is silence. The signal begins at `begin`.
  void analyse(std::span<const float> frames, std::size_t begin, Sums& into) const;

  std::unique_ptr<Transform> transform;
  std::vector<float> window;
  std::vector<float> pending;  // up to kSize frames that wait for their window
  std::size_t silence;         // frames in front of the signal that are still among them
  Sums sums;
};
