// Exports its entry point under the name that it had before version 2.4 of the interface. Halves
// its input.
#include "tests/host/plugins/testeffect.h"

// C++ keeps the name for programs, so the linker's name is set by hand, with the system's
// prefix in front.
#define TEST_TEXT_OF(name) #name
#define TEST_TEXT(name) TEST_TEXT_OF(name)
TEST_EXPORT AEffect* oldEntry(audioMasterCallback callback) asm(
    TEST_TEXT(__USER_LABEL_PREFIX__) "main");

class OldMain : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (int pin = 0; pin < 2; ++pin) {
      for (VstInt32 frame = 0; frame < frames; ++frame) out[pin][frame] = in[pin][frame] / 2;
    }
  }
};

AEffect* oldEntry(audioMasterCallback callback) {
  return (new OldMain(callback))->made();
}
