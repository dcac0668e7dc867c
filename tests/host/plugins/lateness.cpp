// Is late by what WIDEN_TEST_LATENCY says: "0:0 8192:480" is by 480 frames from the first call at
// frame 8192 or later, which is announced within that call (or, with WIDEN_TEST_SILENT, only set).
// The same with pins: "0:0 2000:i3" or "o4" names so many inputs or outputs.
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "tests/host/plugins/testeffect.h"

class Lateness : public TestEffect {
 public:
  explicit Lateness(audioMasterCallback callback) : TestEffect(callback) {
    const char* plan = std::getenv("WIDEN_TEST_LATENCY");
    std::istringstream words(plan == nullptr ? "" : plan);
    for (std::string word; words >> word;) {
      const auto colon = word.find(':');
      changes.push_back({std::atol(word.c_str()), word.substr(colon + 1)});
    }
    // latency that is named before anything is processed
    const char* named = std::getenv("WIDEN_TEST_FIRST");
    if (named != nullptr) record.initialDelay = std::atoi(named);
  }

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    while (next < changes.size() && static_cast<long>(heard[0].size()) >= changes[next].at)
      change(changes[next++].to);
    for (int pin = 0; pin < 2; ++pin) {
      const auto position = static_cast<VstInt32>(heard[pin].size());
      heard[pin].insert(heard[pin].end(), in[pin], in[pin] + frames);
      for (VstInt32 frame = 0; frame < frames; ++frame) {
        const VstInt32 from = position + frame - delay;
        out[pin][frame] = from < 0 ? 0.0F : heard[pin][static_cast<std::size_t>(from)];
      }
    }
  }

 private:
  struct Change {
    long at;  // frame
    std::string to;
  };

  void change(const std::string& to) {
    const int count = std::atoi(to.c_str() + (to[0] == 'i' || to[0] == 'o' ? 1 : 0));
    if (to[0] == 'i') record.numInputs = count;
    if (to[0] == 'o') record.numOutputs = count;
    if (to[0] != 'i' && to[0] != 'o') {
      record.initialDelay = count;
      delay = count < 0 ? 0 : count;
    }
    if (std::getenv("WIDEN_TEST_SILENT") == nullptr)
      host(&record, audioMasterIOChanged, 0, 0, nullptr, 0.0F);
  }

  std::vector<Change> changes;
  std::size_t next = 0;
  VstInt32 delay = 0;           // frames
  std::vector<float> heard[2];  // everything
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Lateness(callback))->made();
}
