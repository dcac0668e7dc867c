// Stereo test signals, the same on every machine.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

enum class Signal {
  kSilence,
  kImpulse,
  kStep,
  kSine,
  kNoise,
  kDenormals,
  kSteady,
  kHuge,
  kOverflowing
};

// Those whose results stay finite.
constexpr Signal kFiniteSignals[] = {Signal::kSilence, Signal::kImpulse, Signal::kStep,
                                     Signal::kSine,    Signal::kNoise,   Signal::kDenormals,
                                     Signal::kSteady,  Signal::kHuge};

constexpr const char* nameOf(Signal signal) {
  constexpr const char* kNames[] = {"silence",   "impulse", "step", "sine",       "noise",
                                    "denormals", "steady",  "huge", "overflowing"};
  return kNames[static_cast<std::size_t>(signal)];
}

template <typename Sample>
struct Stereo {
  std::vector<Sample> left;
  std::vector<Sample> right;
};

// Evenly spread over -1 .. 1 with all bits a double has; the sequence depends on the seed alone.
class Noise {
 public:
  explicit Noise(std::uint32_t seed) : bits(seed) {}
  double next() { return static_cast<double>(bits() >> 11) * 0x1p-52 - 1.0; }

 private:
  std::mt19937_64 bits;
};

template <typename Sample>
Stereo<Sample> makeSignal(Signal signal, std::size_t frames, std::uint32_t seed = 1) {
  constexpr Sample kTiny = std::numeric_limits<Sample>::denorm_min();
  constexpr Sample kMax = std::numeric_limits<Sample>::max();
  Stereo<Sample> result{std::vector<Sample>(frames), std::vector<Sample>(frames)};
  Noise noise(seed);
  for (std::size_t i = 0; i < frames; ++i) {
    const double time = static_cast<double>(i);
    Sample& left = result.left[i];
    Sample& right = result.right[i];
    switch (signal) {
      case Signal::kSilence:
        break;
      case Signal::kImpulse:  // a new one now and then, of the other sign and place
        left = i % 997 == 3 ? Sample(0.9) : Sample(0);
        right = i % 1499 == 3 ? Sample(-0.7) : Sample(0);
        break;
      case Signal::kStep:
        left = i < frames / 3 ? Sample(0) : Sample(0.8);
        right = i < frames / 2 ? Sample(0.1) : Sample(-0.6);
        break;
      case Signal::kSine:
        left = static_cast<Sample>(0.7 * std::sin(0.031 * time));
        right = static_cast<Sample>(0.6 * std::sin(0.047 * time + 1.0));
        break;
      case Signal::kNoise:
        left = static_cast<Sample>(noise.next());
        right = static_cast<Sample>(noise.next());
        break;
      case Signal::kDenormals:  // and, between them, sounds near the flush constants
        left = static_cast<Sample>(i % 50) * kTiny * (i % 2 == 0 ? Sample(1) : Sample(-1));
        right = i % 7 == 0
                    ? static_cast<Sample>(noise.next() * (sizeof(Sample) == 4 ? 1e-15 : 1e-20))
                    : kTiny;
        break;
      case Signal::kSteady:
        left = Sample(0.5);
        right = Sample(0.25);
        break;
      case Signal::kHuge:  // far above full scale; nothing derived from it leaves the range of a
                           // float
        left = static_cast<Sample>(noise.next() * 1e30);
        right = static_cast<Sample>(noise.next() * 1e30);
        break;
      case Signal::kOverflowing:
        left = static_cast<Sample>(noise.next()) * kMax;
        right = i % 3 == 0 ? -kMax : kMax;
        break;
    }
  }
  return result;
}
