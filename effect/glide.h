// The tiny objects of the frame loop: glides, envelopes and the delay line, held in locals and
// written back at the end.
#pragma once

#include <cmath>
#include <cstdint>

// Adds and takes away a tiny constant, which turns a denormal into zero. The order of the two
// operations is the definition of the result.
inline float flushed(float value) {
  return (value + 1e-16F) - 1e-16F;
}
inline double flushed(double value) {
  return (value + 1e-21) - 1e-21;
}

// One-pole glide of a parameter toward its target, one step a frame, always in float. Writes its
// state back when it goes out of scope. Audio thread.
class Glide {
 public:
  Glide(float& heldState, float heldTarget, float heldCoefficient)
      : state(heldState), value(heldState), target(heldTarget), coefficient(heldCoefficient) {}
  ~Glide() { state = value; }
  Glide(const Glide&) = delete;
  Glide& operator=(const Glide&) = delete;

  float next() {
    value = flushed(value + (target - value) * coefficient);
    return value;
  }

 private:
  float& state;
  float value;
  const float target;
  const float coefficient;
};

// Glide of the read offset, in frames. It may grow by one frame a frame but shrink by half a frame
// only, and stands still once it is within a hundredth of its target.
class DelayGlide {
 public:
  DelayGlide(double& heldState, std::int32_t heldTarget, float heldCoefficient)
      : state(heldState),
        value(heldState),
        target(heldTarget),
        coefficient(static_cast<double>(heldCoefficient)) {}
  ~DelayGlide() { state = value; }
  DelayGlide(const DelayGlide&) = delete;
  DelayGlide& operator=(const DelayGlide&) = delete;

  double next() {
    const double distance = target - value;
    if (std::fabs(distance) > 0.01) {
      double step = coefficient * distance;
      if (step < -0.5) step = -0.5;
      if (step > 1.0) step = 1.0;
      value += step;
    } else {
      value = target;
    }
    return value;
  }

 private:
  double& state;
  double value;
  const double target;
  const double coefficient;
};

// Smoothed level, in double for both precisions.
class Envelope {
 public:
  Envelope(double& heldState, double heldCoefficient)
      : state(heldState), value(heldState), coefficient(heldCoefficient) {}
  ~Envelope() { state = value; }
  Envelope(const Envelope&) = delete;
  Envelope& operator=(const Envelope&) = delete;

  void follow(double level) { value = flushed(value + (level - value) * coefficient); }

 private:
  double& state;
  double value;
  const double coefficient;
};

// The ring of past mid samples, floats in both precisions. mask: its length, a power of
// two, minus one.
class DelayCursor {
 public:
  DelayCursor(float* heldLine, std::int32_t heldMask, std::int32_t& heldIndex)
      : line(heldLine), mask(heldMask), state(heldIndex), index(heldIndex) {}
  ~DelayCursor() { state = index; }
  DelayCursor(const DelayCursor&) = delete;
  DelayCursor& operator=(const DelayCursor&) = delete;

  void write(float mid) {
    index = (index + 1) & mask;
    line[index] = mid;
  }

  // The sample `offset` frames ahead of the newest one, round the ring, with linear interpolation.
  double read(double offset) const {
    const auto whole = static_cast<std::int32_t>(offset);
    const double fraction = offset - whole;
    const std::int32_t k = (whole + index) & mask;
    return (1.0 - fraction) * static_cast<double>(line[k]) +
           fraction * static_cast<double>(line[(k + 1) & mask]);
  }

 private:
  float* const line;
  const std::int32_t mask;
  std::int32_t& state;
  std::int32_t index;
};
