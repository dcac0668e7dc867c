// Names a latency before its time.
#include "tests/host/plugins/testeffect.h"

class NegativeLatency : public TestEffect {
 public:
  explicit NegativeLatency(audioMasterCallback callback) : TestEffect(callback) {
    record.initialDelay = -64;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new NegativeLatency(callback))->made();
}
