// A small VST 2.4 effect that does everything right, to make broken ones of: each overrides one
// thing.
#pragma once

#include <vector>

#include "plugin/vst24.h"

// Two channels, in float and double; gain and a delay of one frame; two parameters, three programs,
// a chunk of one byte order, texts within their bounds, no window.
class SoundEffect {
 public:
  explicit SoundEffect(audioMasterCallback callback);
  virtual ~SoundEffect() = default;
  SoundEffect(const SoundEffect&) = delete;
  SoundEffect& operator=(const SoundEffect&) = delete;

  AEffect* made() { return &record; }

 protected:
  static constexpr int kParameters = 2;
  static constexpr int kPrograms = 3;
  enum ParameterIndex { kGain, kFeed };

  struct Program {
    float values[kParameters];
    char name[kVstMaxProgNameLen];
  };
  struct Chunk {
    VstInt32 magic;
    VstInt32 current;
    Program programs[kPrograms];
  };

  virtual VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                             float opt);
  virtual void setParameter(VstInt32 index, float value);
  virtual float getParameter(VstInt32 index);
  virtual void process(float** in, float** out, VstInt32 frames);
  virtual void processDouble(double** in, double** out, VstInt32 frames);
  virtual VstIntPtr giveChunk(void** bytes, bool programOnly);
  virtual VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly);
  virtual void clear();  // at switching on
  VstIntPtr takeArrangement(const VstSpeakerArrangement* in, const VstSpeakerArrangement* out);

  VstIntPtr askHost(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr) {
    return host(&record, opcode, index, value, ptr, 0.0F);
  }
  template <typename Sample>
  void processSamples(Sample** in, Sample** out, VstInt32 frames);

  AEffect record{};
  audioMasterCallback host;
  Program programs[kPrograms];
  int current = 0;
  int inputs = 2;  // by the arrangement
  int outputs = 2;
  double previous[2] = {0.0, 0.0};
  double rate = 44100.0;  // Hz
  int blockSize = 1024;   // frames
  Chunk chunk{};          // what the host was given last
};

// The module makes the effect that its file is named after: one module, linked once, under many
// names.
using MakeEffect = SoundEffect* (*)(audioMasterCallback);
struct NamedEffect {
  NamedEffect(const char* name, MakeEffect make);
  const char* name;
  MakeEffect make;
  NamedEffect* next;
};
#define EFFECT_IN_FILE(name, Class)      \
  static const NamedEffect name##InFile( \
      #name, [](audioMasterCallback callback) -> SoundEffect* { return new Class(callback); })
