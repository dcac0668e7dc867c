// The displays' texts.
#include "editor/controls/stringconvert.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "editor/controls/ccnames.h"
#include "effect/parameters.h"
#include "platform/defaultfloats.h"
#include "platform/saturate.h"
#include "platform/xplatvalues.h"

namespace {

constexpr std::size_t kTextSize = 32;  // bytes that the texts never pass

}  // namespace

void strictStringConvert(float value, char* text) {
  std::snprintf(text, kTextSize, "%d", truncatedToInt32(static_cast<double>(value)));
}

void stepStringConvert(float value, char* text) {
  strictStringConvert(value, text);
}

void percentStringConvert(float value, char* text) {
  const DefaultFloats floats;
  const float percent = floats.of(value) * 100.0F;  // the product in float
  std::snprintf(text, kTextSize, "%d%%", truncatedToInt32(static_cast<double>(percent)));
}

void dampStringConvert(float value, char* text) {
  const DefaultFloats floats;
  const auto wide = static_cast<double>(floats.of(value));
  if (wide <= 0.0001) {
    std::strcpy(text, "closed");
  } else if (wide < 1.0) {
    std::snprintf(text, kTextSize, "%d%%", truncatedToInt32(wide * 100.0));
  } else {
    std::strcpy(text, "thru");  // a NaN too
  }
}

// The meter's two ends, and after them the captions of the parameters that have one.
void parameterNameStringConvert(float value, char* text) {
  constexpr const char* kMeterEnds[] = {"S", "M"};
  const DefaultFloats floats;
  const int selected = truncatedToInt32(static_cast<double>(floats.of(value)) * 10.0);
  std::strcpy(text, selected == 0 || selected == 1 ? kMeterEnds[selected] : "");
  int place = 2;
  for (const Parameter& parameter : kParameters) {
    if (parameter.caption != nullptr && place++ == selected) std::strcpy(text, parameter.caption);
  }
}

// Two numbers with a point between them, the second neither rounded nor padded: 0.05 Hz
// shows as 0.50Hz.
void frequencyStringConvert(float hertz, char* text) {
  const DefaultFloats floats;
  const float value = floats.of(hertz);
  const int whole = truncatedToInt32(static_cast<double>(value));
  const float fraction = value - static_cast<float>(whole);
  const auto digits = [fraction](float scale) {
    return truncatedToInt32(static_cast<double>(fraction * scale));
  };
  if (static_cast<double>(value) < 0.2) {
    std::snprintf(text, kTextSize, "%d.%dHz", whole, digits(1000.0F));
  } else if (value < 1.0F) {
    std::snprintf(text, kTextSize, "%d.%dHz", whole, digits(100.0F));
  } else if (value < 10.0F) {
    std::snprintf(text, kTextSize, "%d.%dHz", whole, digits(10.0F));
  } else if (value < 1000.0F) {
    std::snprintf(text, kTextSize, "%dHz", whole);
  } else {
    const auto wide = static_cast<double>(value);
    const int kilohertz = truncatedToInt32(wide * 0.001);
    const double rest = wide - static_cast<double>(kilohertz) * 1000.0;
    std::snprintf(text, kTextSize, "%d.%dkHz", kilohertz, truncatedToInt32(rest * 0.01));
  }
}

void dBStringConvert(float value, char* text) {
  const DefaultFloats floats;
  const auto ratio = static_cast<double>(floats.of(value));
  if (ratio > 1e-8) {
    std::snprintf(text, kTextSize, "%d dB", truncatedToInt32(10.0 * std::log10(ratio)));
  } else {
    std::strcpy(text, "-oo dB");  // a NaN too
  }
}

void convertCC(float value, char* text) {
  const DefaultFloats floats;
  const long index = float2long(floats.of(value), kCcNameCount);
  std::strcpy(text, ccnames[std::max(index, 0L)]);
}
