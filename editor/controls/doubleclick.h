// Tells double clicks from clicks.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>

#include "editor/base/eventtime.h"
#include "vstgui.h"

// The toolkit's own flag misses double clicks after a lone click and takes a right click for the
// first half. One object a control, asked once for each press of the button that counts, while that
// is handled.
class DoubleClick {
 public:
  using Clock = std::function<std::uint64_t()>;  // ms, never backwards

  // longest: ms from the first press to the second.
  void setClock(Clock other, std::uint32_t longest = 400) {
    clock = std::move(other);
    longestTime = [longest] { return longest; };
  }

  // True for the second of two presses that are close in time and place. A third one is a
  // first one again.
  bool press(const VSTGUI::CPoint& where) {
    const std::uint64_t time = clock();
    const bool second = first && time - first->time <= longestTime() &&
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
  static constexpr double kFarthest = 5;  // pixels, each way

  Clock clock = eventMilliseconds;  // of the press, also where a slow idle hands it over late
  std::function<std::uint32_t()> longestTime = longestDoubleClick;  // the desktop's, as it is now
  std::optional<Press> first;
};
