// Tells double clicks from clicks.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>

#include "editor/base/steadytime.h"
#include "vstgui.h"

// The toolkit's own flag misses double clicks after a lone click and takes a right click for the
// first half. One object a control, asked once for each press of the button that counts.
class DoubleClick {
 public:
  using Clock = std::function<std::uint64_t()>;  // ms, never backwards

  void setClock(Clock other) { clock = std::move(other); }

  // True for the second of two presses that are close in time and place. A third one is a
  // first one again.
  bool press(const VSTGUI::CPoint& where) {
    const std::uint64_t time = clock();
    const bool second = first && time - first->time <= kLongest &&
                        std::abs(where.x - first->where.x) <= kFarthest &&
                        std::abs(where.y - first->where.y) <= kFarthest;
    first.reset();
    if (!second) first = {time, where};
    return second;
  }

  // Another button came between.
  void forget() { first.reset(); }

 private:
  struct Press {
    std::uint64_t time;  // ms
    VSTGUI::CPoint where;
  };
  // ms, also between presses that a slow idle hands over late
  static constexpr std::uint64_t kLongest = 300;
  static constexpr double kFarthest = 5;  // pixels, each way

  Clock clock = steadyMilliseconds;
  std::optional<Press> first;
};
