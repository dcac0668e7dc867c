// The bank, the current preset, its name and its values, and the host's chunk.
#include "presetsystem/store/cpresetsystemeffect.h"

#include <cstring>

#include "presetsystem/image/image.h"
#include "presetsystem/store/bankimages.h"
#include "presetsystem/store/presetlistener.h"

namespace {

constexpr VstInt32 kHostPrograms = 1;  // the bank is ours, not the host's

bool isPresetNumber(long n) {
  return n >= 0 && n < CPresetSystemEffect::kPresetCount;
}

bool isParameterIndex(VstInt32 index) {
  return index >= 0 && index < CPresetSystemEffect::kParameterCount;
}

void copyName(const ACombProgram& preset, char* text) {
  std::memcpy(text, preset.name, sizeof preset.name);
  text[sizeof preset.name] = 0;
}

}  // namespace

CPresetSystemEffect::CPresetSystemEffect(audioMasterCallback host)
    : AudioEffectX(host, kHostPrograms, kParameterCount),
      presets(std::make_unique<presetimage::Bank>()) {
  programsAreChunks();
  presets->fill(ACombProgram::zeroed());
  defaultPreset = preset(0);
}

// An effect whose making breaks off ends here: the editor takes its leave of a store that is there.
CPresetSystemEffect::~CPresetSystemEffect() {
  editor.reset();
}

void CPresetSystemEffect::setParameter(VstInt32 index, float value) {
  if (isParameterIndex(index)) preset(getPresetNo()).setParameter(index, value);
}

float CPresetSystemEffect::getParameter(VstInt32 index) {
  return isParameterIndex(index) ? preset(getPresetNo()).parameter(index) : -1.0F;
}

void CPresetSystemEffect::setProgramName(char* name) {
  // the listener is told one character more than is stored
  char copy[ACombProgram::kNameSize + 1] = {};
  std::memcpy(copy, name, strnlen(name, ACombProgram::kNameSize));
  preset(getPresetNo()).rename(copy);
  if (listener != nullptr) listener->nameChangedExternal(copy);
}

void CPresetSystemEffect::getProgramName(char* name) {
  copyName(preset(getPresetNo()), name);
}

bool CPresetSystemEffect::getProgramNameIndexed(VstInt32 /*category*/, VstInt32 index, char* text) {
  if (!isPresetNumber(index)) return false;
  copyName(preset(index), text);
  return true;
}

bool CPresetSystemEffect::setPresetNo(long n) {
  if (!isPresetNumber(n)) return false;
  presetChangeInProgress = true;
  curProgram = 0;
  currentPreset = n;
  for (int index = 0; index < kParameterCount; ++index) {
    const float value = preset(n).parameter(index);
    if (value >= 0.0F && value <= 1.0F) setParameter(index, value);
  }
  updateDisplay();
  beginEdit(0);  // an empty gesture: hosts re-read the parameters after it
  const bool answer = endEdit(0);
  presetChangeInProgress = false;
  return answer;
}

void CPresetSystemEffect::setPresetName(const char* name) {
  curProgram = 0;
  if (name != nullptr) preset(getPresetNo()).rename(name);
  updateDisplay();
}

void CPresetSystemEffect::initializePreset(long n) {
  if (isPresetNumber(n)) preset(n) = defaultPreset;
}

void CPresetSystemEffect::loadDefaults() {
  defaultPreset = preset(0);
  if (listener != nullptr) listener->loadDefaults();
}

presetimage::DummySlots CPresetSystemEffect::dummySlots() {
  presetimage::DummySlots slots{};
  for (int index = 0; index < kParameterCount; ++index)
    slots[static_cast<std::size_t>(index)] = isDummy(index);
  return slots;
}

presetimage::DummySlots CPresetSystemEffect::oldDummySlots() {
  presetimage::DummySlots slots{};
  for (int index = 0; index < kParameterCount; ++index)
    slots[static_cast<std::size_t>(index)] = isDummyOld(index);
  return slots;
}

void CPresetSystemEffect::bankTakenOver(long n) {
  setPresetNo(n);
  if (listener != nullptr) listener->presetsChanged();
}

void CPresetSystemEffect::presetTakenOver() {
  const long n = getPresetNo();
  char name[ACombProgram::kNameSize + 1];
  copyName(preset(n), name);
  setPresetName(name);
  setPresetNo(n);
  if (listener != nullptr) listener->presetsChanged();
}

// Without an editor the effect is being made, or ends: its bank is nobody's.
VstInt32 CPresetSystemEffect::getChunk(void** data, bool /*isPreset*/) {
  if (editor == nullptr) return 0;
  const std::size_t size = BankImages(*this).writeChunk(chunkBuffer);
  *data = chunkBuffer.data();
  return static_cast<VstInt32>(size);
}

// A byteSize above 0 bounds every read. One that says nothing (0 or below) leaves the header's own
// data size, and no chunk of ours is longer than kChunkSize.
VstInt32 CPresetSystemEffect::setChunk(void* data, VstInt32 byteSize, bool /*isPreset*/) {
  if (data == nullptr || editor == nullptr) return kChunkRefused;
  const bool sizeKnown = byteSize > 0;
  const std::span<unsigned char> bytes(
      static_cast<unsigned char*>(data),
      sizeKnown ? static_cast<std::size_t>(byteSize) : presetimage::kChunkSize);
  const presetimage::Image image =
      presetimage::identify(bytes, getUniqueID(), {.sizeKnown = sizeKnown});
  const bool isCurrent =
      image.isChunk && !image.isOld && image.extent != presetimage::Image::Extent::headless;
  if (isCurrent && image.swapped) {  // the host's copy is turned with it
    byteSwapHeader(bytes.subspan<presetimage::kChunkPrefixSize, newpresetheader::kSize>());
  }
  return BankImages(*this).takeChunk(image) ? 0 : kChunkRefused;
}
