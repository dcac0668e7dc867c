// Effects that expect switching on and off, rates and sizes in one order only.
#include <cstdlib>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class NeedsOffBeforeOn : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effMainsChanged) {
      if (on && value != 0) std::abort();
      on = value != 0;
    }
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }

 private:
  bool on = false;
};
EFFECT_IN_FILE(needsoffbeforeon, NeedsOffBeforeOn);

class KeepsItsFirstSize : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override {
    SoundEffect::clear();
    if (first == 0) first = blockSize;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    if (frames > first) std::abort();
    SoundEffect::process(in, out, frames);
  }

 private:
  int first = 0;  // frames
};
EFFECT_IN_FILE(keepsitsfirstsize, KeepsItsFirstSize);

class KeepsItsSizeWhileOn : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override {
    SoundEffect::clear();
    size = blockSize;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    if (frames > size) std::abort();
    SoundEffect::process(in, out, frames);
  }

 private:
  int size = 1 << 20;  // frames: none yet
};
EFFECT_IN_FILE(keepsitssizewhileon, KeepsItsSizeWhileOn);

class NeedsSwitchingOn : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override {
    SoundEffect::clear();
    on = true;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    if (!on) std::abort();
    SoundEffect::process(in, out, frames);
  }

 private:
  bool on = false;
};
EFFECT_IN_FILE(needsswitchingon, NeedsSwitchingOn);

}  // namespace
