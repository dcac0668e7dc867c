// Fuzz target: values as a person types them behind widen's options.
#include "host/state/values.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "effect/parameters.h"
#include "fuzz/require.h"
#include "host/base/failure.h"
#include "host/base/text.h"

namespace {

bool isWithin(double value, double lowest, double highest) {
  return value >= lowest && value <= highest;  // false for a NaN
}

// A value within its limits, or a refusal that names the option. parse: (option, text) to number.
template <typename Parse>
std::optional<double> valueOf(Parse&& parse, const std::string& text, double lowest,
                              double highest) {
  try {
    const double value = parse("--option", text);
    require(isWithin(value, lowest, highest), "a value is within its limits");
    return value;
  } catch (const UsageFailure& failure) {
    require(std::string(failure.what()).starts_with("--option: "), "a refusal names the option");
    return std::nullopt;
  }
}

// A number that was read is read again from its digits, and so is its unit, in any case and between
// any blanks.
void requireNumberReadsBack(const std::string& text) {
  const std::optional<NumberWithUnit> read = readNumber(text);
  if (!read) return;
  require(std::isfinite(read->number), "a number is finite");
  for (const std::string& again :
       {formatted("%.17g ", read->number) + read->unit, " \t" + text + " ", lowerCase(text)}) {
    const std::optional<NumberWithUnit> reread = readNumber(again);
    require(reread && reread->number == read->number && reread->unit == read->unit,
            "a number and its unit read back the same");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  const std::string text(input, input + size);
  requireNumberReadsBack(text);
  const auto percent = valueOf(parsePercent, text, 0, 1);
  const auto plain = valueOf(parseNormalised, text, 0, 1);
  const auto state = valueOf(parseSwitch, text, 0, 1);
  const auto frequency = valueOf(parseBaseFrequency, text, 0, 1);
  valueOf(parseGain, text, 0.001, 1000);
  valueOf(parseSeconds, text, 0, 3600);
  const std::optional<float> generic = readGenericValue(text);
  require(!generic || isWithin(*generic, 0.0, 1.0), "a value of any effect is within 0..1");
  if (plain) {
    require(percent == plain && state == plain && frequency == plain &&
                generic == static_cast<float>(*plain),
            "a number from 0 to 1 is the raw value everywhere");
  }
  for (int index = 0; index < kParameterCount; ++index) {
    const auto parse = [index](const char* option, const std::string& typed) {
      return parseTrelvanValue(index, option, typed);
    };
    const bool isSwitch = index == kProcessIndex || index == kPhaseIndex;
    require(valueOf(parse, text, 0, 1) == (index == kBaseFreqIndex ? frequency
                                           : isSwitch              ? state
                                                                   : percent),
            "a parameter's value is its unit's");
  }
  return 0;
}
