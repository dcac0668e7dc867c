// Shows with a file (WIDEN_TEST_FILE) that it is processing, and then waits to be interrupted.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "tests/host/plugins/testeffect.h"

class Waits : public TestEffect {
 public:
  using TestEffect::TestEffect;

 protected:
  void process(float**, float**, VstInt32) override {
    if (const char* path = std::getenv("WIDEN_TEST_FILE")) {
      if (std::FILE* file = std::fopen(path, "w")) std::fclose(file);
    }
    sleep(20);  // s; a test that interrupts it does not wait so long
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Waits(callback))->made();
}
