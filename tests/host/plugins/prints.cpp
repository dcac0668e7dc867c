// Writes words to the standard output while it processes, as effects with a forgotten message do.
#include <cstdio>

#include "tests/host/plugins/testeffect.h"

class Prints : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    TestEffect::process(in, out, frames);
    std::printf("%d frames\n", static_cast<int>(frames));
    std::fflush(stdout);
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Prints(callback))->made();
}
