// Plays signals through one plug-in, for tests that listen to its outputs.
#pragma once

#include <cstddef>
#include <vector>

#include "effect/trelvan.h"
#include "tests/support/processhost.h"
#include "tests/support/testsignals.h"

inline void processBlock(Trelvan& plugin, float** in, float** out, int frames) {
  plugin.processReplacing(in, out, frames);
}
inline void processBlock(Trelvan& plugin, double** in, double** out, int frames) {
  plugin.processDoubleReplacing(in, out, frames);
}

// In one block; the precision is the signal's.
template <typename Sample>
Stereo<Sample> play(Trelvan& plugin, Stereo<Sample> in) {
  Stereo<Sample> out{std::vector<Sample>(in.left.size()), std::vector<Sample>(in.left.size())};
  Sample* ins[] = {in.left.data(), in.right.data()};
  Sample* outs[] = {out.left.data(), out.right.data()};
  processBlock(plugin, ins, outs, static_cast<int>(in.left.size()));
  return out;
}

template <typename Sample>
Stereo<Sample> steady(Sample value, std::size_t frames) {
  return {std::vector<Sample>(frames, value), std::vector<Sample>(frames, value)};
}

template <typename Sample>
Stereo<Sample> silence(std::size_t frames) {
  return steady(Sample(0), frames);
}

// Both channels: `value` in frame 0, silence after it.
template <typename Sample>
Stereo<Sample> impulse(Sample value, std::size_t frames) {
  Stereo<Sample> signal = silence<Sample>(frames);
  signal.left[0] = signal.right[0] = value;
  return signal;
}

// Half the difference of the outputs: the side signal, exactly for values that leave bits to spare.
template <typename Sample>
std::vector<Sample> sideOf(const Stereo<Sample>& out) {
  std::vector<Sample> side(out.left.size());
  for (std::size_t i = 0; i < side.size(); ++i) side[i] = (out.left[i] - out.right[i]) / 2;
  return side;
}

// An instance with these raw values that has just been resumed, so that nothing glides.
struct Settings {
  float rate = 44100.0F;  // Hz
  float width = 0.5F;     // side gain 0.5, a power of two
  float baseFreq = 1.0F;  // 1000 Hz
  float emphasis = 0.0F;
  float process = 1.0F;
  float phase = 0.0F;
};

inline void configure(Trelvan& plugin, const Settings& settings) {
  plugin.setSampleRate(settings.rate);
  plugin.setParameter(0, settings.width);
  plugin.setParameter(1, settings.baseFreq);
  plugin.setParameter(2, settings.emphasis);
  plugin.setParameter(3, settings.process);
  plugin.setParameter(4, settings.phase);
  plugin.resume();
}

class Player : public Trelvan {
 public:
  explicit Player(const Settings& settings = {}) : Trelvan(processHost) {
    configure(*this, settings);
  }
};
