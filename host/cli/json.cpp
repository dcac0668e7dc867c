// The documents of --json.
#include "host/cli/json.h"

#include <array>
#include <charconv>
#include <cmath>

std::string documentText(const Json& document) {
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json numberOf(float value) {
  std::array<char, 64> digits{};  // more than any single has
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  double number = 0.0;
  std::from_chars(digits.data(), written.ptr, number);
  return number;
}

Json decibelsOf(double magnitude) {
  if (!(magnitude > 0.0)) return nullptr;
  const double thousandths = std::round(20.0 * std::log10(magnitude) * 1000.0);
  return thousandths == 0.0 ? 0.0 : thousandths / 1000.0;  // never "-0.0"
}
