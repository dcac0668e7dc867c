// The steps of the kernel, one function each: loops over a run that compilers turn into vectors.
#pragma once

#include "effect/glide.h"
#include "effect/kernel.h"

// All of it is static and calls nothing of the standard library: a function that several forms of
// the kernel shared would be linked in one of them for all.
namespace kernel {

constexpr std::int32_t kLineMask = kLineFrames - 1;

template <typename Sample>
static inline Sample midOf(Sample left, Sample right) {
  return flushed((left + right) * static_cast<Sample>(0.5));
}

// The mids of a run, and the floats that the line holds of them: in single precision the same ones,
// so they are written once. Returns where the mids are; room: for those of double precision.
static inline const float* takeMids(const Block<float>& run, float*, float* __restrict floats) {
  for (std::int32_t i = 0; i < run.frames; ++i) floats[i] = midOf(run.inL[i], run.inR[i]);
  return floats;
}
static inline const double* takeMids(const Block<double>& run, double* __restrict room,
                                     float* __restrict floats) {
  for (std::int32_t i = 0; i < run.frames; ++i) {
    room[i] = midOf(run.inL[i], run.inR[i]);
    floats[i] = static_cast<float>(room[i]);
  }
  return room;
}

// Of the frame after the newest one, in the line.
static inline std::int32_t nextPlace(const State& state) {
  return (state.newest + 1) & kLineMask;
}

// Copies what stands twice in the line: its beginning behind its end, and its last frame in front
// of its first one. Not inlined: seldom needed.
[[gnu::noinline]] static void copyAround(float* line, std::int32_t first, std::int32_t end) {
  if (end >= kLineFrames) {
    line[-1] = line[kLineFrames - 1];
    for (std::int32_t i = kLineFrames; i < end; ++i) line[i - kLineFrames] = line[i];
  } else {
    const std::int32_t last = end < kRunFrames ? end : kRunFrames;
    for (std::int32_t i = first; i < last; ++i) line[i + kLineFrames] = line[i];
  }
}

// Ends the writing of a run, which went on from nextPlace in one piece, also over the line's end.
static inline void closeLine(State& state, std::int32_t frames) {
  const std::int32_t first = nextPlace(state);
  const std::int32_t end = first + frames;
  if (end >= kLineFrames || first < kRunFrames) copyAround(state.line, first, end);
  state.newest = (state.newest + frames) & kLineMask;
}

// Whether a run may be written whole before it is read: at an offset so far that none of its frames
// takes the place of one that an earlier frame of it still reads.
static inline bool clears(std::int32_t offset, std::int32_t frames) {
  return (offset & kLineMask) >= frames;
}

// The delayed samples of the run that was written last, in the line itself, at an offset that has
// no fraction. What that leaves of the next sample is nothing, unless that is no number.
struct Past {
  const float* samples;
  float operator[](std::int32_t i) const { return samples[i] + 0.0F * samples[i + 1]; }
};
static inline Past pastOf(const State& state, std::int32_t offset, std::int32_t frames) {
  return {state.line + ((offset + nextPlace(state) - frames) & kLineMask)};
}

// Whether the delayed sample before a run is the one that was heard last: the run's first tap is
// then in the line, as all others are.
static inline bool goesOn(const State& state, std::int32_t offset) {
  return pastOf(state, offset, 0)[-1] == state.lastDelayed;
}

// The delayed sample of the frame at `place`, with linear interpolation.
static inline double delayedAt(const float* line, double offset, std::int32_t place) {
  const auto whole = static_cast<std::int32_t>(offset);
  const double fraction = offset - whole;
  const float* const here = line + ((whole + place) & kLineMask);
  return (1.0 - fraction) * static_cast<double>(here[0]) + fraction * static_cast<double>(here[1]);
}

// Writes a run and then reads it, or frame after frame where the offsets do not clear it.
template <typename Sample>
static void delayMoving(State& state, const float* floats, const double* offsets,
                        Sample* __restrict delayed, std::int32_t frames) {
  // Seen from both ends, with room for the way between them: never round the line's end.
  constexpr std::int32_t kClear = 2 * kGlidingFrames;
  float* const line = state.line;
  const std::int32_t first = nextPlace(state);
  if (clears(static_cast<std::int32_t>(offsets[0]), kClear) &&
      clears(static_cast<std::int32_t>(offsets[frames - 1]), kClear)) {
    for (std::int32_t i = 0; i < frames; ++i) line[first + i] = floats[i];
    closeLine(state, frames);
    for (std::int32_t i = 0; i < frames; ++i)
      delayed[i] = static_cast<Sample>(delayedAt(line, offsets[i], first + i));
  } else {
    for (std::int32_t i = 0; i < frames; ++i) {
      line[nextPlace(state)] = floats[i];
      closeLine(state, 1);
      delayed[i] = static_cast<Sample>(delayedAt(line, offsets[i], first + i));
    }
  }
}

// One value for all frames, and values with the side's sign.
template <typename Sample>
struct Steady {
  Sample value;
  Sample operator[](std::int32_t) const { return value; }
};
struct Signed {
  const float* values;
  float sign;
  float operator[](std::int32_t i) const { return sign * values[i]; }
};

// The side of one frame. previous: delayed, and a float in both precisions.
template <typename Sample>
static inline Sample sideOf(Sample delayed, float previous, Sample emphasis, Sample gain) {
  const Sample tap = static_cast<Sample>(previous) * emphasis;
  return flushed((delayed - tap) * gain);
}

// What is left of each frame's part in a level at the end of a run.
static inline const double* leftOf(const Rates& rates, std::int32_t frames) {
  return rates.left + kRunFrames - frames;
}

// A level after a run. heard: the run's magnitudes, each by what is left of it at the run's end.
static inline double levelAfter(const Rates& rates, double level, double heard,
                                std::int32_t frames) {
  const double faded = leftOf(rates, frames)[0] * rates.left[kRunFrames - 2];  // one frame more
  return flushed(level * faded + rates.level * heard);
}

// The side of a run, what comes out, and what the levels hear of it; delayed[-1] is of the frame
// before. The compiler is told that no frame waits for another, whatever is the same buffer, and
// that the levels may be summed up in any order; the sound has the same bits in each.
template <typename Sample, typename Delayed, typename Emphases, typename Gains>
static void shapeRun(State& state, const Rates& rates, Delayed delayed, Emphases emphases,
                     Gains gains, const Sample* mid, const Block<Sample>& run) {
  const std::int32_t frames = run.frames;
  const double* const left = leftOf(rates, frames);
  Sample* const outL = run.outL;
  Sample* const outR = run.outR;
  double mids = 0.0;
  double sides = 0.0;
#pragma omp simd reduction(+ : mids, sides)
  for (std::int32_t i = 0; i < frames; ++i) {
    const Sample middle = mid[i];
    const Sample side = sideOf(static_cast<Sample>(delayed[i]), static_cast<float>(delayed[i - 1]),
                               static_cast<Sample>(emphases[i]), static_cast<Sample>(gains[i]));
    mids += left[i] * static_cast<double>(magnitude(middle));
    sides += left[i] * static_cast<double>(magnitude(side));
    outL[i] = middle + side;
    outR[i] = middle - side;
  }
  state.lastDelayed = static_cast<float>(delayed[frames - 1]);
  state.midLevel = levelAfter(rates, state.midLevel, mids, frames);
  state.sideLevel = levelAfter(rates, state.sideLevel, sides, frames);
}

// The inputs to the outputs, the mids to the line and the level, likewise.
template <typename Sample>
static void passRun(State& state, const Rates& rates, const Block<Sample>& run) {
  const std::int32_t frames = run.frames;
  const double* const left = leftOf(rates, frames);
  const Sample* const inL = run.inL;
  const Sample* const inR = run.inR;
  Sample* const outL = run.outL;
  Sample* const outR = run.outR;
  float* const floats = state.line + nextPlace(state);
  double mids = 0.0;
#pragma omp simd reduction(+ : mids)
  for (std::int32_t i = 0; i < frames; ++i) {
    const Sample inputL = inL[i];
    const Sample inputR = inR[i];
    const Sample mid = midOf(inputL, inputR);
    floats[i] = static_cast<float>(mid);
    mids += left[i] * static_cast<double>(magnitude(mid));
    outL[i] = inputL;
    outR[i] = inputR;
  }
  closeLine(state, frames);
  state.midLevel = levelAfter(rates, state.midLevel, mids, frames);
  state.sideLevel = levelAfter(rates, state.sideLevel, 0.0, frames);
}

}  // namespace kernel
