// Shows its parameters in units: a distance of 0 to 48 m to a tenth, a cutoff of 20 to 20,000 Hz
// that becomes kHz from 1000 on, a list of four waves, a drive of 0 to 200 per cent, a level that
// falls as the value rises, a number of voices from 1 to 8, one that shows always the same, two
// with like names that show nothing, and a list of three with "On" in its middle.
#include <cmath>
#include <cstdio>

#include "tests/host/plugins/testeffect.h"

class Displays : public TestEffect {
 public:
  explicit Displays(audioMasterCallback callback) : TestEffect(callback) {
    record.numParams = kCount;
  }

 protected:
  enum Index {
    kDistance,
    kCutoff,
    kWave,
    kDrive,
    kLevel,
    kVoices,
    kFixed,
    kWet,
    kWetLevel,
    kMode,
    kCount
  };

  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr, void* ptr, float) override {
    static constexpr const char* kNames[] = {"Distance", "Cutoff", "Wave", "Drive",     "Level",
                                             "Voices",   "Fixed",  "Wet",  "Wet level", "Mode"};
    static constexpr const char* kLabels[] = {"m", "Hz", "", "%", "dB", "", "dB", "", "", ""};
    switch (opcode) {
      case effGetParamName:
        give(ptr, kNames[index]);
        return 1;
      case effGetParamLabel:
        give(ptr, kLabels[index]);
        if (index == kCutoff && hertz() >= 1000.0) give(ptr, "kHz");
        return 1;
      case effGetParamDisplay:
        show(index, static_cast<char*>(ptr));
        return 1;
      default:
        return 0;
    }
  }
  void setParameter(VstInt32 index, float value) override { values[index] = value; }
  float getParameter(VstInt32 index) override { return values[index]; }

 private:
  double hertz() const { return 20.0 * std::pow(1000.0, static_cast<double>(values[kCutoff])); }

  void show(VstInt32 index, char* text) const {
    static constexpr const char* kWaves[] = {"Sine", "Triangle", "Saw up", "Square"};
    static constexpr const char* kModes[] = {"Auto", "On", "Off"};
    const auto value = static_cast<double>(values[index]);
    if (index == kDistance) std::sprintf(text, "%.1f", 48.0 * value);
    if (index == kCutoff && hertz() < 1000.0) std::sprintf(text, "%.0f", hertz());
    if (index == kCutoff && hertz() >= 1000.0) std::sprintf(text, "%.2f", hertz() / 1000.0);
    if (index == kWave) give(text, kWaves[static_cast<int>(value * 3.999)]);
    if (index == kDrive) std::sprintf(text, "%.0f", 200.0 * value);
    if (index == kLevel) std::sprintf(text, "%.3f dB", -60.0 * value);
    if (index == kVoices) std::sprintf(text, "%d", 1 << static_cast<int>(value * 3.0 + 0.5));
    if (index == kFixed) give(text, "3.0");
    if (index == kMode) give(text, kModes[static_cast<int>(value * 2.999)]);
  }

  float values[kCount] = {0.25F, 0.25F, 0.25F, 0.25F, 0.25F, 0.25F, 0.25F, 0.25F, 0.25F, 0.25F};
};

TEST_EXPORT AEffect* VSTPluginMain(audioMasterCallback callback) {
  return (new Displays(callback))->made();
}
