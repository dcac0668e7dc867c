// The effect: widens by adding a delayed, shaped copy of mid on the left and subtracting it
// on the right.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "effect/kernelforms.h"
#include "effect/parameters.h"
#include "effect/sharedrates.h"
#include "platform/relaxed.h"
#include "platform/threadcontract.h"
#include "presetsystem/store/cpresetsystemeffect.h"

static_assert(kernel::kLineFrames == kDelayFrames);

// Parameter indexes and what they mean: effect/parameters.h.
// resume and suspend reset, one thread processes, none of them beside another; setParameter comes
// from any thread and only sets raw values, of which every block takes the targets toward which its
// frames glide. What crosses threads is a relaxed word, the rest is the audio thread's.
class Trelvan : public CPresetSystemEffect {
 public:
  static constexpr VstInt32 kUniqueID = kTrelvanID;

  // Complete with factory presets, stored defaults and coefficients; needs no display. Throws on
  // lack of memory.
  explicit Trelvan(audioMasterCallback host);
  ~Trelvan() override;

  void suspend() override;
  void resume() override;

  void processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) override;
  void processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames) override;

  void setParameter(VstInt32 index, float value) override;  // value: raw, 0..1, taken as given
  float getParameter(VstInt32 index) override;              // raw; 0 for an index without a value
  // Side gain (0), base frequency in Hz (1), emphasis (2), switch 0 or 1 (3, 4), internal value
  // (6), else 0.
  virtual float getParameterValue(VstInt32 index);
  void getParameterLabel(VstInt32 index, char* label) override;
  void getParameterDisplay(VstInt32 index, char* text) override;
  void getParameterName(VstInt32 index, char* text) override;
  bool canParameterBeAutomated(VstInt32 index) override;
  bool getParameterProperties(VstInt32 index, VstParameterProperties* p) override;

  bool getInputProperties(VstInt32 index, VstPinProperties* pin) override;
  bool getOutputProperties(VstInt32 index, VstPinProperties* pin) override;
  // Looks at the channel counts only: 1 in 2 out, and 2 in 2 out, are taken.
  bool setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) override;
  bool getEffectName(char* name) override;
  bool getVendorString(char* text) override;
  bool getProductString(char* text) override;
  VstInt32 getVendorVersion() override;
  VstInt32 canDo(char* text) override;
  VstPlugCategory getPlugCategory() override;

  bool isDummy(int index) override { return index >= kParameterCount; }
  bool isDummyOld(int index) override { return index >= kParameterCount; }
  void initPresets() override;
  float getVu() override;  // returns the peak value and clears it

  // For the editor, on the user-interface thread.
  // -0.5 side outweighs .. 0 equal .. +0.5 mid outweighs
  float getWidthMeter() const;
  void setEditorOpen(bool open) { editorOpen = open ? 1 : 0; }
  bool isEditorOpen() const { return editorOpen != 0; }

  // For tests and benchmarks: another form of the kernel than the best. Not while processing.
  void useKernel(const kernel::Form& form) { kernelForm = &form; }

  // Nothing here takes a lock; these stay for those who ask.
  void initMutex() {}
  void acquireMutex() {}
  void releaseMutex() {}

 private:
  template <typename Sample>
  void processBlock(Sample** inputs, Sample** outputs, VstInt32 sampleFrames);

  void clearSignal();
  // What follows from the raw value; index: a parameter's.
  float derived(VstInt32 index) const {
    return parameterAt(index).derived(raw[static_cast<std::size_t>(index)]);
  }
  bool isOn(VstInt32 index) const {  // index: a switch's
    return parametercurves::isOn(raw[static_cast<std::size_t>(index)]);
  }
  std::int32_t delayTarget() const;  // read offset in frames: length minus one period
  kernel::Targets targets() const;
  void publishLevels();

  [[no_unique_address]] ProcessingContract processing;
  Relaxed<std::int32_t> editorOpen{0};
  Relaxed<bool> inputStereo{true};   // the second input is to be read
  Relaxed<bool> outputStereo{true};  // the second output is to be written

  // From here on what each block needs, in as few cache lines as may be: with hundreds of instances
  // each of them is far away.
  static constexpr std::size_t kCacheLine = 64;  // bytes

  // By parameter index. Targets and switches are not kept: two threads that set one parameter could
  // leave those of the one beside the value of the other.
  alignas(kCacheLine) std::array<Relaxed<float>, kParameterCount> raw;
  std::int32_t sampleRateInt = 44100;

  const kernel::Form* kernelForm = *kernel::usableForms();
  kernel::State signal;
  SharedRates rates;

  // The meter: audio thread to editor, which takes the logarithm. Mid level over side level, as far
  // as they are heard: infinite without side, 0 without mid.
  static constexpr double kSilent = -1.0;
  Relaxed<double> midOverSide{kSilent};

  Relaxed<float> peakValue{0.0F};
  Relaxed<float> auxParameter;
  std::unique_ptr<kernel::LineMemory> delayMemory;

  kernel::Rates ownRates;  // behind all that a block needs: hardly ever used
};
