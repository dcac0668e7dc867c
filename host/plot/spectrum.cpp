// The mean power spectrum of a signal of any length.
#include "host/plot/spectrum.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <numeric>

namespace {

constexpr std::size_t kWindow = Spectrum::kSize;  // frames
constexpr std::size_t kHop = kWindow / 2;         // from one window's beginning to the next one's
constexpr std::size_t kFour = 4 * kHop;           // from four windows to the next four
constexpr std::size_t kPending = kFour + kHop;    // frames that four windows see

}  // namespace

// Half a window of silence in front, and as much behind: two windows look at each frame of the
// signal, the first and the last one too.
Spectrum::Spectrum()
    : transforms(kWindow),
      window(kWindow),
      energy{0.0},
      pending(kPending),
      filled(kHop),
      silence(kHop),
      sums{std::vector<double>(kBins)} {
  for (std::size_t i = 0; i < window.size(); ++i) {
    const double phase = 2.0 * std::numbers::pi * static_cast<double>(i) / kSize;
    window[i] = static_cast<float>(0.5 - 0.5 * std::cos(phase));
    energy.push_back(energy.back() + static_cast<double>(window[i]) * window[i]);
  }
}

void Spectrum::add(const float* samples, int count) {
  for (auto rest = static_cast<std::size_t>(count); rest > 0;) {
    const std::size_t piece = std::min(rest, kPending - filled);
    std::copy_n(samples, piece, &pending[filled]);
    samples += piece;
    rest -= piece;
    filled += piece;
    if (filled < kPending) continue;
    analyse(pending.data(), silence, kPending, sums);
    std::copy(pending.begin() + kFour, pending.end(), pending.begin());
    filled = kPending - kFour;
    silence = 0;
  }
}

void Spectrum::analyse(const float* frames, std::size_t begin, std::size_t end, Sums& into) const {
  // make_unique would clear it, and its sister that does not is younger than some compilers.
  const std::unique_ptr<FourTransforms::Pair[]> four(new FourTransforms::Pair[kWindow / 2]);
  const auto windowed = [&](std::size_t i) {
    return Four{frames[i], frames[i + kHop], frames[i + 2 * kHop], frames[i + 3 * kHop]} *
           window[i];
  };
  for (std::size_t i = 0; i < kWindow / 2; ++i) four[i] = {windowed(2 * i), windowed(2 * i + 1)};
  transforms.addPowers(four.get(), into.power.data());
  for (std::size_t first = 0; first < kFour; first += kHop) {
    // Where the window lies on the signal.
    const std::size_t from = std::clamp(begin, first, first + kWindow) - first;
    const std::size_t to = std::clamp(end, first, first + kWindow) - first;
    into.windows += (energy[to] - energy[from]) / energy.back();
  }
}

std::vector<double> Spectrum::power() const {
  Sums all = sums;
  std::vector<float> rest(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(filled));
  rest.resize(kFour + kPending);  // silence follows
  analyse(rest.data(), silence, filled, all);
  if (filled > kFour) analyse(&rest[kFour], 0, filled - kFour, all);
  // A sine of amplitude a on a bin shows as a/2 times the window's sum.
  const double sum = std::accumulate(window.begin(), window.end(), 0.0);
  const double scale =
      4.0 / (sum * sum) / std::max(all.windows, std::numeric_limits<double>::min());
  for (double& bin : all.power) bin *= scale;
  return transforms.sorted(all.power);
}
