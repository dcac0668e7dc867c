// Noise that takes the place of rounding's distortion.
#include "host/sound/dither.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostBits = 24;  // finer steps are below what any sound or ear resolves

// FNV-1a: the same on every machine, which std::hash is not.
std::uint64_t hashOf(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char letter : text) {
    hash ^= static_cast<unsigned char>(letter);
    hash *= 0x100000001B3;
  }
  return hash;
}

// What of the noise the sample has room for; highest: that the format holds.
double fitting(double noise, double sample, double highest) {
  return std::clamp(noise, std::min(-1.0 - sample, 0.0), std::max(highest - sample, 0.0));
}

}  // namespace

bool isDithered(SampleFormat format) {
  return integerBits(format) != 0 && integerBits(format) <= kMostBits;
}

Dither::Dither(SampleFormat format, std::string_view name)
    : step(std::ldexp(1.0, 1 - integerBits(format))), state(hashOf(name)) {}

// SplitMix64: one number gives both of the even ones whose difference is triangular.
double Dither::triangular() {
  state += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = state;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EB;
  mixed ^= mixed >> 31U;
  constexpr double kSmallest = 1.0 / 4294967296.0;  // 2^-32: half of the number's bits each
  const auto high = static_cast<double>(mixed >> 32U);
  const auto low = static_cast<double>(mixed & 0xFFFFFFFFU);
  return (high - low) * kSmallest;
}

void Dither::add(double* left, double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) {
    const double highest = 1.0 - step;
    const double room = fitting(step * triangular(), left[frame], highest);
    const double noise = -fitting(-room, right[frame], highest);  // the same in both
    left[frame] += noise;
    right[frame] -= noise;
  }
}
