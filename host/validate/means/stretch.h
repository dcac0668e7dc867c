// A stretch of sound that an effect is given, and what it makes of it.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/validate/subject.h"
#include "host/validate/trial.h"

// As many channels as the effect has pins when this is made: after it was switched on, since
// effects find their pins there. Sample: float or double.
template <typename Sample>
class Stretch {
 public:
  Stretch(Subject& subject, int frameCount)
      : frames(frameCount),
        ins(static_cast<std::size_t>(subject.record().numInputs),
            std::vector<Sample>(static_cast<std::size_t>(frameCount))),
        outs(static_cast<std::size_t>(subject.record().numOutputs),
             std::vector<Sample>(static_cast<std::size_t>(frameCount))),
        inTable(ins.size()),
        outTable(outs.size()) {}
  Stretch(const Stretch&) = delete;
  Stretch& operator=(const Stretch&) = delete;

  int length() const { return frames; }  // frames
  int inputs() const { return static_cast<int>(ins.size()); }
  int outputs() const { return static_cast<int>(outs.size()); }
  Sample* in(int pin) { return ins[static_cast<std::size_t>(pin)].data(); }
  Sample* out(int pin) { return outs[static_cast<std::size_t>(pin)].data(); }

  // Both signs up to `peak`, different on every pin; in steps that a float takes.
  void fillWithNoise(Trial& trial, float peak = 0.5F) {
    for (auto& channel : ins) {
      for (Sample& sample : channel)
        sample = static_cast<Sample>(peak * (2.0F * trial.randomUnit() - 1.0F));
    }
  }
  void fill(Sample value) {
    for (auto& channel : ins) std::fill(channel.begin(), channel.end(), value);
  }
  void spoilOutputs(Sample value) {
    for (auto& channel : outs) std::fill(channel.begin(), channel.end(), value);
  }

  // One block of it. The tables of pointers are made here: effects have been seen to change them.
  void play(Subject& subject, int begin, int count) {
    for (std::size_t pin = 0; pin < ins.size(); ++pin) inTable[pin] = ins[pin].data() + begin;
    for (std::size_t pin = 0; pin < outs.size(); ++pin) outTable[pin] = outs[pin].data() + begin;
    subject.host().setPosition(begin);
    subject.process(inTable.data(), outTable.data(), count);
  }
  void playAll(Subject& subject, int block) {
    for (int begin = 0; begin < frames; begin += block)
      play(subject, begin, std::min(block, frames - begin));
  }

  // The first frame of any output that is no number, or -1.
  int firstNotFinite() const {
    for (int frame = 0; frame < frames; ++frame) {
      for (const auto& channel : outs) {
        if (!std::isfinite(channel[static_cast<std::size_t>(frame)])) return frame;
      }
    }
    return -1;
  }
  const std::vector<std::vector<Sample>>& outputChannels() const { return outs; }

 private:
  int frames;
  std::vector<std::vector<Sample>> ins;
  std::vector<std::vector<Sample>> outs;
  std::vector<Sample*> inTable;
  std::vector<Sample*> outTable;
};
