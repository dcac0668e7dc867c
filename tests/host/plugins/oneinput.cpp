// Takes mono only.
#include "tests/host/plugins/testeffect.h"

class OneInput : public TestEffect {
 public:
  explicit OneInput(audioMasterCallback callback) : TestEffect(callback) { record.numInputs = 1; }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new OneInput(callback))->made();
}
