// The kernel: the order of things in a run of frames. Compiled once for each vector unit, under the
// name that the build gives it.
#include "effect/kernel.h"

#include "effect/glide.h"
#include "effect/kernelforms.h"
#include "effect/kernelsteps.h"

namespace kernel {
namespace {

std::int32_t least(std::int32_t a, std::int32_t b) {
  return a < b ? a : b;
}

// Asks for the places of the line that the first run writes and reads: with many instances in turn
// they are far away, and come all at once only if they are asked for all at once. A few do so by
// themselves.
void fetchLine(const State& state, std::int32_t offset, std::int32_t frames) {
  constexpr std::int32_t kFloatsOfCacheLine = 16;
  constexpr std::int32_t kFew = 4 * kFloatsOfCacheLine;
  if (frames <= kFew) return;
  const float* const written = state.line + nextPlace(state);
  const float* const read = state.line + ((offset + nextPlace(state)) & kLineMask);
  for (std::int32_t i = 0; i < least(frames, kRunFrames); i += kFloatsOfCacheLine) {
    __builtin_prefetch(written + i, 1);
    __builtin_prefetch(read + i, 0);
  }
}

template <typename Sample>
Block<Sample> partOf(const Block<Sample>& block, std::int32_t first, std::int32_t frames) {
  return {block.inL + first, block.inR + first, block.outL + first, block.outR + first, frames};
}

// Whether the delayed samples of a run are the line's own, one after the other: at an offset that
// rests, and so far that the run overwrites none that it reads, nor the one in front of them.
bool delayRests(const State& state, const Targets& targets) {
  return state.offset == targets.offset && clears(targets.offset, 1 + kRunFrames) &&
         goesOn(state, targets.offset);
}

// Whether all glides rest. Where they did in the run before and go nowhere else, they still do.
bool allRests(State& state, const Rates& rates, const Targets& targets) {
  const Targets& at = state.restsAt;
  if (state.rests && at.gain == targets.gain && at.emphasis == targets.emphasis &&
      at.offset == targets.offset)
    return true;
  state.rests = gainsRest(state, rates, targets) && delayRests(state, targets);
  state.restsAt = targets;
  return state.rests;
}

template <typename Sample>
void widenAtRest(State& state, const Rates& rates, const Targets& targets,
                 const Block<Sample>& run) {
  Sample room[kRunFrames];
  const Sample* const mid = takeMids(run, room, state.line + nextPlace(state));
  closeLine(state, run.frames);
  shapeRun(state, rates, pastOf(state, targets.offset, run.frames), Steady<Sample>{state.emphasis},
           Steady<Sample>{targets.sign * state.gain}, mid, run);
}

// Not inlined: it would take registers from what runs at rest.
template <typename Sample>
[[gnu::noinline]] void widenGliding(State& state, const Rates& rates, const Targets& targets,
                                    const Block<Sample>& run) {
  Sample room[kGlidingFrames];
  float gains[kGlidingFrames];
  float emphases[kGlidingFrames];
  glideGains(state, rates, targets, gains, emphases, run.frames);
  if (delayRests(state, targets)) {
    const Sample* const mid = takeMids(run, room, state.line + nextPlace(state));
    closeLine(state, run.frames);
    shapeRun(state, rates, pastOf(state, targets.offset, run.frames), +emphases,
             Signed{gains, targets.sign}, mid, run);
  } else {
    float floats[kGlidingFrames];
    double offsets[kGlidingFrames];
    Sample oneBeforeDelayed[1 + kGlidingFrames];
    Sample* const delayed = oneBeforeDelayed + 1;
    const Sample* const mid = takeMids(run, room, floats);
    glideOffset(state, rates, targets, offsets, run.frames);
    delayMoving(state, floats, offsets, delayed, run.frames);
    delayed[-1] = static_cast<Sample>(state.lastDelayed);
    shapeRun(state, rates, delayed, +emphases, Signed{gains, targets.sign}, mid, run);
  }
}

// The order of operations and the types in here are the definition of the sound: results are the
// same bits for every division into blocks.
template <typename Sample>
void widen(State& state, const Rates& rates, const Targets& targets, const Block<Sample>& block) {
  fetchLine(state, targets.offset, block.frames);
  std::int32_t frames = 0;
  for (std::int32_t done = 0; done < block.frames; done += frames) {
    if (allRests(state, rates, targets)) {
      frames = least(block.frames - done, kRunFrames);
      widenAtRest(state, rates, targets, partOf(block, done, frames));
    } else {
      frames = least(block.frames - done, kGlidingFrames);
      widenGliding(state, rates, targets, partOf(block, done, frames));
    }
  }
}

// Not inlined, as widenGliding.
[[gnu::noinline]] void glideUnheard(State& state, const Rates& rates, const Targets& targets,
                                    std::int32_t frames) {
  float gains[kGlidingFrames];
  float emphases[kGlidingFrames];
  glideGains(state, rates, targets, gains, emphases, frames);
}

template <typename Sample>
void pass(State& state, const Rates& rates, const Targets& targets, const Block<Sample>& block) {
  state.rests = false;  // the line goes on while nothing of it is heard
  std::int32_t frames = 0;
  for (std::int32_t done = 0; done < block.frames; done += frames) {
    const bool steady = gainsRest(state, rates, targets);
    frames = least(block.frames - done, steady ? kRunFrames : kGlidingFrames);
    if (!steady) glideUnheard(state, rates, targets, frames);
    passRun(state, rates, partOf(block, done, frames));
  }
}

}  // namespace

#define TRELVAN_TEXT_OF(name) #name
#define TRELVAN_TEXT(name) TRELVAN_TEXT_OF(name)
const Form TRELVAN_KERNEL = {TRELVAN_TEXT(TRELVAN_KERNEL), widen<float>, widen<double>, pass<float>,
                             pass<double>};

}  // namespace kernel
