// Values as a person types them, with or without a unit, turned into what the effect and the
// conversion take.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// A number and the letters after it in lower case: "2.5 kHz" is 2.5 and "khz". None where no finite
// decimal number opens the text. The decimal separator is always the point. Any thread.
struct NumberWithUnit {
  double number;
  std::string unit;
};
std::optional<NumberWithUnit> readNumber(std::string_view text);

// All of these throw UsageFailure, worded with `option` as the name of what was typed.

// Normalised values, 0..1. A number without a unit is that value itself.
float parseNormalised(std::string_view option, std::string_view text);  // 0..1 only
float parsePercent(std::string_view option, std::string_view text);     // "75%" or 0..1
// "265Hz", "0.265kHz", or 0..1; a bare number from 20 to 1000 is in Hz too, for it can
// mean nothing else.
float parseBaseFrequency(std::string_view option, std::string_view text);
float parseSwitch(std::string_view option, std::string_view text);  // on, off, or 0..1
// In the unit of Trelvan's parameter of this index.
float parseTrelvanValue(int index, std::string_view option, std::string_view text);
// Any of the notations for an effect that is not known: "0.4", "40%", "on", "off". None where it is
// none of them.
std::optional<float> readGenericValue(std::string_view text);

constexpr double kHighestGain = 60.0;  // dB, either way
// Decibels, -60..60, "dB" or nothing after the number; returns the factor. 0 dB is exactly 1.
double parseGain(std::string_view option, std::string_view text);
// Decibels of full scale, -60..0, "dB" or nothing after the number; returns the magnitude.
double parseLevel(std::string_view option, std::string_view text);
// Seconds, 0..3600: "2", "2s" or "250ms".
double parseSeconds(std::string_view option, std::string_view text);
