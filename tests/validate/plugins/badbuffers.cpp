// Effects that do with buffers and pins what hosts do not expect.
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class ClearsOutputsFirst : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (int pin = 0; pin < 2; ++pin) {
      for (VstInt32 frame = 0; frame < frames; ++frame) out[pin][frame] = 0.0F;
    }
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(clearsoutputsfirst, ClearsOutputsFirst);

// Right in place, where each output is its own input's buffer.
class WorksPinByPin : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (int pin = 0; pin < 2; ++pin) {
      for (VstInt32 frame = 0; frame < frames; ++frame) out[pin][frame] = 0.5F * in[pin][frame];
    }
  }
};
EFFECT_IN_FILE(workspinbypin, WorksPinByPin);

class WorksInInputs : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (int pin = 0; pin < 2; ++pin) {
      for (VstInt32 frame = 0; frame < frames; ++frame) in[pin][frame] *= 0.5F;
    }
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(worksininputs, WorksInInputs);
EFFECT_IN_FILE(worksinsharedinputs, WorksInInputs);

class NeedsTwoOutputs : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    if (out[0] == out[1]) std::abort();
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(needstwooutputs, NeedsTwoOutputs);

class WritesAFrameTooMany : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void processDouble(double** in, double** out, VstInt32 frames) override {
    SoundEffect::processDouble(in, out, frames);
    if (frames % 2 == 1) out[1][frames] = 0.0;
  }
};
EFFECT_IN_FILE(writesaframetoomany, WritesAFrameTooMany);

class ReadsAFrameTooMany : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    const volatile float next = in[0][frames];
    SoundEffect::process(in, out, frames);
    out[0][0] += next * 0.0F;
  }
};
EFFECT_IN_FILE(readsaframetoomany, ReadsAFrameTooMany);

class NeedsAlignment : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    constexpr std::uintptr_t kVector = 16;  // bytes
    if (reinterpret_cast<std::uintptr_t>(out[0]) % kVector != 0) std::abort();
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(needsalignment, NeedsAlignment);

// Asks once which pins are connected.
class SilentWhenUnconnected : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override {
    SoundEffect::clear();
    silent = askHost(audioMasterPinConnected) != 0;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    if (!silent) return;
    for (int pin = 0; pin < 2; ++pin) {
      for (VstInt32 frame = 0; frame < frames; ++frame) out[pin][frame] = 0.0F;
    }
  }

 private:
  bool silent = false;
};
EFFECT_IN_FILE(silentwhenunconnected, SilentWhenUnconnected);

class NeedsConnections : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    if (askHost(audioMasterPinConnected, 1, 1) != 0) std::abort();
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(needsconnections, NeedsConnections);

class TakesMonoBadly : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    if (inputs == 1) out[0][0] = std::numeric_limits<float>::quiet_NaN();
  }
};
EFFECT_IN_FILE(takesmonobadly, TakesMonoBadly);

class ReadsTwoPointers : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    float* const both[2] = {in[0], in[1]};
    SoundEffect::process(const_cast<float**>(both), out, frames);
  }
};
EFFECT_IN_FILE(readstwopointers, ReadsTwoPointers);

}  // namespace
