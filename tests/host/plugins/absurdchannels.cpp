// Names more channels than there can be.
#include "tests/host/plugins/testeffect.h"

class AbsurdChannels : public TestEffect {
 public:
  explicit AbsurdChannels(audioMasterCallback callback) : TestEffect(callback) {
    record.numOutputs = 1000000;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new AbsurdChannels(callback))->made();
}
