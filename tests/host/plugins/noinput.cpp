// Makes sound and takes none.
#include "tests/host/plugins/testeffect.h"

class NoInput : public TestEffect {
 public:
  explicit NoInput(audioMasterCallback callback) : TestEffect(callback) {
    record.numInputs = 0;
    record.flags |= effFlagsIsSynth;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NoInput(callback))->made();
}
