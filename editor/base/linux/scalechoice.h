// Chooses the window's scale from what the host, the desktop and the environment say.
#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

// Pictures and one-pixel lines stand a quarter; finer steps only blur them.
inline double nearestScale(double wanted) {
  constexpr double kSteps = 4;  // in 1
  constexpr double kSmallest = 1;
  constexpr double kLargest = 4;
  return std::clamp(std::round(wanted * kSteps) / kSteps, kSmallest, kLargest);
}

// None where a host has given no scale, or a number that is none.
inline std::optional<double> wantedScale(double wanted) {
  if (!std::isfinite(wanted) || wanted <= 0) return {};
  return nearestScale(wanted);
}

// dpi: dots an inch of texts, 96 for a scale of 1. factor: GDK_SCALE of the environment, null where
// it is not set, which counts where the desktop says nothing. 1 where nobody says anything.
inline double chosenScale(std::optional<double> dpi, const char* factor) {
  constexpr double kUnscaled = 96;
  if (dpi) return nearestScale(*dpi / kUnscaled);
  const std::string_view text(factor != nullptr ? factor : "");
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = read.ec == std::errc() && read.ptr == text.data() + text.size();
  return isNumber && std::isfinite(number) ? nearestScale(number) : 1;
}
