// The effect's life: construction, resume, suspend, and what it tells the host about itself.
#include "effect/trelvan.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "platform/saturate.h"
#include "plugin/createeditor.h"
#include "plugin/createeffectinstance.h"

namespace {

constexpr double kRemainder = 0.0625;  // of a step after one closing time: 1 - 15/16
constexpr float kGlideTime = 277.0F;   // ms
constexpr double kMeterTime = 600.0;   // ms
constexpr double kSecondsPerMillisecond = 0.001;

bool copyText(char* to, const char* text) {
  std::strcpy(to, text);
  return true;
}

}  // namespace

AudioEffect* createEffectInstance(audioMasterCallback audioMaster) {
  return hostHasVersion(audioMaster) ? new Trelvan(audioMaster) : nullptr;
}

Trelvan::Trelvan(audioMasterCallback host)
    : CPresetSystemEffect(host), delayMemory(std::make_unique<kernel::LineMemory>()) {
  signal.line = delayMemory->line();
  setNumInputs(2);
  setNumOutputs(2);
  setUniqueID(kUniqueID);
  canProcessReplacing();
  canDoubleReplacing();
  setEditor(createEditor(this));  // before the first callback: the record says that there is one
  sampleRateInt = truncatedToInt32(getSampleRate());
  getOutputLatency();
  updateBlockSize();
  initPresets();
  loadDefaults();
  setPresetNo(0);
  // So every coefficient exists before the first block.
  suspend();
  resume();
  suspend();
}

// A window that is still open goes while the effect is still whole.
Trelvan::~Trelvan() {
  const ProcessingScope scope(processing, "close");
  editor.reset();
}

void Trelvan::resume() {
  const ProcessingScope scope(processing, "resume");
  CPresetSystemEffect::resume();
  sampleRateInt = truncatedToInt32(getSampleRate());
  sampleRateFloat = static_cast<float>(sampleRateInt);
  takeRate();
  getOutputLatency();
  updateBlockSize();
  clearSignal();
  // no glide after a resume
  signal.offset = delayTarget();
  signal.gain = derived(kWidthIndex);
  signal.emphasis = derived(kEmphasisIndex);
}

// Coefficients, and powers of what they leave.
void Trelvan::takeRate() {
  const double levelFrames =
      static_cast<double>(getSampleRate()) * kMeterTime * kSecondsPerMillisecond;
  const double level = 1.0 - std::pow(kRemainder, 1.0 / levelFrames);
  rates.left[0] = 1.0;
  for (int frames = 1; frames <= kernel::kFadeFrames; ++frames)
    rates.left[frames] = rates.left[frames - 1] * (1.0 - level);
  for (int place = 0; place < kernel::kMostLanes; ++place)
    rates.weights[place] = level * rates.left[kernel::kMostLanes - 1 - place];

  const double glideFrames =
      static_cast<double>(sampleRateFloat * kGlideTime) * kSecondsPerMillisecond;
  rates.glide = static_cast<float>(1.0 - std::pow(kRemainder, 1.0 / glideFrames));
  double power = 1.0;
  for (int frame = 0; frame < kernel::kGlidingFrames; ++frame) {
    rates.finePowers[frame] = power;
    rates.powers[frame] = static_cast<float>(power);
    power *= 1.0 - static_cast<double>(rates.glide);
  }
}

// Coefficients and glides stay as they are.
void Trelvan::suspend() {
  const ProcessingScope scope(processing, "suspend");
  sampleRateInt = truncatedToInt32(getSampleRate());
  sampleRateFloat = getSampleRate();  // with its fraction, unlike resume
  getOutputLatency();
  updateBlockSize();
  midOverSide = kSilent;
  clearSignal();
}

void Trelvan::clearSignal() {
  auxParameter = 0.0F;
  std::fill(std::begin(delayMemory->floats), std::end(delayMemory->floats), 0.0F);
  signal.midLevel = 0.0;
  signal.sideLevel = 0.0;
  signal.lastDelayed = 0.0F;
}

// Whole frames: at rest the read offset has no fraction.
std::int32_t Trelvan::delayTarget() const {
  return truncatedToInt32(static_cast<float>(kDelayFrames) -
                          static_cast<float>(sampleRateInt) / derived(kBaseFreqIndex));
}

float Trelvan::getVu() {
  const float peak = peakValue;
  peakValue = 0.0F;
  return peak;
}

// Hosts' records may end after the short label, so nothing is cleared. An index below 0 is taken as
// the first pins'.
bool Trelvan::getInputProperties(VstInt32 index, VstPinProperties* pin) {
  if (index > 1) return false;
  std::snprintf(pin->label, sizeof pin->label, "My %1d In", index + 1);
  pin->flags = kVstPinIsActive | kVstPinIsStereo;
  return true;
}

bool Trelvan::getOutputProperties(VstInt32 index, VstPinProperties* pin) {
  if (index > 1) return false;
  std::snprintf(pin->label, sizeof pin->label, "My %1d Out", index + 1);
  pin->flags = kVstPinIsActive | kVstPinIsStereo;
  return true;
}

bool Trelvan::setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) {
  const VstInt32 ins = in != nullptr ? in->numChannels : 0;
  const VstInt32 outs = out != nullptr ? out->numChannels : 0;
  inputStereo = !(ins == 1 && outs == 2);
  outputStereo = true;
  return (ins == 1 || ins == 2) && outs == 2;
}

bool Trelvan::getEffectName(char* name) {
  return copyText(name, "Orv Trelvan");
}
bool Trelvan::getVendorString(char* text) {
  return copyText(text, "Orv");
}
bool Trelvan::getProductString(char* text) {
  return copyText(text, "Orv Trelvan - Trelvan processor");
}
VstInt32 Trelvan::getVendorVersion() {
  return 1990;
}
VstPlugCategory Trelvan::getPlugCategory() {
  return kPlugCategMastering;
}

// Never -1: hosts take it for yes.
VstInt32 Trelvan::canDo(char* text) {
  constexpr std::string_view kAbilities[] = {"offline", "plugAsChannelInsert", "1in2out",
                                             "2in2out"};
  return std::find(std::begin(kAbilities), std::end(kAbilities), std::string_view(text)) !=
                 std::end(kAbilities)
             ? 1
             : 0;
}
