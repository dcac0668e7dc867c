// Turns wheel travel into whole steps.
#pragma once

#include <algorithm>
#include <cmath>

// A wheel's click is 1; touch pads send many small parts of it.
class WheelSteps {
 public:
  // Whole steps that `travel` completes, positive for up. Turning back starts anew.
  int add(double travel) {
    if (rest * travel < 0) rest = 0;
    double whole = 0;
    rest = std::modf(rest + travel, &whole);
    return static_cast<int>(std::clamp(whole, -kMost, kMost));
  }

 private:
  static constexpr double kMost = 1000;  // more than any list holds
  double rest = 0;
};
