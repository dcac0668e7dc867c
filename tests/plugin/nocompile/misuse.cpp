// Compiled on purpose with one misuse of an interface at a time: the types must refuse it.
#include <array>
#include <span>

#include "plugin/audioeffect.h"
#include "presetsystem/image/image.h"

VstIntPtr host(AEffect*, VstInt32, VstInt32, VstIntPtr, void*, float) {
  return kVstVersion;
}
VstIntPtr hostWithoutOpt(AEffect*, VstInt32, VstInt32, VstIntPtr, void*) {
  return kVstVersion;
}

class Effect : public AudioEffect {
 public:
  using AudioEffect::AudioEffect;
  void processReplacing(float**, float**, VstInt32) override {}
  void processDoubleReplacing(double**, double**, VstInt32) override {}
};

int main() {
  Effect effect(host, 1, 5);
  AEffEditor editor(&effect);
  presetimage::InvalidParameters none;
  std::array<unsigned char, 10545> chunk{};
  presetimage::writeChunk(chunk, presetimage::Bank(), 0, 0, {}, none);
#if CASE == 1
  Effect copy(effect);
#elif CASE == 2
  AEffEditor copy(editor);
#elif CASE == 3
  std::array<unsigned char, 10544> tooShort{};
  presetimage::writeChunk(tooShort, presetimage::Bank(), 0, 0, {}, none);
#elif CASE == 4
  Effect other(hostWithoutOpt, 1, 5);
#endif
}
