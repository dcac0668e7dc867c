// The table of parameters: what each is called, what its value means and how it is shown; and the
// plug-in's number.
#pragma once

#include <array>
#include <cmath>

#include "platform/saturate.h"
#include "plugin/vst24.h"
#include "presetsystem/image/acombprogram.h"

// The plug-in's own number: in its record, and in every image and chunk.
constexpr VstInt32 kTrelvanID = vstFourChars('T', 'l', 'v', 'n');

// The host's index, the control's tag and the place in a preset.
enum ParameterIndex : VstInt32 {
  kWidthIndex,
  kBaseFreqIndex,
  kEmphasisIndex,
  kProcessIndex,
  kPhaseIndex,
  kParameterCount,
  kAuxIndex = 6,  // an internal value, not a parameter; 5 has never been anything
};

// Frames of sound that the effect remembers, a power of two: a period of as many or more, of a low
// base frequency at a high sample rate, becomes a delay that is shorter by as many.
constexpr VstInt32 kDelayFrames = 16384;

// One parameter. Raw values are those that hosts and presets hold, 0..1; derived ones are what the
// processing uses.
struct Parameter {
  enum class Unit { percent, hertz, onOff };

  const char* name;              // to the host
  const char* label;             // its unit, padded with blanks to a width of its own
  const char* caption;           // beside its slider in the window; null: its picture is labelled
  Unit unit;                     // of the number shown
  float initial;                 // raw, in the factory's first preset
  float (*derived)(float raw);   // the curve
  float (*raw)(double derived);  // its inverse, for values that are typed
};

namespace parametercurves {

inline float widthGain(float raw) {  // side gain: (2 raw)^2 / 2
  return 2.0F * (raw * raw);
}
inline float rawWidth(double gain) {
  return static_cast<float>(std::sqrt(gain / 2.0));
}
constexpr double kLowestHz = 20.0;  // of the base frequency
constexpr double kHzRange = 980.0;  // from the lowest to the highest, 1000 Hz
inline float baseFreqHz(float raw) {
  return static_cast<float>(kLowestHz) + static_cast<float>(kHzRange) * (raw * raw);
}
inline float rawBaseFreq(double hertz) {
  return static_cast<float>(std::sqrt((hertz - kLowestHz) / kHzRange));
}
inline float sameAsRaw(float raw) {
  return raw;
}
inline float rawSame(double derived) {
  return static_cast<float>(derived);
}
inline float switchPosition(float raw) {  // 0 or 1
  return static_cast<float>(truncatedToInt32(raw + 0.5F));
}
inline bool isOn(float raw) {  // whether that is 1 or more, in fewer steps
  return raw + 0.5F >= 1.0F;
}

}  // namespace parametercurves

// In index order.
inline constexpr auto kParameters = std::to_array<Parameter>({
    {"width", "    %   ", "depth", Parameter::Unit::percent, 0.0F, parametercurves::widthGain,
     parametercurves::rawWidth},
    {"baseFreq", "    Hz   ", "freq", Parameter::Unit::hertz, 0.5F, parametercurves::baseFreqHz,
     parametercurves::rawBaseFreq},
    {"emphasis", "    %    ", "emph", Parameter::Unit::percent, 0.0F, parametercurves::sameAsRaw,
     parametercurves::rawSame},
    {"process", "         ", nullptr, Parameter::Unit::onOff, 1.0F, parametercurves::switchPosition,
     parametercurves::rawSame},
    {"phase", "         ", nullptr, Parameter::Unit::onOff, 0.0F, parametercurves::switchPosition,
     parametercurves::rawSame},
});
static_assert(kParameters.size() == kParameterCount && kParameterCount <= kAuxIndex);
static_assert(kParameterCount == ACombProgram::kParameterCount);  // every preset holds them all

constexpr bool isParameter(VstInt32 index) {
  return index >= 0 && index < kParameterCount;
}
// index: a parameter's.
constexpr const Parameter& parameterAt(VstInt32 index) {
  return kParameters[static_cast<std::size_t>(index)];
}

// The factory's first preset, which fills the slots after its list and stands in for what a file
// leaves out: no widening.
inline ACombProgram initialPreset() {
  ACombProgram preset;
  preset.rename("init");
  for (int index = 0; index < kParameterCount; ++index)
    preset.setParameter(index, parameterAt(index).initial);
  return preset;
}
