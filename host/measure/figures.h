// The figures of a sound that reports and scripts ask for, in one go.
#pragma once

#include "host/measure/loudness.h"
#include "host/measure/stereolevels.h"

struct Figures {
  StereoLevels levels;
  Loudness::Result loudness;
};

// Any thread, one thread an object.
class FigureMeter {
 public:
  // channels: 1 or 2.
  FigureMeter(int channels, int sampleRate) : loudness(channels, sampleRate) {}

  // One channel: the same on both sides.
  void add(const double* left, const double* right, int frames) {
    levels.add(left, right, frames);
    loudness.add(left, right, frames);
  }

  // After the last frame, once.
  Figures finish() { return {levels, loudness.finish()}; }

 private:
  StereoLevels levels;
  Loudness loudness;
};
