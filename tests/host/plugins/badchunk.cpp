// Says that it keeps chunks and returns sizes that cannot be; WIDEN_TEST_CHUNK chooses which.
#include <cstdlib>
#include <string_view>

#include "tests/host/plugins/testeffect.h"

class BadChunk : public TestEffect {
 public:
  explicit BadChunk(audioMasterCallback callback) : TestEffect(callback) {
    record.flags |= effFlagsProgramChunks;
    record.numPrograms = 1;
  }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32, VstIntPtr, void* ptr, float) override {
    const char* chosen = std::getenv("WIDEN_TEST_CHUNK");
    const std::string_view kind = chosen == nullptr ? "" : chosen;
    if (opcode == effSetChunk) return kind == "refuses" ? -1 : 1;
    if (opcode != effGetChunk) return 0;
    static char bytes[4] = {1, 2, 3, 4};
    if (kind != "null") *static_cast<void**>(ptr) = bytes;
    if (kind == "negative") return -7;
    if (kind == "huge") return VstIntPtr{1} << 40;
    if (kind == "empty") return 0;
    return sizeof bytes;
  }
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new BadChunk(callback))->made();
}
