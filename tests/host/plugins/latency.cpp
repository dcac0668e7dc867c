// Is late by 480 frames, says so, and changes nothing else.
#include <vector>

#include "tests/host/plugins/testeffect.h"

class Latency : public TestEffect {
 public:
  explicit Latency(audioMasterCallback callback) : TestEffect(callback) {
    record.initialDelay = kDelay;
  }

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (VstInt32 frame = 0; frame < frames; ++frame) {
      for (int pin = 0; pin < 2; ++pin) {
        float& oldest = line[pin][position];
        const float now = in[pin][frame];
        out[pin][frame] = oldest;
        oldest = now;
      }
      position = (position + 1) % kDelay;
    }
  }

 private:
  static constexpr int kDelay = 480;  // frames
  std::vector<float> line[2] = {std::vector<float>(kDelay), std::vector<float>(kDelay)};
  std::size_t position = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Latency(callback))->made();
}
