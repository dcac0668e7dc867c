// Hums for ever, so that a tail has no end of its own.
#include "tests/host/plugins/testeffect.h"

class NeverSilent : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float**, float** out, VstInt32 frames) override {
    std::fill_n(out[0], frames, 0.25F);
    std::fill_n(out[1], frames, 0.25F);
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NeverSilent(callback))->made();
}
