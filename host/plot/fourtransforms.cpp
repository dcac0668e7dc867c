// The power spectra of four signals at a time.
#include "host/plot/fourtransforms.h"

#include <cmath>
#include <numbers>

namespace {

using Pair = FourTransforms::Pair;

Pair operator+(const Pair& a, const Pair& b) {
  return {a.re + b.re, a.im + b.im};
}
Pair operator-(const Pair& a, const Pair& b) {
  return {a.re - b.re, a.im - b.im};
}
Pair byMinusI(const Pair& value) {
  return {value.im, -value.re};
}
double powerOf(const Pair& value) {
  const Four squares = value.re * value.re + value.im * value.im;
  return (squares[0] + squares[1]) + (squares[2] + squares[3]);
}

}  // namespace

Pair FourTransforms::product(const Pair& value, const Factor& by) {
  return {value.re * by.re - value.im * by.im, value.re * by.im + value.im * by.re};
}

FourTransforms::FourTransforms(std::size_t length) : half(length / 2), bins(half) {
  const auto factor = [](std::size_t k, std::size_t count) {
    const double angle =
        -2.0 * std::numbers::pi * static_cast<double>(k) / static_cast<double>(count);
    return Factor{static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle))};
  };
  for (std::size_t count = half; count >= 4; count /= 4) {
    for (std::size_t k = 0; k < count / 4; ++k)
      twiddles.push_back({factor(k, count), factor(2 * k, count), factor(3 * k, count)});
  }
  // Each pass sorts by the remainder of four, the last one by that of two where two are left.
  std::vector<std::uint32_t> places(half);
  for (std::size_t bin = 0; bin < half; ++bin) {
    std::size_t rest = bin;
    std::size_t place = 0;
    for (std::size_t count = half; count > 1; count /= 4, rest /= 4)
      place += count == 2 ? rest : rest % 4 * (count / 4);
    places[bin] = static_cast<std::uint32_t>(place);
    bins[place] = bin;
  }
  for (std::uint32_t place = 1; place < half; ++place) {
    const std::uint32_t mirror = places[half - bins[place]];
    if (place <= mirror) mirrors.push_back({place, mirror, factor(bins[place], length)});
  }
}

// Depth first: a quarter is finished while it is in the fast memory.
void FourTransforms::transform(Pair* values, std::size_t count, const Twiddles* factors) {
  if (count == 2) {
    const Pair sum = values[0] + values[1];
    values[1] = values[0] - values[1];
    values[0] = sum;
  }
  if (count < 4) return;
  const std::size_t quarter = count / 4;
  Pair* const a = values;
  Pair* const b = a + quarter;
  Pair* const c = b + quarter;
  Pair* const d = c + quarter;
  for (std::size_t k = 0; k < quarter; ++k) {
    const Pair even = a[k] + c[k];
    const Pair evenDifference = a[k] - c[k];
    const Pair odd = b[k] + d[k];
    const Pair oddDifference = byMinusI(b[k] - d[k]);
    a[k] = even + odd;
    b[k] = product(evenDifference + oddDifference, factors[k].first);
    c[k] = product(even - odd, factors[k].second);
    d[k] = product(evenDifference - oddDifference, factors[k].third);
  }
  for (Pair* part : {a, b, c, d}) transform(part, quarter, factors + quarter);
}

// Even and odd frames are real and imaginary part of half as many values; the sum and the
// difference of a bin and its mirror image part them again.
void FourTransforms::addPowers(Pair* signals, double* sums) const {
  transform(signals, half, twiddles.data());
  const Pair& zero = signals[0];
  sums[0] += powerOf(Pair{zero.re + zero.im, Four{}});
  sums[half] += powerOf(Pair{zero.re - zero.im, Four{}});
  for (const Mirror& at : mirrors) {
    const Pair& bin = signals[at.place];
    const Pair& mirror = signals[at.mirror];
    const Pair even = {bin.re + mirror.re, bin.im - mirror.im};
    const Pair odd = {bin.re - mirror.re, bin.im + mirror.im};
    const Pair turned = product(byMinusI(odd), at.turn);
    constexpr double kQuarter = 0.25;  // both are twice too large
    sums[at.place] += kQuarter * powerOf(even + turned);
    if (at.place != at.mirror) sums[at.mirror] += kQuarter * powerOf(even - turned);
  }
}

std::vector<double> FourTransforms::sorted(const std::vector<double>& sums) const {
  std::vector<double> byFrequency(half + 1);
  for (std::size_t place = 0; place < half; ++place) byFrequency[bins[place]] = sums[place];
  byFrequency[half] = sums[half];
  return byFrequency;
}
