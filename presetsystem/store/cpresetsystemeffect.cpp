// The bank, the current preset, its name and its values, and the host's chunk.
#include "presetsystem/store/cpresetsystemeffect.h"

#include <atomic>
#include <bit>
#include <cstring>
#include <utility>

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
  {
    const BankLock lock = lockBank();
    preset(getPresetNo()).rename(copy);
  }
  if (listener != nullptr) listener->nameChangedExternal(copy);
}

void CPresetSystemEffect::getProgramName(char* name) {
  copyName(copyOfPreset(getPresetNo()), name);
}

bool CPresetSystemEffect::getProgramNameIndexed(VstInt32 /*category*/, VstInt32 index, char* text) {
  if (!isPresetNumber(index)) return false;
  copyName(copyOfPreset(index), text);
  return true;
}

bool CPresetSystemEffect::setPresetNo(long n) {
  if (!isPresetNumber(n)) return false;
  BankLock lock = lockBank();
  const PresetChange::Scope change(presetChange);
  pushPreset(n);
  return tellOfPreset(std::move(lock));
}

// The number is changed first: what other threads set from there on is for preset n. One that has
// looked the old number up before stores into a preset of this bank; it gets its value back.
bool CPresetSystemEffect::takeBank(const presetimage::Bank& read, long n, BankLock lock) {
  const PresetChange::Scope change(presetChange);
  currentPreset = n;
  std::atomic_thread_fence(std::memory_order_seq_cst);
  *presets = read;
  pushPreset(n);
  for (long other = 0; other < kPresetCount; ++other) {
    if (other != n) preset(other) = read[static_cast<std::size_t>(other)];
  }
  return tellOfPreset(std::move(lock));
}

bool CPresetSystemEffect::tellOfPreset(BankLock lock) {
  lock.unlock();  // the host may wait for another thread that needs it
  updateDisplay();
  beginEdit(0);  // an empty gesture: hosts re-read the parameters after it
  return endEdit(0);
}

// What other threads set meanwhile is settled value by value: one of the two is heard and stored.
void CPresetSystemEffect::pushPreset(long n) {
  curProgram = 0;
  currentPreset = n;
  std::atomic_thread_fence(std::memory_order_seq_cst);  // see storeParameter
  for (int index = 0; index < kParameterCount; ++index) {
    const float value = preset(n).parameter(index);
    if (!(value >= 0.0F && value <= 1.0F)) continue;
    setParameter(index, value);
    storeParameter(index);
  }
}

// Every thread sets the effect's value first and then copies it into the bank, until what it has
// copied is still the effect's: so the last copy is of the value that was set last. For that no
// thread may copy before others can see what it set, nor look again before they can see its copy.
// The preset is looked up after the value: the one before it must not get the next one's value. A
// copy is made again only where another thread has got on.
void CPresetSystemEffect::storeParameter(VstInt32 index) {
  const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
  float value = 0.0F;
  do {
    std::atomic_thread_fence(std::memory_order_seq_cst);
    value = getParameter(index);
    std::atomic_thread_fence(std::memory_order_acquire);
    preset(getPresetNo()).setParameter(index, value);
    std::atomic_thread_fence(std::memory_order_seq_cst);
  } while (bits(value) != bits(getParameter(index)));
}

void CPresetSystemEffect::setPresetName(const char* name) {
  curProgram = 0;
  if (name != nullptr) {
    const BankLock lock = lockBank();
    preset(getPresetNo()).rename(name);
  }
  updateDisplay();
}

void CPresetSystemEffect::initializePreset(long n) {
  if (!isPresetNumber(n)) return;
  const BankLock lock = lockBank();
  preset(n) = defaultPreset;
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

ACombProgram CPresetSystemEffect::copyOfPreset(long n) {
  const BankLock lock = lockBank();
  return preset(n);
}

void CPresetSystemEffect::bankTakenOver(long n) {
  setPresetNo(n);
  if (listener != nullptr) listener->presetsChanged();
}

void CPresetSystemEffect::presetTakenOver() {
  const long n = getPresetNo();
  char name[ACombProgram::kNameSize + 1];
  copyName(copyOfPreset(n), name);
  setPresetName(name);
  setPresetNo(n);
  if (listener != nullptr) listener->presetsChanged();
}

// Without an editor the effect is being made, or ends: its bank is nobody's.
VstInt32 CPresetSystemEffect::getChunk(void** data, bool /*isPreset*/) {
  if (editor == nullptr) return 0;
  const BankLock lock = lockBank();
  ChunkBuffers::Buffer& chunk = chunkBuffers.ofThisThread();
  const std::size_t size = BankImages(*this).writeChunk(chunk);
  *data = chunk.data();
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
