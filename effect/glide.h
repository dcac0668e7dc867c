// The kernel's glides: gains and read offset on their way to their targets, a run of frames at
// once.
#pragma once

#include "effect/kernel.h"

// Static, and without the standard library, as all of the kernel's steps (effect/kernelsteps.h).
namespace kernel {

// Adds and takes away a tiny constant, which turns a denormal into zero. The order of the two
// operations is the definition of the result.
static inline float flushed(float value) {
  return (value + 1e-16F) - 1e-16F;
}
static inline double flushed(double value) {
  return (value + 1e-21) - 1e-21;
}

static inline float magnitude(float value) {
  return __builtin_fabsf(value);
}
static inline double magnitude(double value) {
  return __builtin_fabs(value);
}

// One-pole glide of a gain, always in float. The order of operations is the definition.
struct GainGlide {
  float target;
  float coefficient;

  float step(float value) const { return (target - value) * coefficient; }
  float next(float value) const { return flushed(value + step(value)); }
  bool leads(float from, float to) const { return next(from) == to; }
};

// Glide of the read offset. It may grow by one frame a frame but shrink by half a frame only, and
// stands still once it is within a hundredth of its target.
struct OffsetGlide {
  double target;
  double coefficient;

  double step(double value) const { return coefficient * (target - value); }
  double next(double value) const {
    double taken = step(value);
    taken = taken < -0.5 ? -0.5 : taken;
    taken = taken > 1.0 ? 1.0 : taken;
    return magnitude(target - value) > 0.01 ? value + taken : target;
  }
  // Of a step that meets no limit; without a branch, for the loop that calls it.
  bool leads(double from, double to) const {
    const double taken = step(from);
    const bool free = (taken >= -0.5) & (taken <= 1.0) & (magnitude(target - from) > 0.01);
    return free & (from + taken == to);
  }
};

// Whether another frame leaves a glide where it is: beside its target, mostly, where a step is too
// short to be added.
template <typename Glide>
static bool rests(float& value, const Glide& glide) {
  const float next = glide.next(value);
  if (next != value) return false;
  value = next;  // the sign of a zero, too
  return true;
}

// As wide as a value, so that the comparisons of a run fit into a vector beside each other.
template <typename Value>
struct Word;
template <>
struct Word<float> {
  using Type = std::int32_t;
};
template <>
struct Word<double> {
  using Type = std::int64_t;
};

// Each value of a glide waits for several operations on the one before. So a run is guessed first:
// its steps get shorter as a geometric series does, and what waits is only the sum. Then every
// value is compared with what the glide makes of the one before, all of them side by side. A guess
// that is not right to the bit, about one run in a hundred, is made good frame by frame.
template <typename Value, typename Glide>
static void settle(Value& value, const Glide& glide, Value* __restrict run, std::int32_t frames) {
  typename Word<Value>::Type wrong = glide.leads(value, run[0]) ? 0 : 1;
  for (std::int32_t i = 1; i < frames; ++i) wrong |= glide.leads(run[i - 1], run[i]) ? 0 : 1;
  if (wrong != 0) {
    Value exact = value;
    for (std::int32_t i = 0; i < frames; ++i) run[i] = exact = glide.next(exact);
  }
  value = run[frames - 1];
}

// Both gains in one loop, which costs what one of them costs.
static void glideGains(State& state, const Rates& rates, const Targets& targets,
                       float* __restrict gains, float* __restrict emphases, std::int32_t frames) {
  const GainGlide gain{targets.gain, rates.glide};
  const GainGlide emphasis{targets.emphasis, rates.glide};
  const float gainStep = gain.step(state.gain);
  const float emphasisStep = emphasis.step(state.emphasis);
  float gainNow = state.gain;
  float emphasisNow = state.emphasis;
  for (std::int32_t i = 0; i < frames; ++i) {
    gains[i] = gainNow += gainStep * rates.powers[i];
    emphases[i] = emphasisNow += emphasisStep * rates.powers[i];
  }
  settle(state.gain, gain, gains, frames);
  settle(state.emphasis, emphasis, emphases, frames);
}

// In copies, which are stored at the end: compilers read both gains as one vector later, and that
// waits where they have just been stored one by one.
static inline bool gainsRest(State& state, const Rates& rates, const Targets& targets) {
  float gain = state.gain;
  float emphasis = state.emphasis;
  const bool rest = rests(gain, GainGlide{targets.gain, rates.glide}) &&
                    rests(emphasis, GainGlide{targets.emphasis, rates.glide});
  state.gain = gain;
  state.emphasis = emphasis;
  return rest;
}

static void glideOffset(State& state, const Rates& rates, const Targets& targets,
                        double* __restrict offsets, std::int32_t frames) {
  const OffsetGlide glide{static_cast<double>(targets.offset), static_cast<double>(rates.glide)};
  const double step = glide.step(state.offset);
  double offset = state.offset;
  for (std::int32_t i = 0; i < frames; ++i) offsets[i] = offset += step * rates.finePowers[i];
  settle(state.offset, glide, offsets, frames);
}

}  // namespace kernel
