// Builds a number's text the way the displays have always shown it.
#include "effect/numbertext.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/defaultfloats.h"

double round(double x, int digits) {
  const double scale = std::trunc(std::pow(10.0, digits));
  const double scaled = scale * x;
  const double fraction = scaled - std::trunc(scaled);
  const double unit = std::pow(0.1, digits);
  // a hair below one half, for binary fractions
  if (fraction >= 0.49999) return (scaled + 1.0) * unit;
  if (fraction <= -0.49999) return (scaled - 1.0) * unit;
  return x;
}

void float2string2(float value, int digits, char* text) {
  constexpr double kLargest = 99999999.0;   // eight digits
  constexpr double kSmallest = -9999999.0;  // a sign and seven
  constexpr int kCounted = 8;               // characters, the point and the sign among them
  const DefaultFloats floats;
  const double rounded = round(floats.of(value), digits);
  if (std::isnan(rounded) || rounded > kLargest || rounded < kSmallest) return;

  const bool negative = rounded < 0.0;
  const double magnitude = std::fabs(rounded);
  char reversed[kCounted + 1];  // right to left: the point, digits, the sign
  int length = 0;
  reversed[length++] = '.';
  int count = negative ? 3 : 2;  // the units digit and the point, and the sign
  auto whole = static_cast<std::int64_t>(std::floor(magnitude));
  reversed[length++] = static_cast<char>('0' + whole % 10);
  for (whole /= 10; whole >= 1 && count < kCounted; whole /= 10, ++count) {
    reversed[length++] = static_cast<char>('0' + whole % 10);
  }
  if (negative) reversed[length++] = '-';
  while (length > 0) *text++ = reversed[--length];

  const int places = kCounted - count;  // digits there is room for after the point
  const auto fraction =
      static_cast<std::int64_t>(std::fmod(magnitude, 1.0) * std::pow(10.0, places));
  char padded[32];
  std::snprintf(padded, sizeof padded, "%0*lld", places, static_cast<long long>(fraction));
  const int shown = places < digits ? places : digits;
  std::memcpy(text, padded, static_cast<std::size_t>(shown));
  text[shown] = 0;
}
