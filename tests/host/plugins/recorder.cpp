// Writes down, into the file WIDEN_TEST_LOG, every call that the host makes and what the host
// answers meanwhile.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/host/plugins/testeffect.h"

class Recorder : public TestEffect {
 public:
  explicit Recorder(audioMasterCallback callback)
      : TestEffect(callback), log(std::fopen(path(), "a")) {
    record.numPrograms = 1;
    record.numInputs = 3;  // the third is a side chain that nobody feeds
    record.numOutputs = 4;
    record.flags |= effFlagsProgramChunks | effFlagsCanDoubleReplacing;
    record.processDoubleReplacing = [](AEffect* e, double** in, double** out, VstInt32 n) {
      static_cast<Recorder*>(static_cast<TestEffect*>(e->object))->processed(in, out, n, 3, 4);
    };
    write("main");
    answers(nullptr);
  }
  ~Recorder() override { std::fclose(log); }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32, VstIntPtr value, void* ptr, float opt) override {
    switch (opcode) {
      case effOpen:
        write("open");
        break;
      case effSetSampleRate:
        write("setSampleRate " + std::to_string(static_cast<int>(opt)));
        break;
      case effSetBlockSize:
        write("setBlockSize " + std::to_string(value));
        break;
      case effSetProcessPrecision:
        write("setProcessPrecision " + std::to_string(value));
        return 1;
      case effMainsChanged:
        write("mainsChanged " + std::to_string(value));
        if (value == 1) answers(&record);
        break;
      case effStartProcess:
        write("startProcess");
        break;
      case effStopProcess:
        write("stopProcess");
        break;
      case effClose:
        write("close");
        return 1;
      case effGetChunk:
        *static_cast<void**>(ptr) = chunk;
        return sizeof chunk;
      case effSetChunk:
        write("setChunk " + std::to_string(value));
        return 1;
      default:
        break;
    }
    return 0;
  }

  void process(float** in, float** out, VstInt32 frames) override {
    processed(in, out, frames, 3, 4);
  }

 private:
  static const char* path() {
    const char* named = std::getenv("WIDEN_TEST_LOG");
    return named == nullptr ? "/dev/null" : named;
  }

  void write(const std::string& line) {
    std::fprintf(log, "%s\n", line.c_str());
    std::fflush(log);
  }

  VstIntPtr ask(AEffect* effect, VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0,
                void* ptr = nullptr) {
    return host(effect, opcode, index, value, ptr, 0.0F);
  }

  void answers(AEffect* effect) {
    char text[64] = "";
    write(" version " + std::to_string(ask(effect, audioMasterVersion)));
    write(" currentId " + std::to_string(ask(effect, audioMasterCurrentId)));
    write(" sampleRate " + std::to_string(ask(effect, audioMasterGetSampleRate)));
    write(" blockSize " + std::to_string(ask(effect, audioMasterGetBlockSize)));
    write(" pins " + std::to_string(ask(effect, audioMasterPinConnected, 0, 0)) +
          std::to_string(ask(effect, audioMasterPinConnected, 1, 1)));
    write(" vendor " + std::to_string(ask(effect, audioMasterGetVendorString, 0, 0, text)) + " " +
          text);
    write(" product " + std::to_string(ask(effect, audioMasterGetProductString, 0, 0, text)) + " " +
          text);
    write(" level " + std::to_string(ask(effect, audioMasterGetCurrentProcessLevel)));
    write(" unknown " + std::to_string(ask(effect, 12345)));
  }

  template <typename Sample>
  void processed(Sample** in, Sample** out, VstInt32 frames, int inputs, int outputs) {
    bool aligned = true;
    bool sideChainSilent = true;
    for (int pin = 0; pin < inputs; ++pin)
      aligned = aligned && reinterpret_cast<std::uintptr_t>(in[pin]) % 64 == 0;
    for (int pin = 0; pin < outputs; ++pin)
      aligned = aligned && reinterpret_cast<std::uintptr_t>(out[pin]) % 64 == 0;
    for (VstInt32 i = 0; i < frames; ++i) sideChainSilent = sideChainSilent && in[2][i] == 0;
    const auto* time = reinterpret_cast<VstTimeInfo*>(ask(&record, audioMasterGetTime));
    write("process " + std::to_string(frames) + " at " +
          std::to_string(static_cast<long>(time->samplePos)) + " of " +
          std::to_string(static_cast<int>(time->sampleRate)) +
          (aligned ? " aligned" : " UNALIGNED") + (in[0] != in[1] ? " own buffers" : " SHARED") +
          (sideChainSilent ? " silent side chain" : " NOISE") + " level " +
          std::to_string(ask(&record, audioMasterGetCurrentProcessLevel)) +
          (sizeof(Sample) == sizeof(double) ? " double" : " single"));
    for (int pin = 0; pin < outputs; ++pin) std::copy_n(in[pin % 2], frames, out[pin]);
    std::fill_n(in[2], frames, Sample{1});  // a plug-in may use its inputs as scratch memory
  }

  std::FILE* log;
  char chunk[8] = {'r', 'e', 'c', 'o', 'r', 'd', 0, 1};
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Recorder(callback))->made();
}
