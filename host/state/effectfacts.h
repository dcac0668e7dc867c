// Everything that an effect says of itself.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/vst/effect.h"

// What an effect says of one input or output.
struct PinFacts {
  std::string label;
  std::string shortLabel;
  bool active = false;
  bool stereo = false;
  std::optional<int> arrangement;  // the speakers' type, where the pin names one
};

struct ArrangementFacts {
  int inputs;  // channels
  int inputType;
  int outputs;
  int outputType;
};

struct EffectFacts {
  std::string file;
  std::string name, vendor, product;
  VstIntPtr vendorVersion = 0;
  int version = 0;
  VstIntPtr vstVersion = 0;
  VstInt32 uniqueId = 0;
  VstInt32 identity = 0;
  VstIntPtr category = 0;
  VstInt32 flags = 0;
  int programs = 0;
  int currentProgram = 0;
  std::string programName;
  int parameters = 0;
  std::vector<std::optional<PinFacts>> inputs;  // none: the effect says nothing of the pin
  std::vector<std::optional<PinFacts>> outputs;
  std::optional<ArrangementFacts> arrangement;
  int latency = 0;                        // frames
  VstIntPtr tail = 0;                     // frames; 0: not told, 1: none
  std::string sampleRates;                // what it is made for, where that is known
  std::optional<std::size_t> stateBytes;  // none: parameters and programs only
  bool hasEditor = false;
  struct Size {
    int width, height;  // pixels
  };
  std::optional<Size> editorSize;  // none: not known before the window is open
  VstIntPtr midiInputs = 0;        // channels
  VstIntPtr midiOutputs = 0;
  std::vector<std::string> can;
  std::vector<std::string> cannot;  // of others it says nothing
};

// Asks the effect. Throws Failure where it promises a state and gives none.
EffectFacts factsOf(Effect& effect);

struct FlagName {
  VstInt32 bit;
  const char* name;
};
// The flags that are known, in the order of their bits.
inline constexpr FlagName kFlagNames[] = {{effFlagsHasEditor, "has editor"},
                                          {effFlagsCanReplacing, "can replacing"},
                                          {effFlagsProgramChunks, "program chunks"},
                                          {effFlagsIsSynth, "is synth"},
                                          {effFlagsNoSoundInStop, "no sound in stop"},
                                          {effFlagsCanDoubleReplacing, "can double replacing"}};

std::optional<std::string> categoryName(VstIntPtr category);
// The four characters, "." for what cannot be printed.
std::string idLetters(VstInt32 id);
