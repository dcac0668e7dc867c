// Values as a person types them.
#include "host/state/values.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <locale>
#include <sstream>

#include "effect/parameters.h"
#include "host/base/failure.h"
#include "host/base/text.h"

namespace {

constexpr double kLowestLevel = -60.0;  // dB
constexpr double kLongestTail = 3600;   // s

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

[[noreturn]] void refuse(std::string_view option, std::string_view text,
                         const std::string& wanted) {
  throw UsageFailure(std::string(option) + ": \"" + std::string(text) + "\" is not " + wanted);
}

bool isNormalised(double value) {
  return value >= 0.0 && value <= 1.0;
}

// "75%" and 0.75 alike; none with another unit.
std::optional<double> fractionOf(const NumberWithUnit& typed) {
  if (typed.unit == "%") return typed.number / 100.0;
  return typed.unit.empty() ? std::optional(typed.number) : std::nullopt;
}

std::optional<float> readSwitch(std::string_view text) {
  const std::string word = lowerCase(trimmed(text));
  if (word == "on" || word == "yes" || word == "true") return 1.0F;
  if (word == "off" || word == "no" || word == "false") return 0.0F;
  return std::nullopt;
}

}  // namespace

std::optional<NumberWithUnit> readNumber(std::string_view text) {
  text = trimmed(text);
  std::size_t end = 0;
  const auto digits = [&] {
    const std::size_t first = end;
    while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])) != 0) ++end;
    return end - first;
  };
  if (end < text.size() && (text[end] == '-' || text[end] == '+')) ++end;
  std::size_t count = digits();
  if (end < text.size() && text[end] == '.') {
    ++end;
    count += digits();
  }
  if (count == 0) return std::nullopt;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    const std::size_t mantissa = end++;
    if (end < text.size() && (text[end] == '-' || text[end] == '+')) ++end;
    if (digits() == 0) end = mantissa;  // a unit that begins with an e
  }
  // An effect may have set a locale in which the separator is a comma.
  std::istringstream digitsAlone{std::string(text.substr(0, end))};
  digitsAlone.imbue(std::locale::classic());
  double number = 0.0;
  if (!(digitsAlone >> number) || !std::isfinite(number)) return std::nullopt;
  return NumberWithUnit{number, lowerCase(trimmed(text.substr(end)))};
}

float parseNormalised(std::string_view option, std::string_view text) {
  const auto read = readNumber(text);
  if (!read || !read->unit.empty() || !isNormalised(read->number))
    refuse(option, text, "a number from 0 to 1");
  return static_cast<float>(read->number);
}

float parsePercent(std::string_view option, std::string_view text) {
  const auto read = readNumber(text);
  const auto value = read ? fractionOf(*read) : std::nullopt;
  if (!value) refuse(option, text, "a value like 75% or 0.75");
  if (!isNormalised(*value)) {
    refuse(option, text,
           read->unit == "%" ? "within 0% to 100%" : "within 0 to 1 (write 75% for per cent)");
  }
  return static_cast<float>(*value);
}

float parseBaseFrequency(std::string_view option, std::string_view text) {
  const auto read = readNumber(text);
  static constexpr std::array<std::string_view, 3> kUnits = {"", "hz", "khz"};
  if (!read || std::find(kUnits.begin(), kUnits.end(), read->unit) == kUnits.end()) {
    refuse(option, text, "a frequency like 265Hz or 0.265kHz");
  }
  if (read->unit.empty() && isNormalised(read->number)) return static_cast<float>(read->number);
  const double hertz = read->unit == "khz" ? read->number * 1000.0 : read->number;
  const Parameter& frequency = parameterAt(kBaseFreqIndex);
  const double lowest = frequency.derived(0.0F);
  const double highest = frequency.derived(1.0F);
  if (!(hertz >= lowest && hertz <= highest)) {
    refuse(option, text, formatted("within %gHz to %gHz", lowest, highest));
  }
  return frequency.raw(hertz);
}

float parseSwitch(std::string_view option, std::string_view text) {
  if (const auto value = readSwitch(text)) return *value;
  const auto read = readNumber(text);
  if (!read || !read->unit.empty() || !isNormalised(read->number))
    refuse(option, text, "on, off, or 0 to 1");
  return static_cast<float>(read->number);
}

float parseTrelvanValue(int index, std::string_view option, std::string_view text) {
  switch (parameterAt(index).unit) {
    case Parameter::Unit::percent:
      return parsePercent(option, text);
    case Parameter::Unit::hertz:
      return parseBaseFrequency(option, text);
    case Parameter::Unit::onOff:
      break;
  }
  return parseSwitch(option, text);
}

std::optional<float> readGenericValue(std::string_view text) {
  if (const auto value = readSwitch(text)) return value;
  const auto read = readNumber(text);
  const auto value = read ? fractionOf(*read) : std::nullopt;
  if (!value || !isNormalised(*value)) return std::nullopt;
  return static_cast<float>(*value);
}

double parseGain(std::string_view option, std::string_view text) {
  const auto read = readNumber(text);
  if (!read || (!read->unit.empty() && read->unit != "db"))
    refuse(option, text, "a gain like -3dB");
  if (std::abs(read->number) > kHighestGain) refuse(option, text, "within -60dB to 60dB");
  return std::pow(10.0, read->number / 20.0);
}

double parseLevel(std::string_view option, std::string_view text) {
  const auto read = readNumber(text);
  if (!read || (!read->unit.empty() && read->unit != "db" && read->unit != "dbfs"))
    refuse(option, text, "a level like -1dB");
  if (!(read->number >= kLowestLevel && read->number <= 0.0))
    refuse(option, text, "within -60dB to 0dB");
  return std::pow(10.0, read->number / 20.0);
}

double parseSeconds(std::string_view option, std::string_view text) {
  const auto read = readNumber(text);
  if (!read || (!read->unit.empty() && read->unit != "s" && read->unit != "ms")) {
    refuse(option, text, "a time like 2s or 250ms");
  }
  const double seconds = read->unit == "ms" ? read->number / 1000.0 : read->number;
  if (!(seconds >= 0.0 && seconds <= kLongestTail)) refuse(option, text, "within 0s to 3600s");
  return seconds;
}
