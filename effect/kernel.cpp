// The kernel: the order of things in a run of frames. Compiled once for each vector unit, under the
// name that the build gives it.
#include "effect/kernel.h"

#include "effect/glide.h"
#include "effect/kernelforms.h"
#include "effect/kernelsteps.h"

namespace kernel {
namespace {

// What a run needs for itself. In front of the delayed samples there is room for one that is read.
template <typename Sample>
struct Room {
  Sample mid[kRunFrames];
  Sample side[kRunFrames];
  Sample oneBeforeDelayed[1 + kGlidingFrames];
  Sample spare[kRunFrames];  // left, where only right comes out
  float floats[kGlidingFrames];
  float gains[kGlidingFrames];
  float emphases[kGlidingFrames];
  double offsets[kGlidingFrames];

  Sample* delayed() { return oneBeforeDelayed + 1; }
};

std::int32_t least(std::int32_t a, std::int32_t b) {
  return a < b ? a : b;
}

// Asks for the places of the line that the first run writes and reads: with many instances in turn
// they are far away, and come all at once only if they are asked for all at once.
void fetchLine(const State& state, std::int32_t offset, std::int32_t frames) {
  constexpr std::int32_t kFloatsOfCacheLine = 16;
  const float* const written = state.line + nextPlace(state);
  const float* const read = state.line + ((offset + nextPlace(state)) & kLineMask);
  for (std::int32_t i = 0; i < least(frames, kRunFrames); i += kFloatsOfCacheLine) {
    __builtin_prefetch(written + i, 1);
    __builtin_prefetch(read + i, 0);
  }
}

// The order of operations and the types in here are the definition of the sound: results are the
// same bits for every division into blocks.
template <typename Sample>
void widen(State& state, const Rates& rates, const Targets& targets, const Block<Sample>& block) {
  Room<Sample> room;
  Sample* const side = room.side;
  Sample* const delayed = room.delayed();
  const float sign = targets.sign;
  fetchLine(state, targets.offset, block.frames);
  std::int32_t frames = 0;
  for (std::int32_t done = 0; done < block.frames; done += frames) {
    const bool steady = gainsRest(state, rates, targets);
    const bool still = state.offset == targets.offset && clears(targets.offset, kRunFrames);
    frames = least(block.frames - done, steady && still ? kRunFrames : kGlidingFrames);
    Sample* const outR = block.outR + done;
    Sample* const outL = block.outL == block.outR ? room.spare : block.outL + done;

    float* const written = still ? state.line + nextPlace(state) : room.floats;
    const Sample* const mid =
        takeMids(block.inL + done, block.inR + done, room.mid, written, frames);
    if (still) closeLine(state, frames);
    if (steady && still) {
      const Past past = pastOf(state, targets.offset, frames);
      shapeRun(state, sign, past, Steady{state.emphasis}, Steady{state.gain}, mid, side, outL, outR,
               frames);
    } else if (still) {
      const Past past = pastOf(state, targets.offset, frames);
      glideGains(state, rates, targets, room.gains, room.emphases, frames);
      shapeRun(state, sign, past, +room.emphases, +room.gains, mid, side, outL, outR, frames);
    } else {
      glideGains(state, rates, targets, room.gains, room.emphases, frames);
      glideOffset(state, rates, targets, room.offsets, frames);
      delayMoving(state, room.floats, room.offsets, delayed, frames);
      delayed[-1] = static_cast<Sample>(state.lastDelayed);
      shapeRun(state, sign, delayed, +room.emphases, +room.gains, mid, side, outL, outR, frames);
    }
    state.midLevel = heard(rates, state.midLevel, mid, frames);
    state.sideLevel = heard(rates, state.sideLevel, side, frames);
  }
}

template <typename Sample>
void pass(State& state, const Rates& rates, const Targets& targets, const Block<Sample>& block) {
  Room<Sample> room;
  std::int32_t frames = 0;
  for (std::int32_t done = 0; done < block.frames; done += frames) {
    const bool steady = gainsRest(state, rates, targets);
    frames = least(block.frames - done, steady ? kRunFrames : kGlidingFrames);
    const Sample* const inL = block.inL + done;
    const Sample* const inR = block.inR + done;

    const Sample* const mid = takeMids(inL, inR, room.mid, state.line + nextPlace(state), frames);
    closeLine(state, frames);
    if (!steady) glideGains(state, rates, targets, room.gains, room.emphases, frames);
    passRun(inL, inR, block.outL + done, block.outR + done, room.spare, frames);
    state.midLevel = heard(rates, state.midLevel, mid, frames);
    state.sideLevel = flushed(faded(rates, state.sideLevel, frames));
  }
}

}  // namespace

#define TRELVAN_TEXT_OF(name) #name
#define TRELVAN_TEXT(name) TRELVAN_TEXT_OF(name)
const Form TRELVAN_KERNEL = {TRELVAN_TEXT(TRELVAN_KERNEL), widen<float>, widen<double>, pass<float>,
                             pass<double>};

}  // namespace kernel
