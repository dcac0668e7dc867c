// Has three pairs of outputs; each is the input times one more than the pin's number, the second
// input on odd pins.
#include "tests/host/plugins/testeffect.h"

class ManyOutputs : public TestEffect {
 public:
  explicit ManyOutputs(audioMasterCallback callback) : TestEffect(callback) {
    record.numOutputs = 6;
  }

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    for (int pin = 0; pin < record.numOutputs; ++pin) {
      for (VstInt32 frame = 0; frame < frames; ++frame)
        out[pin][frame] = in[pin % 2][frame] * static_cast<float>(pin + 1);
    }
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new ManyOutputs(callback))->made();
}
