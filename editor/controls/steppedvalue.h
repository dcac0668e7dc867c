// Adds steps of wheel and keys to a value without piling up errors.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/defaultfloats.h"

// Ten tenths of a step are one step to the last bit, however many parts a touch pad makes of it,
// and ten steps of 0.1 are 1: displays cut what is a little less to another number.
class SteppedValue {
 public:
  // The value that `step` makes of `value`, 0..1.
  float after(float value, double step) {
    const DefaultFloats floats;
    if (value != shown) exact = static_cast<double>(value);  // set by something else meanwhile
    exact = std::clamp(floats.of(exact) + step, 0.0, 1.0);
    shown = static_cast<float>(std::round(exact * kGrid) / kGrid);
    return shown;
  }

 private:
  static constexpr double kGrid = 1e6;  // finer than a float's last digit that can be seen
  double exact = 0;
  float shown = -1;  // no value
};
