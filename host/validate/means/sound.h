// What checks of the sound share: an effect that takes and gives sound, and what came of a stretch.
#pragma once

#include <vector>

#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

template <typename Sample>
constexpr bool kIsDouble = sizeof(Sample) == sizeof(double);
template <typename Sample>
constexpr const char* kPrecision = kIsDouble<Sample> ? "double" : "float";

// A loaded plug-in and one effect of it; the check is left out where that processes no sound.
struct LoadedEffect {
  explicit LoadedEffect(Trial& trial);

  PluginModule module;
  Subject subject;
};

// Runs `play.template operator()<float>()`, and with double where the effect has it.
template <typename Play>
void inEachPrecision(Subject& subject, const Play& play) {
  play.template operator()<float>();
  if (subject.has(effFlagsCanDoubleReplacing) && subject.record().processDoubleReplacing != nullptr)
    play.template operator()<double>();
}

// Fills the outputs with what no calculation makes, so that a frame that is left out is seen.
template <typename Sample>
void spoilOutputs(Stretch<Sample>& stretch);

// Fails unless the first `frames` frames of all outputs are numbers. when: "in blocks of 64".
template <typename Sample>
void needNumbers(Trial& trial, const Stretch<Sample>& stretch, int frames, const char* when);

// Fails where spoilt frames from `frames` on were written.
template <typename Sample>
void needUntouched(Trial& trial, const Stretch<Sample>& stretch, int frames, const char* when);

template <typename Sample>
using Sound = std::vector<std::vector<Sample>>;

// Both leave the check out where the two have not the same outputs.
// Fails unless both are the same bits. what: "in place", for the verdict.
template <typename Sample>
void needSameBits(Trial& trial, const Sound<Sample>& expected, const Sound<Sample>& heard,
                  const char* what);
// Fails unless both sound the same: no sample differs by more than a thousandth of the peak, which
// is less than is heard and more than another order of additions makes.
template <typename Sample>
void needSameSound(Trial& trial, const Sound<Sample>& expected, const Sound<Sample>& heard,
                   const char* what);
template <typename Sample>
bool sameBits(const Sound<Sample>& one, const Sound<Sample>& other);

template <typename Sample>
double peakOf(const Sound<Sample>& sound, int begin, int end);
