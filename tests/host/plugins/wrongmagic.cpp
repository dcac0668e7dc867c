// Returns a record that is none: nothing in it may be used.
#include "tests/host/plugins/testeffect.h"

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback) {
  static AEffect record;
  std::memset(&record, 0xA5, sizeof record);
  return &record;
}
