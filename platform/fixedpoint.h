// Numbers with a fixed count of digits after the point, the same in every host.
#pragma once

#include <cstdio>
#include <cstring>

#include "platform/defaultfloats.h"

// Writes as "%.*f" does before a program chooses a language: rounded to nearest, with a point. The
// host may have set another rounding, and a comma or several bytes for the point. digits: 1 or
// more. Returns the length; text: so large that it fits, 48 bytes for a float with six digits. Any
// thread; allocates nothing.
inline std::size_t fixedPoint(char* text, std::size_t size, double value, int digits) {
  const DefaultFloats floats;
  const auto length = static_cast<std::size_t>(std::snprintf(text, size, "%.*f", digits, value));
  char* sign = text + (text[0] == '-' ? 1 : 0);
  char* point = sign + std::strspn(sign, "0123456789");
  if (point == sign) return length;  // no number: a word
  const char* fraction = text + length - digits;
  *point = '.';
  std::memmove(point + 1, fraction, static_cast<std::size_t>(digits) + 1);
  return static_cast<std::size_t>(point - text) + 1 + static_cast<std::size_t>(digits);
}
