// Effects that do on the audio thread what makes it wait.
#include <sched.h>
#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <mutex>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class AllocatesInProcess : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    void* volatile memory = std::malloc(static_cast<std::size_t>(frames) + 1);
    std::free(memory);
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(allocatesinprocess, AllocatesInProcess);

class NewInProcessDouble : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void processDouble(double** in, double** out, VstInt32 frames) override {
    const std::vector<double> scratch(static_cast<std::size_t>(frames) + 1);
    SoundEffect::processDouble(in, out, frames);
    out[0][0] += scratch[0];
  }
};
EFFECT_IN_FILE(newinprocessdouble, NewInProcessDouble);

class AllocatesWhenMoved : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    void* volatile memory = std::malloc(sizeof value);
    std::free(memory);
    SoundEffect::setParameter(index, value);
  }
};
EFFECT_IN_FILE(allocateswhenmoved, AllocatesWhenMoved);

class LocksInProcess : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    const std::lock_guard lock(mutex);
    SoundEffect::process(in, out, frames);
  }

 private:
  std::mutex mutex;
};
EFFECT_IN_FILE(locksinprocess, LocksInProcess);

class AsksTheSystem : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    sched_yield();
    SoundEffect::process(in, out, frames);
  }
  void processDouble(double** in, double** out, VstInt32 frames) override {
    umask(umask(0));
    SoundEffect::processDouble(in, out, frames);
  }
};
EFFECT_IN_FILE(asksthesystem, AsksTheSystem);
EFFECT_IN_FILE(asksthesystemindouble, AsksTheSystem);

class AsksTheSystemWhenMoved : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    sched_yield();
    SoundEffect::setParameter(index, value);
  }
};
EFFECT_IN_FILE(asksthesystemwhenmoved, AsksTheSystemWhenMoved);

// Memory that it has reserved long ago, and touches page by page.
class NeverHasAllItsMemory : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;
  ~NeverHasAllItsMemory() override { std::free(reserved); }

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    constexpr std::size_t kPage = 4096;  // bytes
    reserved[at += kPage] = 1;
    SoundEffect::process(in, out, frames);
  }

 private:
  static constexpr std::size_t kReserved = std::size_t{1} << 28;  // bytes, for minutes
  char* reserved = static_cast<char*>(std::malloc(kReserved));
  std::size_t at = 0;
};
EFFECT_IN_FILE(neverhasallitsmemory, NeverHasAllItsMemory);

}  // namespace
