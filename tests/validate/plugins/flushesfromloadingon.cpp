// A module whose loading alone changes how the host calculates, as a compiler's options for fast
// calculation make it.
#include "plugin/vst24.h"
#include "tests/validate/plugins/flushing.h"

namespace {

__attribute__((constructor)) void flush() {
  setFlushing(true);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback) {
  return nullptr;  // nobody asks
}
