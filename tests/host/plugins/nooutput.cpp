// Gives no sound out.
#include "tests/host/plugins/testeffect.h"

class NoOutput : public TestEffect {
 public:
  explicit NoOutput(audioMasterCallback callback) : TestEffect(callback) { record.numOutputs = 0; }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NoOutput(callback))->made();
}
