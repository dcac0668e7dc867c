// A small VST 2.4 effect to make test plug-ins of: copies its input, and answers nothing unless a
// subclass does.
#pragma once

#include <algorithm>
#include <cstring>

#include "plugin/vst24.h"

#define TEST_EXPORT extern "C" __attribute__((visibility("default")))

class TestEffect {
 public:
  explicit TestEffect(audioMasterCallback callback) : host(callback) {
    record.magic = kEffectMagic;
    record.dispatcher = [](AEffect* e, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                           float opt) {
      const VstIntPtr result = of(e)->dispatch(opcode, index, value, ptr, opt);
      if (opcode == effClose) delete of(e);
      return result;
    };
    record.setParameter = [](AEffect* e, VstInt32 index, float value) {
      of(e)->setParameter(index, value);
    };
    record.getParameter = [](AEffect* e, VstInt32 index) { return of(e)->getParameter(index); };
    record.processReplacing = [](AEffect* e, float** in, float** out, VstInt32 n) {
      of(e)->process(in, out, n);
    };
    record.numInputs = 2;
    record.numOutputs = 2;
    record.flags = effFlagsCanReplacing;
    record.uniqueID = vstFourChars('T', 'e', 's', 't');
    record.version = 1;
    record.object = this;
  }
  virtual ~TestEffect() = default;

  AEffect* made() { return &record; }

 protected:
  virtual VstIntPtr dispatch(VstInt32, VstInt32, VstIntPtr, void*, float) { return 0; }
  virtual void setParameter(VstInt32, float) {}
  virtual float getParameter(VstInt32) { return 0.0F; }
  virtual void process(float** in, float** out, VstInt32 frames) {
    for (int pin = 0; pin < record.numOutputs; ++pin)
      std::copy_n(in[pin % record.numInputs], frames, out[pin]);
  }

  static void give(void* to, const char* text) { std::strcpy(static_cast<char*>(to), text); }

  AEffect record{};
  audioMasterCallback host;

 private:
  static TestEffect* of(AEffect* e) { return static_cast<TestEffect*>(e->object); }
};
