// Ends the process, as a plug-in with a fault does, in its third block.
#include <csignal>

#include "tests/host/plugins/testeffect.h"

class Crashes : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    TestEffect::process(in, out, frames);
    if (++blocks == 3) raise(SIGSEGV);
  }

 private:
  int blocks = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Crashes(callback))->made();
}
