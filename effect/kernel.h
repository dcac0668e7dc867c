// The kernel, which works on runs of frames: what it keeps, what it is told, and what it does. It
// knows nothing of hosts, channels or parameters.
#pragma once

#include <cstdint>

namespace kernel {

constexpr std::int32_t kLineFrames = 16384;  // of the delay line, a power of two
constexpr std::int32_t kRunFrames = 512;     // worked on at once, at most
constexpr std::int32_t kGlidingFrames = 64;  // the same while something glides

// The line's memory. Its first frames stand once more behind its last one, so that a run is written
// and read in one piece, and its last one stands once more in front of its first one. Frame 1, the
// first that is ever written, begins a cache line: blocks of usual lengths then go on at the
// beginning of one, and no vector that is written lies in two.
struct alignas(64) LineMemory {
  static constexpr std::int32_t kBefore = 15;  // floats: with frame 0, those of one cache line
  float floats[kBefore + kLineFrames + kRunFrames] = {};
  float* line() { return floats + kBefore; }
};
static_assert((LineMemory::kBefore + 1) * sizeof(float) % alignof(LineMemory) == 0);

// What follows from the sample rate.
struct Rates {
  // Of glides: the part of the way to its target that a frame closes, and what is left of a step's
  // length 0, 1, 2 .. frames later, for floats and for doubles.
  float glide = 0.0F;
  float powers[kGlidingFrames] = {};
  double finePowers[kGlidingFrames] = {};

  // Of levels: the part of the way to a frame's magnitude that it closes, and what is left of that
  // .. 2, 1, 0 frames later.
  double level = 0.0;
  alignas(64) double left[kRunFrames] = {};
};

// Where the glides go, and the side's sign: the same throughout a block.
struct Targets {
  float gain;
  float emphasis;
  std::int32_t offset;  // whole frames
  float sign;           // 1 or -1
};

// What lasts from run to run. The audio thread's.
struct State {
  // Where the glides are.
  float gain = 0.0F;  // of the side
  float emphasis = 0.0F;
  double offset = 0.0;  // at which the line is read, in frames from the newest one on, round it

  // The signal's memory.
  float* line = nullptr;     // of somebody else's LineMemory
  std::int32_t newest = 0;   // place of the newest frame in the line
  float lastDelayed = 0.0F;  // float in both precisions

  // Whether the run before was at rest, and at which targets: then the next one need not look.
  bool rests = false;
  Targets restsAt = {};

  // Smoothed levels, for the meter.
  double midLevel = 0.0;
  double sideLevel = 0.0;

  // As after a pause, with a line of silence. Glides and the place in the line stay.
  void clear() {
    lastDelayed = 0.0F;
    rests = false;
    midLevel = sideLevel = 0.0;
  }
};

// Where the channels of one block are; several may be the same buffer. Each frame is read before it
// is written, left is written before right, so a single output ends up with the right channel.
template <typename Sample>
struct Block {
  const Sample* inL;
  const Sample* inR;
  Sample* outL;
  Sample* outR;
  std::int32_t frames;
};

template <typename Sample>
using Process = void(State&, const Rates&, const Targets&, const Block<Sample>&);

// The kernel as it was compiled for one vector unit. The sound has the same bits in all forms; the
// levels may differ in their last ones. Audio thread.
struct Form {
  const char* name;
  Process<float>* widenSingle;
  Process<double>* widenDouble;
  // The input passes; the gains keep gliding and the line keeps filling, so that switching on is
  // smooth.
  Process<float>* passSingle;
  Process<double>* passDouble;

  void widen(State& s, const Rates& r, const Targets& t, const Block<float>& block) const {
    widenSingle(s, r, t, block);
  }
  void widen(State& s, const Rates& r, const Targets& t, const Block<double>& block) const {
    widenDouble(s, r, t, block);
  }
  void pass(State& s, const Rates& r, const Targets& t, const Block<float>& block) const {
    passSingle(s, r, t, block);
  }
  void pass(State& s, const Rates& r, const Targets& t, const Block<double>& block) const {
    passDouble(s, r, t, block);
  }
};

}  // namespace kernel
