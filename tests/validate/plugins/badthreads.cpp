// Effects that bear one thread only.
#include <atomic>
#include <cstdlib>
#include <thread>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class OneThreadOnly : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    if (processes) std::abort();
    SoundEffect::setParameter(index, value);
  }
  void process(float** in, float** out, VstInt32 frames) override {
    processes = true;
    std::this_thread::yield();  // long enough for others to come
    SoundEffect::process(in, out, frames);
    processes = false;
  }

 private:
  std::atomic<bool> processes = false;
};
EFFECT_IN_FILE(onethreadonly, OneThreadOnly);

// Between two frames of one instance, another one's may come.
class SharesItsDelay : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    shared = previous[0];
    std::this_thread::yield();
    previous[0] = shared;
    SoundEffect::process(in, out, frames);
  }

 private:
  static inline std::atomic<double> shared = 0.0;
};
EFFECT_IN_FILE(sharesitsdelay, SharesItsDelay);

class AloneInTheWorld : public SoundEffect {
 public:
  explicit AloneInTheWorld(audioMasterCallback callback) : SoundEffect(callback) {
    if (processes) std::abort();
  }

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    processes = true;
    std::this_thread::yield();  // long enough for others to come
    SoundEffect::process(in, out, frames);
    processes = false;
  }

 private:
  static inline std::atomic<bool> processes = false;
};
EFFECT_IN_FILE(aloneintheworld, AloneInTheWorld);

}  // namespace
