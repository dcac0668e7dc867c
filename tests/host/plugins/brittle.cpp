// Has state that all its instances in a process share: adds a hundredth for each one that was made
// before it. Ends the process at a sample rate of 22050 Hz; WIDEN_TEST_END: how.
#include <csignal>
#include <cstdlib>
#include <string_view>

#include "tests/host/plugins/testeffect.h"

namespace {

int instances = 0;

void endProcess() {
  const char* how = std::getenv("WIDEN_TEST_END");
  const std::string_view name = how != nullptr ? how : "fault";
  if (name == "exit") std::exit(0);
  if (name == "killed") raise(SIGKILL);
  if (name == "abort") std::abort();
  raise(SIGSEGV);
}

}  // namespace

class Brittle : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32, VstIntPtr, void*, float opt) override {
    if (opcode == effSetSampleRate) breaks = opt == 22050.0F;
    return 0;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    TestEffect::process(in, out, frames);
    for (int pin = 0; pin < 2; ++pin) {
      for (int frame = 0; frame < frames; ++frame)
        out[pin][frame] += 0.01F * static_cast<float>(before);
    }
    if (breaks) endProcess();
  }

 private:
  const int before = instances++;
  bool breaks = false;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Brittle(callback))->made();
}
