// Ends the process, as a plug-in with a fault does, in its third block. WIDEN_TEST_END: how.
#include <csignal>
#include <cstdlib>
#include <string_view>

#include "tests/host/plugins/testeffect.h"

namespace {

// Writes into each frame, so that no compiler turns it into a loop.
int withoutEnd(int depth) {
  volatile char frame[4096];
  frame[depth % 4096] = static_cast<char>(depth);
  return depth < 0 ? frame[0] : withoutEnd(depth + 1) + frame[depth % 4096];
}

void endProcess() {
  const char* how = std::getenv("WIDEN_TEST_END");
  const std::string_view name = how != nullptr ? how : "fault";
  if (name == "overflow") withoutEnd(0);
  if (name == "exit") std::exit(0);
  if (name == "abort") std::abort();
  raise(SIGSEGV);
}

}  // namespace

class Crashes : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    TestEffect::process(in, out, frames);
    if (++blocks == 3) endProcess();
  }

 private:
  int blocks = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Crashes(callback))->made();
}
