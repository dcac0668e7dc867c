// A module whose loading alone changes how the host calculates, as a compiler's options for fast
// calculation make it.
#include "plugin/vst24.h"

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace {

__attribute__((constructor)) void flush() {
#if defined(__SSE2__)
  constexpr unsigned kFlush = 0x8040;  // results and operands
  _mm_setcsr(_mm_getcsr() | kFlush);
#endif
}

}  // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback) {
  return nullptr;  // nobody asks
}
