// The levels of a stereo signal: of its channels, of mid and side, and how alike the channels are.
#pragma once

#include <cstdint>
#include <numbers>

// The amplitude of a sine of this level. Levels are told by it: 0 dBFS is a sine at full scale, 3
// dB above its root mean square.
constexpr double sineOf(double rms) {
  return rms * std::numbers::sqrt2;
}

// Any thread, one thread an object. A level is the root of the mean square over the whole signal.
class StereoLevels {
 public:
  // The result does not depend on the blocks.
  void add(const double* left, const double* right, int frames);
  void add(double left, double right) { add(&left, &right, 1); }

  std::int64_t frames() const { return count; }
  double peak() const { return highest; }  // of both channels, 1 is full scale
  double mid() const { return rms(sums.midSquares); }
  double side() const { return rms(sums.sideSquares); }
  // -1 opposite .. 0 independent .. 1 the same; 0 where a channel is silent.
  double correlation() const;

 private:
  // Of frames with an even number, and of those with an odd one.
  using Lanes = double __attribute__((vector_size(16)));
  struct Sums {
    Lanes midSquares{};
    Lanes sideSquares{};
    Lanes leftSquares{};
    Lanes rightSquares{};
    Lanes products{};
  };

  double rms(const Lanes& squares) const;

  std::int64_t count = 0;  // frames
  double highest = 0.0;
  Sums sums;
};
