// The effect base's texts for displays.
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/fixedpoint.h"
#include "plugin/audioeffect.h"

namespace {

// As much of `whole` as there is room for before the end; nothing at all in no room.
void copyCut(const char* whole, char* text, VstInt32 maxLen) {
  if (maxLen <= 0) return;
  const std::size_t room = static_cast<std::size_t>(maxLen) - 1;
  const std::size_t length = strnlen(whole, room);
  std::memcpy(text, whole, length);
  text[length] = 0;
}

}  // namespace

void AudioEffect::dB2string(float amplitude, char* text, VstInt32 maxLen) {
  const DefaultFloats floats;
  const auto ratio = static_cast<double>(floats.of(amplitude));
  if (ratio > 0.0) {
    float2string(static_cast<float>(20.0 * std::log10(ratio)), text, maxLen);
  } else {
    copyCut("-oo", text, maxLen);
  }
}

void AudioEffect::Hz2string(float samples, char* text, VstInt32 maxLen) {
  const DefaultFloats floats;
  const float count = floats.of(samples);
  float2string(count > 0.0F ? sampleRate / count : 0.0F, text, maxLen);
}

void AudioEffect::ms2string(float samples, char* text, VstInt32 maxLen) {
  const DefaultFloats floats;
  float2string(floats.of(samples) * 1000.0F / sampleRate, text, maxLen);  // 1000 ms a second
}

// Two digits after the point, cut where they find no room; a whole part that finds none would be
// another number.
void AudioEffect::float2string(float value, char* text, VstInt32 maxLen) {
  char whole[64];  // a float's 39 digits, sign, point and two more
  fixedPoint(whole, sizeof whole, static_cast<double>(value), 2);
  const char* point = std::strchr(whole, '.');
  const std::size_t needed =
      point != nullptr ? static_cast<std::size_t>(point - whole) : std::strlen(whole);
  copyCut(static_cast<VstInt32>(needed) < maxLen ? whole : "Huge!", text, maxLen);
}

void AudioEffect::int2string(VstInt32 value, char* text, VstInt32 maxLen) {
  char whole[16];  // ten digits and a sign
  const int length = std::snprintf(whole, sizeof whole, "%d", value);
  copyCut(length < maxLen ? whole : "Huge!", text, maxLen);
}
