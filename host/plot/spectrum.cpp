// The mean power spectrum of a signal of any length.
#include "host/plot/spectrum.h"

#include <kiss_fftr.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

struct Spectrum::Transform {
  kiss_fftr_cfg plan = kiss_fftr_alloc(kSize, 0, nullptr, nullptr);
  Transform() {
    if (plan == nullptr) throw std::bad_alloc();
  }
  ~Transform() { kiss_fftr_free(plan); }
  Transform(const Transform&) = delete;
  Transform& operator=(const Transform&) = delete;
};

// Half a window of silence in front, and as much behind: two windows look at each frame of the
// signal, the first and the last one too.
Spectrum::Spectrum()
    : transform(std::make_unique<Transform>()),
      window(kSize),
      pending(kSize / 2),
      silence(kSize / 2),
      sums{std::vector<double>(kBins)} {
  for (std::size_t i = 0; i < window.size(); ++i) {
    const double phase = 2.0 * std::numbers::pi * static_cast<double>(i) / kSize;
    window[i] = static_cast<float>(0.5 - 0.5 * std::cos(phase));
  }
  pending.reserve(kSize);
}

Spectrum::~Spectrum() = default;
Spectrum::Spectrum(Spectrum&&) noexcept = default;

void Spectrum::add(double sample) {
  pending.push_back(static_cast<float>(sample));
  if (pending.size() < kSize) return;
  analyse(pending, silence, sums);
  pending.erase(pending.begin(), pending.begin() + kSize / 2);
  silence = 0;
}

void Spectrum::analyse(std::span<const float> frames, std::size_t begin, Sums& into) const {
  std::vector<float> windowed(kSize);
  double energy = 0.0;  // of the window where it lies on the signal
  for (std::size_t i = 0; i < frames.size(); ++i) {
    windowed[i] = frames[i] * window[i];
    if (i >= begin) energy += static_cast<double>(window[i]) * window[i];
  }
  into.windows += energy / (0.375 * kSize);  // a whole window's: the mean of sin^4 is 3/8
  std::vector<kiss_fft_cpx> bins(kBins);
  kiss_fftr(transform->plan, windowed.data(), bins.data());
  // A sine of amplitude a on a bin shows as a/2 times the window's sum.
  const double sum = std::accumulate(window.begin(), window.end(), 0.0);
  const double scale = 4.0 / (sum * sum);
  for (std::size_t bin = 0; bin < into.power.size(); ++bin) {
    const double re = bins[bin].r;
    const double im = bins[bin].i;
    into.power[bin] += scale * (re * re + im * im);
  }
}

std::vector<double> Spectrum::power() const {
  Sums all = sums;
  const std::span<const float> rest(pending);
  if (rest.size() > silence) analyse(rest, silence, all);
  if (rest.size() > kSize / 2) analyse(rest.subspan(kSize / 2), 0, all);
  for (double& bin : all.power) bin /= std::max(all.windows, std::numeric_limits<double>::min());
  return all.power;
}
