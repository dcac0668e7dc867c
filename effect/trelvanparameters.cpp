// The parameters: raw values, the targets derived from them, and their texts.
#include <cstring>
#include <iterator>

#include "editor/base/aeffguieditor.h"
#include "effect/numbertext.h"
#include "effect/trelvan.h"
#include "platform/saturate.h"

namespace {

struct ParameterTexts {
  const char* name;
  const char* label;
};

// By parameter index; 5 has none.
constexpr ParameterTexts kTexts[] = {
    {"width", "    %   "},
    {"baseFreq", "    Hz   "},
    {"emphasis", "    %    "},
    {"process", "         "},
    {"phase", "         "},
    {nullptr, nullptr},
    {"  ", "  "},
};

const ParameterTexts* textsOf(VstInt32 index) {
  const bool has = index >= 0 && index < static_cast<VstInt32>(std::size(kTexts)) && kTexts[index].name != nullptr;
  return has ? &kTexts[index] : nullptr;
}

constexpr int kDigits = 1;  // behind the point, in all displays

float switchPosition(float raw) {
  return static_cast<float>(truncatedToInt32(raw + 0.5F));
}

const char* onOff(float position) {
  return position >= 0.5F ? "On" : "Off";
}

}  // namespace

// Any thread. The write index needs no wrapping here: the audio thread keeps it below the length at all times.
void Trelvan::setParameter(VstInt32 index, float value) {
  if (!isPresetChangeInProgress()) CPresetSystemEffect::setParameter(index, value);
  switch (index) {
    case 0:
      width = value;
      widthGain = 2.0F * (value * value);
      break;
    case 1:
      baseFreq = value;
      baseFreqHz = 20.0F + 980.0F * (value * value);
      delayTarget = delayTargetNow();
      break;
    case 2:
      emphasis = value;
      emphasisTarget = value;
      break;
    case 3:
      process = value;
      processOn = switchPosition(value);
      break;
    case 4:
      phase = value;
      phaseOn = switchPosition(value);
      break;
    case kAuxIndex:
      auxParameter = value;
      break;
    default:
      break;
  }
  if (AEffEditor* window = getEditor()) static_cast<AEffGUIEditor*>(window)->setParameter(index, value);
}

float Trelvan::getParameter(VstInt32 index) {
  switch (index) {
    case 0:
      return width;
    case 1:
      return baseFreq;
    case 2:
      return emphasis;
    case 3:
      return process;
    case 4:
      return phase;
    case kAuxIndex:
      return auxParameter;
    default:
      return 0.0F;
  }
}

float Trelvan::getParameterValue(VstInt32 index) {
  switch (index) {
    case 0:
      return widthGain;
    case 1:
      return baseFreqHz;
    case 2:
      return emphasisTarget;
    case 3:
      return processOn;
    case 4:
      return phaseOn;
    case kAuxIndex:
      return auxParameter;
    default:
      return 0.0F;
  }
}

// Labels are padded with blanks to a width of their own.
void Trelvan::getParameterLabel(VstInt32 index, char* label) {
  if (const ParameterTexts* texts = textsOf(index)) std::strcpy(label, texts->label);
}

void Trelvan::getParameterName(VstInt32 index, char* text) {
  if (const ParameterTexts* texts = textsOf(index)) std::strcpy(text, texts->name);
}

void Trelvan::getParameterDisplay(VstInt32 index, char* text) {
  switch (index) {
    case 0:
      float2string2(100.0F * width, kDigits, text);
      break;
    case 1:
      float2string2(baseFreqHz, kDigits, text);
      break;
    case 2:
      float2string2(100.0F * emphasis, kDigits, text);
      break;
    case 3:
      std::strcpy(text, onOff(processOn));
      break;
    case 4:
      std::strcpy(text, onOff(phaseOn));
      break;
    case kAuxIndex:
      *text = 0;
      break;
    default:
      std::strcpy(text, "UNDEF");
      break;
  }
}

bool Trelvan::canParameterBeAutomated(VstInt32 index) {
  return index >= 0 && index < kParameterCount;
}

bool Trelvan::getParameterProperties(VstInt32 index, VstParameterProperties* p) {
  if (index < 0 || index >= kParameterCount) return false;
  const bool isSwitch = index >= 3;
  *p = VstParameterProperties{};
  p->flags = kVstParameterUsesFloatStep | (isSwitch ? kVstParameterIsSwitch : 0);
  p->stepFloat = isSwitch ? 1.0F : 1.0F / 256.0F;
  p->smallStepFloat = isSwitch ? 1.0F : 1.0F / 1024.0F;
  p->largeStepFloat = isSwitch ? 1.0F : 1.0F / 64.0F;
  std::strcpy(p->label, kTexts[index].name);
  std::strncpy(p->shortLabel, kTexts[index].name, sizeof p->shortLabel - 1);  // seven characters of it
  return true;
}
