// What the effect puts out, on its way into the file and to those who look at it: all have it at
// the file's level.
#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "host/measure/sideroom.h"
#include "host/sound/dither.h"
#include "host/sound/soundwriter.h"

class FileOutput {
 public:
  using Frames = std::function<void(const double* left, const double* right, int frames)>;

  // target: outlives it; format: its own. gain: a factor.
  FileOutput(SoundWriter& target, SampleFormat format, double gain);

  void ditherWith(const Dither& noise) { dither = noise; }
  // Gets each frame as the file holds it.
  void watch(Frames watcher) { watchers.push_back(std::move(watcher)); }

  void take(const double* left, const double* right, int frames);

  // The factor for the side with which nothing would be clipped; 1 where nothing is.
  double sideRoom() const { return room.factor(); }

 private:
  void measureRoom(int frames);

  SoundWriter& writer;
  SampleFormat format;
  double gain;
  std::optional<Dither> dither;
  std::vector<Frames> watchers;
  SideRoom room;
  std::vector<double> outLeft;  // at the file's level
  std::vector<double> outRight;
};
