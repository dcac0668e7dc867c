// Moves an effect's parameters while it processes.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "host/state/automationfile.h"

// Until its first point a parameter is left alone; between two points it goes in a straight line of
// raw values, in steps at frames that are the same for every block size; after the last one it
// stays. One run, one thread.
class Automation {
 public:
  static constexpr std::int64_t kStep = 32;  // frames: 0.7 ms at 44100 Hz, too short to be heard

  using Setter = std::function<void(int parameter, float value)>;

  Automation(const std::vector<AutomationLane>& lanes, int sampleRate);

  // position: the next frame to be processed; no smaller than the one before plus what was returned
  // then. Sets what changes there and returns for how many of `frames` that holds, at least 1.
  int advance(std::int64_t position, int frames, const Setter& set);

 private:
  struct Point {
    std::int64_t frame;
    float value;
  };
  struct Lane {
    int parameter;
    std::vector<Point> points;
    std::size_t passed = 0;       // points
    std::int64_t nextChange = 0;  // frame
  };

  static float valueAt(const Lane& lane, std::int64_t frame);
  static std::int64_t changeAfter(const Lane& lane, std::int64_t frame);

  std::vector<Lane> all;
};
