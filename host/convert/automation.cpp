// Moves an effect's parameters while it processes.
#include "host/convert/automation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

}  // namespace

Automation::Automation(const std::vector<AutomationLane>& lanes, int sampleRate) {
  for (const AutomationLane& lane : lanes) {
    Lane made{lane.parameter, {}};
    for (const AutomationPoint& point : lane.points)
      made.points.push_back({std::llround(point.seconds * sampleRate), point.value});
    made.nextChange = made.points.empty() ? kNever : made.points.front().frame;
    all.push_back(std::move(made));
  }
}

int Automation::advance(std::int64_t position, int frames, const Setter& set) {
  std::int64_t next = position + frames;
  for (Lane& lane : all) {
    if (lane.nextChange <= position) {
      while (lane.passed < lane.points.size() && lane.points[lane.passed].frame <= position)
        ++lane.passed;
      set(lane.parameter, valueAt(lane, position));
      lane.nextChange = changeAfter(lane, position);
    }
    next = std::min(next, lane.nextChange);
  }
  return static_cast<int>(next - position);
}

// Of points at one frame the last one counts from there on: the value leaps.
float Automation::valueAt(const Lane& lane, std::int64_t frame) {
  const Point& from = lane.points[lane.passed - 1];
  if (lane.passed == lane.points.size()) return from.value;
  const Point& to = lane.points[lane.passed];
  const double share =
      static_cast<double>(frame - from.frame) / static_cast<double>(to.frame - from.frame);
  return static_cast<float>(from.value + (static_cast<double>(to.value) - from.value) * share);
}

std::int64_t Automation::changeAfter(const Lane& lane, std::int64_t frame) {
  if (lane.passed == lane.points.size()) return kNever;
  const Point& to = lane.points[lane.passed];
  if (to.value == lane.points[lane.passed - 1].value) return to.frame;
  return std::min(to.frame, (frame / kStep + 1) * kStep);
}
