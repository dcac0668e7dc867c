// The right channel's own effect, where one effect takes and gives a single channel.
#include "host/convert/rightchannel.h"

#include "host/state/effectstate.h"

RightChannel::RightChannel(const Effect& leftEffect, int sampleRate, const Arguments& arguments,
                           bool doublePrecision)
    : left(leftEffect), own(leftEffect.home(), callback) {
  own.setUp(sampleRate, arguments.blockSize);
  applyState(own, arguments.state);
  own.start(doublePrecision);
  runner = BlockRunner::make(own, arguments.blockSize, doublePrecision);
}

void RightChannel::run(const double* in, double* out, int frames) {
  runner->run(in, in, out, out, frames);
  if (own.latency() == left.latency()) return;
  throw Failure(own.plugin() + ": the effect is " + std::to_string(left.latency()) +
                " frames late on the left and " + std::to_string(own.latency()) + " on the right");
}
