// The mean power spectrum of a signal of any length.
#include "host/plot/spectrum.h"

#include <kiss_fftr.h>

#include <cmath>
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

Spectrum::Spectrum() : transform(std::make_unique<Transform>()), window(kSize), sums(kBins) {
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
  analyse(pending, sums);
  ++windows;
  pending.erase(pending.begin(), pending.begin() + kSize / 2);
}

void Spectrum::analyse(const std::vector<float>& frames, std::vector<double>& into) const {
  std::vector<float> windowed(kSize);
  for (std::size_t i = 0; i < frames.size(); ++i) windowed[i] = frames[i] * window[i];
  std::vector<kiss_fft_cpx> bins(kBins);
  kiss_fftr(transform->plan, windowed.data(), bins.data());
  // A sine of amplitude a on a bin shows as a/2 times the window's sum.
  const double sum = std::accumulate(window.begin(), window.end(), 0.0);
  const double scale = 4.0 / (sum * sum);
  for (std::size_t bin = 0; bin < into.size(); ++bin) {
    const double re = bins[bin].r;
    const double im = bins[bin].i;
    into[bin] += scale * (re * re + im * im);
  }
}

std::vector<double> Spectrum::power() const {
  std::vector<double> mean = sums;
  if (windows == 0) {
    analyse(pending, mean);
    return mean;
  }
  for (double& bin : mean) bin /= static_cast<double>(windows);
  return mean;
}
