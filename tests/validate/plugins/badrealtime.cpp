// Effects that do on the audio thread what makes it wait.
#include <cstdlib>
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

}  // namespace
