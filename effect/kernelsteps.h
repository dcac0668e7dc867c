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
static inline const float* takeMids(const float* inL, const float* inR, float*,
                                    float* __restrict floats, std::int32_t frames) {
  for (std::int32_t i = 0; i < frames; ++i) floats[i] = midOf(inL[i], inR[i]);
  return floats;
}
static inline const double* takeMids(const double* inL, const double* inR, double* __restrict room,
                                     float* __restrict floats, std::int32_t frames) {
  for (std::int32_t i = 0; i < frames; ++i) {
    room[i] = midOf(inL[i], inR[i]);
    floats[i] = static_cast<float>(room[i]);
  }
  return room;
}

// Of the frame after the newest one, in the line.
static inline std::int32_t nextPlace(const State& state) {
  return (state.newest + 1) & kLineMask;
}

// Ends the writing of a run, which went on from nextPlace in one piece: what is behind the line's
// end goes to its beginning, and what is at its beginning stands behind its end, too.
static void closeLine(State& state, std::int32_t frames) {
  float* const line = state.line;
  const std::int32_t first = nextPlace(state);
  const std::int32_t end = first + frames;
  if (end > kLineFrames)
    for (std::int32_t i = kLineFrames; i < end; ++i) line[i - kLineFrames] = line[i];
  else if (first < kRunFrames)
    for (std::int32_t i = first; i < end && i < kRunFrames; ++i) line[i + kLineFrames] = line[i];
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

// One value for all frames, where others come from an array.
struct Steady {
  float value;
  float operator[](std::int32_t) const { return value; }
};

// The side of one frame, and what comes out.
template <typename Sample>
static inline void shapeFrame(Sample delayed, float previous, float emphasis, float gain,
                              Sample mid, Sample& side, Sample& outL, Sample& outR) {
  const Sample tap = static_cast<Sample>(previous) * static_cast<Sample>(emphasis);
  const Sample shaped = flushed((delayed - tap) * static_cast<Sample>(gain));
  side = shaped;
  outL = mid + shaped;
  outR = mid - shaped;
}

// The same of a run. The first frame's tap is of the run before, and so is delayed[-1], unless the
// delay has jumped: then that frame is done again.
template <typename Sample, typename Delayed, typename Values>
static void shapeRun(State& state, float sign, Delayed delayed, Values emphases, Values gains,
                     const Sample* mid, Sample* __restrict side, Sample* __restrict outL,
                     Sample* __restrict outR, std::int32_t frames) {
  for (std::int32_t i = 0; i < frames; ++i)
    shapeFrame(static_cast<Sample>(delayed[i]), static_cast<float>(delayed[i - 1]), emphases[i],
               sign * gains[i], mid[i], side[i], outL[i], outR[i]);
  if (static_cast<float>(delayed[-1]) != state.lastDelayed)
    shapeFrame(static_cast<Sample>(delayed[0]), state.lastDelayed, emphases[0], sign * gains[0],
               mid[0], side[0], outL[0], outR[0]);
  state.lastDelayed = static_cast<float>(delayed[frames - 1]);
}

template <typename Sample>
static void copy(const Sample* from, Sample* to, std::int32_t frames) {
  if (from == to) return;
  for (std::int32_t i = 0; i < frames; ++i) to[i] = from[i];
}

// The inputs to the outputs. spare: room for a run, where left would be written over right.
template <typename Sample>
static void passRun(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, Sample* spare,
                    std::int32_t frames) {
  if (outL == inR) {
    copy(inR, spare, frames);
    inR = spare;
  }
  copy(inL, outL, frames);
  copy(inR, outR, frames);
}

// What is left of a level after a run of silence.
static inline double faded(const Rates& rates, double level, std::int32_t frames) {
  for (; frames >= kFadeFrames; frames -= kFadeFrames) level *= rates.left[kFadeFrames];
  return level * rates.left[frames];
}

// As many sums side by side as the registers hold together with what is made of the samples, which
// takes more of them where singles become doubles.
constexpr bool kWideRegisters = __BIGGEST_ALIGNMENT__ > 16;  // bytes
template <typename Sample>
constexpr std::int32_t kLanes = kWideRegisters || sizeof(Sample) > 4 ? 16 : 8;
static_assert(kLanes<double> <= kMostLanes);

// The sums of a run of whole rows, one for each place in a row, so that none waits for another. Not
// inlined: compilers make vectors of sums that all go to memory, and hardly of others.
template <typename Sample>
[[gnu::noinline]] static void fillLanes(double* __restrict lanes, double left, const Sample* run,
                                        std::int32_t frames) {
  constexpr std::int32_t kRow = kLanes<Sample>;
  for (std::int32_t lane = 0; lane < kRow; ++lane) lanes[lane] = 0.0;
  for (const Sample* row = run; row < run + frames; row += kRow)
    for (std::int32_t lane = 0; lane < kRow; ++lane)
      lanes[lane] = lanes[lane] * left + static_cast<double>(magnitude(row[lane]));
}

// A level after a run. First come the frames that do not make a row. Not inlined: it would take
// registers from the loops of the sound.
template <typename Sample>
[[gnu::noinline]] static double heard(const Rates& rates, double level, const Sample* run,
                                      std::int32_t frames) {
  constexpr std::int32_t kRow = kLanes<Sample>;
  const double* const weights = rates.weights + kMostLanes - kRow;
  level = faded(rates, level, frames);
  const std::int32_t odd = frames % kRow;
  if (odd > 0) {
    double sum = 0.0;
    for (std::int32_t i = 0; i < odd; ++i)
      sum += weights[kRow - odd + i] * static_cast<double>(magnitude(run[i]));
    level += faded(rates, sum, frames - odd);
  }
  double lanes[kRow];
  fillLanes(lanes, rates.left[kRow], run + odd, frames - odd);
  double sums[4] = {};
  for (std::int32_t row = 0; row < kRow; row += 4)
    for (std::int32_t i = 0; i < 4; ++i) sums[i] += lanes[row + i] * weights[row + i];
  return flushed(level + ((sums[0] + sums[2]) + (sums[1] + sums[3])));
}

}  // namespace kernel
