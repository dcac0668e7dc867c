// Mid and side of a stereo frame.
#pragma once

constexpr double midOf(double left, double right) {
  return (left + right) * 0.5;
}
// Positive to the left.
constexpr double sideOf(double left, double right) {
  return (left - right) * 0.5;
}
