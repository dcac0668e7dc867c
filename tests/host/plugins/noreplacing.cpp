// Has no replacing operation.
#include "tests/host/plugins/testeffect.h"

class NoReplacing : public TestEffect {
 public:
  explicit NoReplacing(audioMasterCallback callback) : TestEffect(callback) {
    record.flags = 0;
    record.processReplacing = nullptr;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NoReplacing(callback))->made();
}
