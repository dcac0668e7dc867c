// The right channel's own effect, where one effect takes and gives a single channel.
#pragma once

#include <memory>

#include "host/options/arguments.h"
#include "host/vst/blockrunner.h"
#include "host/vst/effect.h"

// Of the same kind and in the same state as the left channel's. One thread.
class RightChannel {
 public:
  // left: started; outlives it. Throws Failure.
  RightChannel(const Effect& left, int sampleRate, const Arguments& arguments,
               bool doublePrecision);

  // frames: 0..the block size, after the left channel's effect had its own. Throws Failure where
  // the two are not equally late, so that the channels would come apart.
  void run(const double* in, double* out, int frames);

  Effect& effect() { return own; }

 private:
  const Effect& left;
  HostCallback callback;
  Effect own;
  std::unique_ptr<BlockRunner> runner;
};
