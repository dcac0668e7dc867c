// Takes and gives one channel, a frame late without naming it, times its only parameter. With
// WIDEN_TEST_UNEVEN every second effect names a latency.
#include <cstdlib>

#include "tests/host/plugins/testeffect.h"

class OneChannel : public TestEffect {
 public:
  explicit OneChannel(audioMasterCallback callback) : TestEffect(callback) {
    static int made = 0;
    record.numInputs = 1;
    record.numOutputs = 1;
    record.numParams = 1;
    const bool even = ++made % 2 == 0;
    if (even && std::getenv("WIDEN_TEST_UNEVEN") != nullptr) record.initialDelay = 64;
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
      out[0][frame] = last * gain;
      last = in[0][frame];
    }
  }

 private:
  float gain = 1.0F;
  float last = 0.0F;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new OneChannel(callback))->made();
}
