// Names a negative number of parameters.
#include "tests/host/plugins/testeffect.h"

class NegativeCounts : public TestEffect {
 public:
  explicit NegativeCounts(audioMasterCallback callback) : TestEffect(callback) {
    record.numParams = -3;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NegativeCounts(callback))->made();
}
