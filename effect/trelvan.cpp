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
  rates.take(getSampleRate(), ownRates);
  getOutputLatency();
  updateBlockSize();
  clearSignal();
  // no glide after a resume
  signal.offset = delayTarget();
  signal.gain = derived(kWidthIndex);
  signal.emphasis = derived(kEmphasisIndex);
}

// Coefficients and glides stay as they are.
void Trelvan::suspend() {
  const ProcessingScope scope(processing, "suspend");
  sampleRateInt = truncatedToInt32(getSampleRate());
  getOutputLatency();
  updateBlockSize();
  midOverSide = kSilent;
  clearSignal();
}

void Trelvan::clearSignal() {
  auxParameter = 0.0F;
  std::fill(std::begin(delayMemory->floats), std::end(delayMemory->floats), 0.0F);
  signal.clear();
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
  return TRELVAN_VENDOR_VERSION;  // set by the build: 1990
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
