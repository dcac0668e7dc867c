// Effects whose life goes wrong: at loading, making, closing, unloading.
#include <cstdlib>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class CrashesOnClose : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effClose) std::abort();
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
};
EFFECT_IN_FILE(crashesonclose, CrashesOnClose);

}  // namespace
