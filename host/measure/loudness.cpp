// How loud a sound is, by EBU R128, and its true peak.
#include "host/measure/loudness.h"

#include <ebur128.h>

#include <algorithm>
#include <cmath>
#include <new>

namespace {

// The interpolation looks so many frames back at most: as many of silence bring its end out.
constexpr std::size_t kInterpolatorFrames = 64;

// Beyond its highest rate the library makes no meter; below 18 Hz it makes one and writes past its
// end, and the weighting means nothing long before.
constexpr int kLowestRate = 1000;      // Hz
constexpr int kHighestRate = 2822400;  // Hz

}  // namespace

struct Loudness::Meter {
  Meter(int channels, int sampleRate)
      : state(ebur128_init(static_cast<unsigned>(channels), static_cast<unsigned long>(sampleRate),
                           EBUR128_MODE_I | EBUR128_MODE_TRUE_PEAK)) {
    if (state == nullptr) throw std::bad_alloc();
  }
  ~Meter() { ebur128_destroy(&state); }
  Meter(const Meter&) = delete;
  Meter& operator=(const Meter&) = delete;

  void add(const std::vector<double>& samples) {
    const std::size_t frames = samples.size() / state->channels;
    if (ebur128_add_frames_double(state, samples.data(), frames) != EBUR128_SUCCESS)
      throw std::bad_alloc();  // there is no other reason
  }

  ebur128_state* state;
};

Loudness::Loudness(int channels, int sampleRate)
    : channelCount(static_cast<std::size_t>(channels)) {
  if (sampleRate >= kLowestRate && sampleRate <= kHighestRate)
    meter = std::make_unique<Meter>(channels, sampleRate);
}

Loudness::~Loudness() = default;
Loudness::Loudness(Loudness&&) noexcept = default;

void Loudness::add(const double* left, const double* right, int frames) {
  if (!meter) return;
  interleaved.resize(static_cast<std::size_t>(frames) * channelCount);
  auto sample = interleaved.begin();
  for (int frame = 0; frame < frames; ++frame) {
    *sample++ = left[frame];
    if (channelCount == 2) *sample++ = right[frame];
  }
  meter->add(interleaved);
}

Loudness::Result Loudness::finish() {
  Result result;
  if (!meter) return result;
  double loudness = 0.0;
  if (ebur128_loudness_global(meter->state, &loudness) == EBUR128_SUCCESS &&
      std::isfinite(loudness))
    result.integrated = loudness;
  // The loudness is known by now: the silence counts for the peak alone.
  meter->add(std::vector<double>(kInterpolatorFrames * channelCount));
  double highest = 0.0;
  for (unsigned channel = 0; channel < channelCount; ++channel) {
    double peak = 0.0;
    if (ebur128_true_peak(meter->state, channel, &peak) == EBUR128_SUCCESS)
      highest = std::max(highest, peak);
  }
  result.truePeak = highest;
  meter.reset();
  return result;
}
