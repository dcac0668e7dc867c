// Takes 25 ms for every block, so that a short file is long.
#include <unistd.h>

#include "tests/host/plugins/testeffect.h"

class Slow : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    TestEffect::process(in, out, frames);
    usleep(25000);  // microseconds
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Slow(callback))->made();
}
