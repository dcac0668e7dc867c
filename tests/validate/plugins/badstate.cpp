// Effects that lose something of their state, or mind who else is at work when it is saved.
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "tests/validate/plugins/soundeffect.h"

namespace {

// A state that counts how often it was saved.
class CountsItsSaves : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool programOnly) override {
    const VstIntPtr size = SoundEffect::giveChunk(bytes, programOnly);
    chunk.programs[0].name[kVstMaxProgNameLen - 1] = static_cast<char>(++saves);
    return size;
  }
  int saves = 0;
};
EFFECT_IN_FILE(countsitssaves, CountsItsSaves);

// A flag without a chunk.
class GivesNoState : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void**, bool) override { return 0; }
};
EFFECT_IN_FILE(givesnostate, GivesNoState);

// The second parameter is not among what a bank keeps.
class ForgetsInBanks : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool programOnly) override {
    const VstIntPtr size = SoundEffect::giveChunk(bytes, programOnly);
    if (programOnly) return size;
    for (Program& program : chunk.programs) program.values[kFeed] = 0.25F;
    return size;
  }
};
EFFECT_IN_FILE(forgetsinbanks, ForgetsInBanks);

// A program that is loaded leaves the second parameter as it was.
class ForgetsInPrograms : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    const float before = getParameter(kFeed);
    const VstIntPtr taken = SoundEffect::takeChunk(bytes, size, programOnly);
    if (programOnly) setParameter(kFeed, before);
    return taken;
  }
};
EFFECT_IN_FILE(forgetsinprograms, ForgetsInPrograms);

// Only the current program of a bank is kept.
class KeepsOneProgram : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    Program before[kPrograms];
    std::memcpy(before, programs, sizeof before);
    const VstIntPtr taken = SoundEffect::takeChunk(bytes, size, programOnly);
    for (int i = 0; i < kPrograms; ++i) {
      if (i != current) programs[i] = before[i];
    }
    return taken;
  }
};
EFFECT_IN_FILE(keepsoneprogram, KeepsOneProgram);

class ForgetsCurrent : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool programOnly) override {
    const VstIntPtr size = SoundEffect::giveChunk(bytes, programOnly);
    chunk.current = 0;
    // so that what is current there sounds as it did
    if (!programOnly) chunk.programs[0] = programs[current];
    return size;
  }
};
EFFECT_IN_FILE(forgetscurrent, ForgetsCurrent);

class ForgetsNames : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool programOnly) override {
    const VstIntPtr size = SoundEffect::giveChunk(bytes, programOnly);
    for (Program& program : chunk.programs) std::strcpy(program.name, "Init");
    return size;
  }
};
EFFECT_IN_FILE(forgetsnames, ForgetsNames);

// A loaded state reaches the parameters that the host sees, and not the sound.
class SoundsAsBefore : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    SoundEffect::setParameter(index, value);
    if (index == kGain) gain = getParameter(kGain);
  }
  void process(float** in, float** out, VstInt32 frames) override {
    const float shown = programs[current].values[kGain];
    programs[current].values[kGain] = gain;
    SoundEffect::process(in, out, frames);
    programs[current].values[kGain] = shown;
  }
  float gain = 0.5F;
};
EFFECT_IN_FILE(soundsasbefore, SoundsAsBefore);

// What the host was given is used for something else by the next call.
class ReusesItsBytes : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  float getParameter(VstInt32 index) override {
    std::memset(&chunk, 0x55, sizeof chunk);
    return SoundEffect::getParameter(index);
  }
};
EFFECT_IN_FILE(reusesitsbytes, ReusesItsBytes);

// The state is the memory that it works in.
class SavesWhatItWorksIn : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool) override {
    *bytes = programs;
    return sizeof programs;
  }
};
EFFECT_IN_FILE(saveswhatitworksin, SavesWhatItWorksIn);

class ReadsFurther : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    const auto* end = static_cast<const volatile unsigned char*>(bytes) + size;
    for (int i = 0; i < 16; ++i) (void)end[i];
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(readsfurther, ReadsFurther);

// Clears the memory that it saves to before it reads what it is given.
class ClearsBeforeReading : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    chunk = {};
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(clearsbeforereading, ClearsBeforeReading);

// All instances save to one place, which is cleared before anything is loaded.
class SavesToOnePlace : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool programOnly) override {
    const VstIntPtr size = SoundEffect::giveChunk(bytes, programOnly);
    place() = chunk;
    *bytes = &place();
    return size;
  }
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    place() = {};
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
  static Chunk& place() {
    static Chunk all{};
    return all;
  }
};
EFFECT_IN_FILE(savestooneplace, SavesToOnePlace);

// Cannot stand a block that comes while it saves, or loads.
class AloneAtWork : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void workAlone() {
    busy = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    busy = false;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    if (busy) std::abort();
    SoundEffect::process(in, out, frames);
  }
  std::atomic<bool> busy = false;
};
class SavesAlone : public AloneAtWork {
 public:
  using AloneAtWork::AloneAtWork;

 protected:
  VstIntPtr giveChunk(void** bytes, bool programOnly) override {
    workAlone();
    return SoundEffect::giveChunk(bytes, programOnly);
  }
};
EFFECT_IN_FILE(savesalone, SavesAlone);
class LoadsAlone : public AloneAtWork {
 public:
  using AloneAtWork::AloneAtWork;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    workAlone();
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(loadsalone, LoadsAlone);

}  // namespace
