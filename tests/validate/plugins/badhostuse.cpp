// Effects that ask too much of their host, or bear no call while they ask.
#include <cstdlib>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class NeedsTime : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override {
    if (askHost(audioMasterGetTime) == 0) std::abort();
    SoundEffect::clear();
  }
};
EFFECT_IN_FILE(needstime, NeedsTime);

class NeedsAnswers : public SoundEffect {
 public:
  explicit NeedsAnswers(audioMasterCallback callback) : SoundEffect(callback) {
    if (askHost(audioMasterVersion) == 0) std::abort();
  }
};
EFFECT_IN_FILE(needsanswers, NeedsAnswers);

class AsksUnready : public SoundEffect {
 public:
  explicit AsksUnready(audioMasterCallback callback) : SoundEffect(callback) {
    const AEffectDispatcherProc dispatcher = record.dispatcher;
    record.dispatcher = nullptr;
    askHost(audioMasterGetSampleRate);
    record.dispatcher = dispatcher;
  }
};
EFFECT_IN_FILE(asksunready, AsksUnready);

class BearsNoCallWhileItAsks : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (asks) std::abort();
    if (opcode == effOpen) {
      asks = true;
      askHost(audioMasterGetBlockSize);
      asks = false;
    }
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }

 private:
  bool asks = false;
};
EFFECT_IN_FILE(bearsnocallwhileitasks, BearsNoCallWhileItAsks);

}  // namespace
