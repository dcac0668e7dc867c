// Adds one echo, half as loud and 30000 frames late: a tail with a long gap before it.
#include <vector>

#include "tests/host/plugins/testeffect.h"

class Echo : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (VstInt32 frame = 0; frame < frames; ++frame) {
      for (int pin = 0; pin < 2; ++pin) {
        float& oldest = line[pin][position];
        const float now = in[pin][frame];
        out[pin][frame] = now + 0.5F * oldest;
        oldest = now;
      }
      position = (position + 1) % kDelay;
    }
  }

 private:
  static constexpr int kDelay = 30000;  // frames
  std::vector<float> line[2] = {std::vector<float>(kDelay), std::vector<float>(kDelay)};
  std::size_t position = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Echo(callback))->made();
}
