// Puts out a NaN in its 1000th frame, and infinity in the same frame of the other channel.
#include <limits>

#include "tests/host/plugins/testeffect.h"

class NanOutput : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    TestEffect::process(in, out, frames);
    for (VstInt32 frame = 0; frame < frames; ++frame, ++position) {
      if (position != 999) continue;
      out[0][frame] = std::numeric_limits<float>::quiet_NaN();
      out[1][frame] = std::numeric_limits<float>::infinity();
    }
  }

 private:
  int position = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NanOutput(callback))->made();
}
