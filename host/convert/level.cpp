// Which gain brings a result to the level that is asked.
#include "host/convert/level.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/sound/dither.h"

void PeakMeter::add(const double* left, const double* right, int frames) {
  for (int frame = 0; frame < frames; ++frame) {
    most = std::max({most, left[frame], right[frame]});
    least = std::min({least, left[frame], right[frame]});
  }
}

double gainFor(const PeakAim& aim, const PeakMeter& peaks, SampleFormat format, bool dither) {
  const double highest = peaks.highest();
  const double lowest = std::abs(peaks.lowest());
  const double peak = std::max(highest, lowest);
  if (peak < std::numeric_limits<double>::min()) return 1.0;  // what it takes is no number any more
  const bool integer = integerBits(format) != 0;
  const double step = integer ? std::ldexp(1.0, 1 - integerBits(format)) : 0.0;
  const double noise = dither && isDithered(format) ? step : 0.0;
  double gain = aim.peak / peak;
  if (highest > 0.0) gain = std::min(gain, (1.0 - step - noise) / highest);
  if (lowest > 0.0) gain = std::min(gain, (1.0 - noise) / lowest);
  return aim.amplifies ? gain : std::min(gain, 1.0);
}
