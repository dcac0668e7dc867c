// Adds one echo, half as loud and 30000 frames late: a tail with a long gap before it. With
// WIDEN_TEST_GAIN it has a parameter, the gain of both.
#include <cstdlib>
#include <vector>

#include "tests/host/plugins/testeffect.h"

class Echo : public TestEffect {
 public:
  explicit Echo(audioMasterCallback callback) : TestEffect(callback) {
    if (std::getenv("WIDEN_TEST_GAIN") != nullptr) record.numParams = 1;
  }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32, VstIntPtr, void* ptr, float) override {
    if (opcode != effGetParamName) return 0;
    give(ptr, "Gain");
    return 1;
  }
  void setParameter(VstInt32, float value) override { gain = value; }
  float getParameter(VstInt32) override { return gain; }
  void process(float** in, float** out, VstInt32 frames) override {
    for (VstInt32 frame = 0; frame < frames; ++frame) {
      for (int pin = 0; pin < 2; ++pin) {
        float& oldest = line[pin][position];
        const float now = in[pin][frame];
        out[pin][frame] = gain * (now + 0.5F * oldest);
        oldest = now;
      }
      position = (position + 1) % kDelay;
    }
  }

 private:
  static constexpr int kDelay = 30000;  // frames
  float gain = 1.0F;
  std::vector<float> line[2] = {std::vector<float>(kDelay), std::vector<float>(kDelay)};
  std::size_t position = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Echo(callback))->made();
}
