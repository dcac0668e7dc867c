// The levels of a stereo signal.
#include "host/measure/stereolevels.h"

#include <algorithm>
#include <cmath>

#include "host/measure/midside.h"

void StereoLevels::add(double left, double right) {
  const double middle = midOf(left, right);
  const double difference = sideOf(left, right);
  ++count;
  highest = std::max({highest, std::abs(left), std::abs(right)});
  midSquares += middle * middle;
  sideSquares += difference * difference;
  leftSquares += left * left;
  rightSquares += right * right;
  products += left * right;
}

double StereoLevels::rms(double squares) const {
  return count == 0 ? 0.0 : std::sqrt(squares / static_cast<double>(count));
}

double StereoLevels::correlation() const {
  const double energy = std::sqrt(leftSquares * rightSquares);
  return energy > 0.0 ? products / energy : 0.0;
}
