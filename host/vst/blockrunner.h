// Takes blocks of stereo doubles through an effect in the precision that it is run in.
#pragma once

#include <memory>
#include <vector>

#include "host/vst/alignedbuffer.h"
#include "host/vst/effect.h"

// Pins beyond the first two get silence in and are not listened to. An effect with one input gets
// the left channel, and one output is heard on both sides. One thread. The effect has been
// started before and outlives the runner.
class BlockRunner {
 public:
  virtual ~BlockRunner() = default;

  // frames: 0..the block size. The outputs may be the inputs.
  virtual void run(const double* left, const double* right, double* outLeft, double* outRight,
                   int frames) = 0;

  static std::unique_ptr<BlockRunner> make(Effect& effect, int blockSize, bool doublePrecision);
};
