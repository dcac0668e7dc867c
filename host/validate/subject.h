// The effect under test, driven by hand: nothing is repaired, checked or left out on its behalf.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/validate/trial.h"
#include "host/vst/hostcallback.h"
#include "host/vst/pluginmodule.h"

// One loaded binary and any number of its effects: the module outlives its subjects.
class Subject {
 public:
  // Made and opened. Throws Failure where the record is none: checks let it through, as it is the
  // verdict then.
  // entry: a host of another kind, which may pass on to HostCallback::entry what it does not want
  // to do differently.
  explicit Subject(PluginModule& module, bool showsWindows = false,
                   audioMasterCallback entry = &HostCallback::entry);
  ~Subject();  // closed
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;

  AEffect& record() { return *effect; }
  HostCallback& host() { return callback; }

  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                     float opt = 0.0F) {
    return effect->dispatcher(effect, opcode, index, value, ptr, opt);
  }
  bool has(VstInt32 flag) const { return (effect->flags & flag) != 0; }
  float parameter(int index) { return effect->getParameter(effect, index); }
  void setParameter(int index, float value) { effect->setParameter(effect, index, value); }

  std::vector<float> parameters();  // all of them
  // Whether it says that it has processReplacing, and has it; pins may be missing.
  bool processes() const {
    return has(effFlagsCanReplacing) && effect->processReplacing != nullptr;
  }

  // Rate, block size and precision told, switched on. Off again: stop.
  void start(double rate, int blockSize, bool doublePrecision = false);
  void stop();
  // Left on until it is closed.
  void neverStop() { running = false; }

  void process(float** inputs, float** outputs, int frames) {
    effect->processReplacing(effect, inputs, outputs, frames);
  }
  void process(double** inputs, double** outputs, int frames) {
    effect->processDoubleReplacing(effect, inputs, outputs, frames);
  }

  // A copy of the bank's chunk, or the program's; empty where it gives none.
  std::vector<unsigned char> chunk(bool programOnly = false);
  VstIntPtr setChunk(std::span<const unsigned char> bytes, bool programOnly = false);

 private:
  HostCallback callback;
  AEffect* effect = nullptr;
  bool running = false;
};

// Of a parameter.
inline bool isUnit(float value) {
  return value >= 0.0F && value <= 1.0F;
}
// Of a parameter: one that is no number twice has not moved.
bool isSameValue(float a, float b);

// Leave the check out where the effect is none that it could be asked of.
void needSoundIn(Trial& trial, Subject& subject);     // inputs, outputs and processReplacing
void needProcessing(Trial& trial, Subject& subject);  // processReplacing; pins may be missing
void needDouble(Trial& trial, Subject& subject);      // processDoubleReplacing
void needChunk(Trial& trial, Subject& subject);       // getChunk, setChunk
void needEditor(Trial& trial, Subject& subject);      // a window
