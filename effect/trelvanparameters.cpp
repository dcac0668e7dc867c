// The parameters: raw values, what is derived from them, and their texts, as the table says.
#include <cstring>

#include "effect/numbertext.h"
#include "effect/parameters.h"
#include "effect/trelvan.h"
#include "platform/defaultfloats.h"

namespace {

constexpr int kDigits = 1;              // after the point, in all displays
constexpr const char* kAuxText = "  ";  // the internal value's name and label

void copyText(char* to, VstInt32 index, const char* (*text)(const Parameter&)) {
  if (isParameter(index)) std::strcpy(to, text(parameterAt(index)));
  if (index == kAuxIndex) std::strcpy(to, kAuxText);
}

}  // namespace

// Any thread.
void Trelvan::setParameter(VstInt32 index, float value) {
  if (isParameter(index)) {
    raw[static_cast<std::size_t>(index)] = value;
    if (!isPresetChangeInProgress()) storeParameter(index);
  } else if (index == kAuxIndex) {
    auxParameter = value;
  }
  if (AEffEditor* window = getEditor()) window->setParameter(index, value);
}

float Trelvan::getParameter(VstInt32 index) {
  if (isParameter(index)) return raw[static_cast<std::size_t>(index)];
  return index == kAuxIndex ? auxParameter.load() : 0.0F;
}

float Trelvan::getParameterValue(VstInt32 index) {
  if (isParameter(index)) return derived(index);
  return index == kAuxIndex ? auxParameter.load() : 0.0F;
}

void Trelvan::getParameterLabel(VstInt32 index, char* label) {
  copyText(label, index, [](const Parameter& parameter) { return parameter.label; });
}

void Trelvan::getParameterName(VstInt32 index, char* text) {
  copyText(text, index, [](const Parameter& parameter) { return parameter.name; });
}

void Trelvan::getParameterDisplay(VstInt32 index, char* text) {
  if (!isParameter(index)) {
    std::strcpy(text, index == kAuxIndex ? "" : "UNDEF");
    return;
  }
  // Derived anew from the raw value: the one kept was, under whatever rounding its thread had.
  const Parameter& parameter = parameterAt(index);
  const DefaultFloats floats;
  const float value = floats.of(getParameter(index));
  switch (parameter.unit) {
    case Parameter::Unit::percent:
      float2string2(100.0F * value, kDigits, text);
      break;
    case Parameter::Unit::hertz:
      float2string2(parameter.derived(value), kDigits, text);
      break;
    case Parameter::Unit::onOff:
      std::strcpy(text, parameter.derived(value) >= 0.5F ? "On" : "Off");
      break;
  }
}

bool Trelvan::canParameterBeAutomated(VstInt32 index) {
  return isParameter(index);
}

bool Trelvan::getParameterProperties(VstInt32 index, VstParameterProperties* p) {
  if (!isParameter(index)) return false;
  const Parameter& parameter = parameterAt(index);
  const bool isSwitch = parameter.unit == Parameter::Unit::onOff;
  *p = VstParameterProperties{};
  p->flags = kVstParameterUsesFloatStep | (isSwitch ? kVstParameterIsSwitch : 0);
  p->stepFloat = isSwitch ? 1.0F : 1.0F / 256.0F;
  p->smallStepFloat = isSwitch ? 1.0F : 1.0F / 1024.0F;
  p->largeStepFloat = isSwitch ? 1.0F : 1.0F / 64.0F;
  std::strcpy(p->label, parameter.name);
  std::strncpy(p->shortLabel, parameter.name, sizeof p->shortLabel - 1);  // seven characters of it
  return true;
}
