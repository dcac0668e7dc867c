// Keeps three programs instead of chunks, each with a gain and a balance; "Gain"
// also understands "2x".
#include <cstdio>
#include <cstdlib>

#include "tests/host/plugins/testeffect.h"

class Programs : public TestEffect {
 public:
  explicit Programs(audioMasterCallback callback) : TestEffect(callback) {
    record.numPrograms = 3;
    record.numParams = 2;
  }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float) override {
    static constexpr const char* kNames[] = {"Plain", "Half", "Quiet"};
    static constexpr const char* kParameters[] = {"Gain", "Balance"};
    static constexpr float kGains[] = {1.0F, 0.5F, 0.125F};
    switch (opcode) {
      case effSetProgram:
        current = static_cast<int>(value);
        values[0] = kGains[current];
        return 0;
      case effGetProgram:
        return current;
      case effGetProgramName:
        give(ptr, kNames[current]);
        return 1;
      case effGetProgramNameIndexed:
        if (std::getenv("WIDEN_TEST_UNINDEXED") != nullptr) return 0;
        give(ptr, kNames[index]);
        return 1;
      case effGetParamName:
        give(ptr, kParameters[index]);
        return 1;
      case effGetParamDisplay:
        std::snprintf(static_cast<char*>(ptr), 8, "%.3f", static_cast<double>(values[index]));
        return 1;
      case effString2Parameter:
        if (ptr == nullptr || std::strcmp(static_cast<const char*>(ptr), "quarter") != 0) return 0;
        values[index] = 0.25F;
        return 1;
      default:
        return 0;
    }
  }
  void setParameter(VstInt32 index, float value) override { values[index] = value; }
  float getParameter(VstInt32 index) override { return values[index]; }
  void process(float** in, float** out, VstInt32 frames) override {
    for (VstInt32 frame = 0; frame < frames; ++frame) {
      out[0][frame] = in[0][frame] * values[0];
      out[1][frame] = in[1][frame] * values[0] * values[1];
    }
  }

 private:
  int current = 0;
  float values[2] = {1.0F, 1.0F};
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Programs(callback))->made();
}
