// Reads numbers as people write them, in every locale alike.
#include "editor/controls/typedvalue.h"

#include <algorithm>
#include <cmath>

#include "effect/parameters.h"
#include "platform/defaultfloats.h"

namespace {

constexpr double kWhole = 100.0;  // percent

bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

char lowerLetter(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

void skipBlanks(std::string_view& text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
}

// Takes the word away where the text begins with it, in letters of either case. word: small
// letters.
bool take(std::string_view& text, std::string_view word) {
  const bool begins = text.size() >= word.size() &&
                      std::equal(word.begin(), word.end(), text.begin(),
                                 [](char one, char other) { return one == lowerLetter(other); });
  if (begins) text.remove_prefix(word.size());
  return begins;
}

// Digits with at most one point or comma, and a sign before them. Nothing else, such as "inf" or an
// exponent, is meant by a person at a display. Any number of digits; more than a double holds are
// infinity, which is beyond every range.
std::optional<double> takeNumber(std::string_view& text) {
  const bool negative = take(text, "-");
  if (!negative) take(text, "+");
  double digits = 0;
  double scale = 1;
  int count = 0;
  const auto takeDigits = [&](double perDigit) {
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1), ++count) {
      // further digits than a double tells apart would only let the two grow beyond it
      constexpr double kFull = 1e17;
      if (perDigit != 1 && digits >= kFull) continue;
      digits = digits * 10 + (text.front() - '0');
      scale *= perDigit;
    }
  };
  takeDigits(1);
  if (take(text, ".") || take(text, ",")) takeDigits(10);
  if (count == 0) return std::nullopt;
  return (negative ? -digits : digits) / scale;
}

// The unit's factor where the rest of the text is one that the parameter has, or nothing.
std::optional<double> takeUnit(std::string_view text, Parameter::Unit unit) {
  double factor = 1;
  if (unit == Parameter::Unit::percent) {
    take(text, "%");
  } else if (!take(text, "hz") && take(text, "k")) {
    factor = 1000;
    take(text, "hz");
  }
  skipBlanks(text);
  return text.empty() ? std::optional(factor) : std::nullopt;
}

}  // namespace

std::optional<float> typedValue(const Parameter& parameter, std::string_view text) {
  const DefaultFloats floats;
  skipBlanks(text);
  const auto number = takeNumber(text);
  if (!number) return std::nullopt;
  skipBlanks(text);
  const auto factor = takeUnit(text, parameter.unit);
  if (!factor) return std::nullopt;
  const double typed = floats.of(*number) * *factor;

  const bool asHertz = parameter.unit == Parameter::Unit::hertz;
  const auto shown = [&](float raw) {
    return asHertz ? parameter.derived(raw) : raw * static_cast<float>(kWhole);
  };
  const double wanted =
      std::clamp(typed, static_cast<double>(shown(0.0F)), static_cast<double>(shown(1.0F)));
  float raw = asHertz ? parameter.raw(wanted) : static_cast<float>(wanted / kWhole);
  // Displays show whole numbers here, and cut: a hair less would be the number below.
  const auto whole = static_cast<float>(std::trunc(wanted));
  while (shown(raw) < whole && raw < 1.0F) raw = std::nextafter(raw, 1.0F);
  return raw;
}
