// Prints to the standard output whatever it is asked, and copies its input.
#include <cstdio>

#include "tests/host/plugins/testeffect.h"

class Talks : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32, VstIntPtr, void*, float) override {
    std::printf("asked %d\n", opcode);
    std::fflush(stdout);
    return 0;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Talks(callback))->made();
}
