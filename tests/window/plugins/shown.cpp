// An effect whose window is the host's, empty: writes down, into the file WIDEN_TEST_LOG, what is
// called on which thread. WIDEN_TEST_NAME is its name, and WIDEN_TEST_DOES what it does besides.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "tests/host/plugins/testeffect.h"

namespace {

std::string told(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

}  // namespace

class Shown : public TestEffect {
 public:
  explicit Shown(audioMasterCallback callback)
      : TestEffect(callback), log(std::fopen(told("WIDEN_TEST_LOG").c_str(), "a")) {
    record.flags |= effFlagsHasEditor | effFlagsProgramChunks;
    if (does == "mono") record.numInputs = 1;
    if (does == "nostate") record.flags &= ~effFlagsProgramChunks;
  }
  ~Shown() override {
    if (log != nullptr) std::fclose(log);
  }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32, VstIntPtr value, void* ptr, float opt) override {
    switch (opcode) {
      case effGetEffectName:
        give(ptr, told("WIDEN_TEST_NAME").c_str());
        return 1;
      case effSetSampleRate:
        write("setSampleRate " + std::to_string(static_cast<int>(opt)));
        break;
      case effMainsChanged:
        write("mainsChanged " + std::to_string(value));
        break;
      case effEditGetRect:
        *static_cast<ERect**>(ptr) = &rect;
        return 1;
      case effEditOpen:
        write("editOpen");
        return 1;
      case effEditClose:
        write("editClose");
        break;
      case effEditIdle:
        idle();
        break;
      case effGetChunk:
        *static_cast<void**>(ptr) = chunk;
        return sizeof chunk;
      case effClose:
        write("close");
        break;
      default:
        break;
    }
    return 0;
  }

  // Each block needs the last frame of the one before.
  void process(float** in, float** out, VstInt32 frames) override {
    for (int pin = 0; pin < 2; ++pin) {
      const float* from = in[pin % record.numInputs];
      for (VstInt32 i = 0; i < frames; ++i) {
        out[pin][i] = 0.5F * from[i] + 0.25F * last[pin];
        last[pin] = from[i];
      }
    }
    write("process " + std::to_string(frames));
    if (does == "change" && ++blocks == 20) record.numOutputs = 3;
  }

 private:
  void write(const std::string& line) {
    if (log == nullptr) return;
    const bool main = std::this_thread::get_id() == maker;
    const auto level = host(&record, audioMasterGetCurrentProcessLevel, 0, 0, nullptr, 0.0F);
    const auto* time =
        reinterpret_cast<VstTimeInfo*>(host(&record, audioMasterGetTime, 0, 0, nullptr, 0.0F));
    const long at = time == nullptr ? -1 : static_cast<long>(time->samplePos);
    std::fprintf(log, "%s %s level %d at %ld\n", main ? "main:" : "other:", line.c_str(),
                 static_cast<int>(level), at);
    std::fflush(log);
  }

  void idle() {
    ++passes;
    if (passes == 1) write("editIdle");
    if (does == "hang" && passes == 5) {
      for (unsigned rest = 25; rest > 0;) rest = sleep(rest);  // s; a signal wakes it
    }
    if (does != "resize") return;
    // First by asking, and then without a word.
    if (passes == 5) host(&record, audioMasterSizeWindow, 400, 300, nullptr, 0.0F);
    if (told("WIDEN_TEST_MORE").empty() || passes < 15) return;
    rect.right = static_cast<VstInt16>(rect.left + 333);
    rect.bottom = static_cast<VstInt16>(rect.top + 222);
  }

  const std::string does = told("WIDEN_TEST_DOES");
  const std::thread::id maker = std::this_thread::get_id();
  std::FILE* log;
  ERect rect{10, 20, 110, 220};  // top, left, bottom, right
  char chunk[6] = {'s', 't', 'a', 't', 'e', '\n'};
  float last[2] = {};
  int blocks = 0;
  int passes = 0;
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Shown(callback))->made();
}
