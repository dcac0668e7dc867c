// The documents of --json.
#include "host/cli/json.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>

std::string documentText(const Json& document) {
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json numberOf(float value) {
  if (value == std::trunc(value)) return static_cast<double>(value);
  // Older Macs' library has no std::to_chars for these. In any locale, as both ways are the same
  // one's.
  std::array<char, 64> text{};  // more than any single has
  for (int digits = 1; digits <= FLT_DECIMAL_DIG; ++digits) {
    std::snprintf(text.data(), text.size(), "%.*g", digits, static_cast<double>(value));
    if (std::strtof(text.data(), nullptr) == value) break;
  }
  return std::strtod(text.data(), nullptr);
}

Json decibelsOf(double magnitude) {
  if (!(magnitude > 0.0)) return nullptr;
  const double thousandths = std::round(20.0 * std::log10(magnitude) * 1000.0);
  return thousandths == 0.0 ? 0.0 : thousandths / 1000.0;  // never "-0.0"
}
