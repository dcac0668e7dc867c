// The levels of a stereo signal: of its channels, of mid and side, and how alike the channels are.
#pragma once

#include <cstdint>

// Any thread, one thread an object. A level is the root of the mean square over the whole signal.
class StereoLevels {
 public:
  void add(double left, double right);

  std::int64_t frames() const { return count; }
  double peak() const { return highest; }  // of both channels, 1 is full scale
  double mid() const { return rms(midSquares); }
  double side() const { return rms(sideSquares); }
  // -1 opposite .. 0 independent .. 1 the same; 0 where a channel is silent.
  double correlation() const;

 private:
  double rms(double squares) const;

  std::int64_t count = 0;  // frames
  double highest = 0.0;
  double midSquares = 0.0;
  double sideSquares = 0.0;
  double leftSquares = 0.0;
  double rightSquares = 0.0;
  double products = 0.0;
};
