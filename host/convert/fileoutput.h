// What the effect puts out, on its way into the file and to those who look at it: all have it at
// the file's level.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "host/sound/soundwriter.h"

class FileOutput {
 public:
  using Frames = std::function<void(const double* left, const double* right, int frames)>;

  // target: outlives it; format: its own. gain: a factor.
  FileOutput(SoundWriter& target, SampleFormat format, double gain);

  // Gets each frame as the file holds it.
  void watch(Frames watcher) { watchers.push_back(std::move(watcher)); }

  void take(const double* left, const double* right, int frames);

 private:
  SoundWriter& writer;
  SampleFormat format;
  double gain;
  std::vector<Frames> watchers;
  std::vector<double> outLeft;  // at the file's level
  std::vector<double> outRight;
};
