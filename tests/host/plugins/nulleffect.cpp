// Makes no effect.
#include "tests/host/plugins/testeffect.h"

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback) {
  return nullptr;
}
