// From what is typed into a value's display to the parameter's value.
#pragma once

#include <optional>
#include <string_view>

struct Parameter;

// The raw value for a percentage, "35" or "35%", or for hertz: "265", "265Hz", "1.5 kHz", "1k". A
// comma is a decimal point: "0,4" is 0.4 % or 0.4 Hz. What lies beyond the parameter's range is its
// nearest end, and a whole number is what the display shows then. None where the text is no such
// number. Any thread.
std::optional<float> typedValue(const Parameter& parameter, std::string_view text);
