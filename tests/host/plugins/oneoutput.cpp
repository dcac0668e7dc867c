// Has one output only.
#include "tests/host/plugins/testeffect.h"

class OneOutput : public TestEffect {
 public:
  explicit OneOutput(audioMasterCallback callback) : TestEffect(callback) { record.numOutputs = 1; }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new OneOutput(callback))->made();
}
