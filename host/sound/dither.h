// Noise that takes the place of rounding's distortion.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/sound/soundformat.h"

// Whether a format is coarse enough for it: 8, 16 and 24 bits.
bool isDithered(SampleFormat format);

// Triangular noise of up to one step either way, added before a sample is rounded. Left and right
// have it with opposite signs, so that it cancels in (L+R)/2, which stays as near as rounding alone
// leaves it: half a step. The noise is the same in every run, and independent of that of sounds of
// other names. One thread.
class Dither {
 public:
  // format: one that isDithered. name: of the sound.
  Dither(SampleFormat format, std::string_view name);

  // No sample is brought beyond full scale that was not beyond it before.
  void add(double* left, double* right, int frames);

 private:
  double triangular();  // -1 to 1

  double step;
  std::uint64_t state;
};
