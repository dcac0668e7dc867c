// One VST 2.4 effect, driven as a careful host drives it.
#include "host/vst/effect.h"

#include <array>
#include <cstring>
#include <mutex>

#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/vst/effectrecord.h"

namespace {

// bytes; effects have been seen to exceed the published sizes
constexpr std::size_t kTextCapacity = 1024;
constexpr VstIntPtr kAnyCategory = -1;

VstInt32 indexOf(Effect::ChunkOf what) {
  return what == Effect::ChunkOf::program ? 1 : 0;
}

std::string pinCounts(VstInt32 inputs, VstInt32 outputs) {
  return std::to_string(inputs) + " inputs and " + std::to_string(outputs) + " outputs";
}

std::string cleaned(const char* text) {
  std::string clean;
  for (; *text != 0; ++text)
    clean += static_cast<unsigned char>(*text) < ' ' || *text == 127 ? ' ' : *text;
  const auto first = clean.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return clean.substr(first, clean.find_last_not_of(' ') - first + 1);
}

}  // namespace

Effect::Effect(PluginModule& loaded, HostCallback& callback)
    : module(loaded), host(callback), name(loaded.path().filename().string()) {
  const std::lock_guard life(module.lifeLock());
  {
    const HostCallback::Scope scope(&host);
    effect = module.entryPoint()(&HostCallback::entry);
  }
  try {
    checkEffectRecord(effect, name);
  } catch (const Failure&) {
    const bool isEffect =
        effect != nullptr && effect->magic == kEffectMagic && effect->dispatcher != nullptr;
    if (isEffect) call(effClose, 0, 0, nullptr, 0.0F);
    throw;
  }
  effect->resvd1 = reinterpret_cast<VstIntPtr>(&host);
  host.setUniqueID(effect->uniqueID);
  call(effOpen, 0, 0, nullptr, 0.0F);
}

Effect::~Effect() {
  stop();
  const std::lock_guard life(module.lifeLock());
  call(effClose, 0, 0, nullptr, 0.0F);
}

VstIntPtr Effect::call(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) {
  return effect->dispatcher(effect, opcode, index, value, ptr, opt);
}

VstIntPtr Effect::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) {
  const std::lock_guard life(module.lifeLock());
  return call(opcode, index, value, ptr, opt);
}

std::string Effect::textUnlocked(VstInt32 opcode, VstInt32 index, VstIntPtr value) {
  std::array<char, kTextCapacity> buffer{};
  call(opcode, index, value, buffer.data(), 0.0F);
  buffer.back() = 0;
  return cleaned(buffer.data());
}

std::string Effect::text(VstInt32 opcode, VstInt32 index, VstIntPtr value) {
  const std::lock_guard life(module.lifeLock());
  return textUnlocked(opcode, index, value);
}

float Effect::parameter(int index) const {
  const std::lock_guard life(module.lifeLock());
  return effect->getParameter(effect, index);
}

void Effect::setParameter(int index, float value) {
  const std::lock_guard life(module.lifeLock());
  effect->setParameter(effect, index, value);
}

std::vector<std::string> Effect::namesUnlocked(int count) {
  std::vector<std::string> names;
  std::array<char, kTextCapacity> buffer{};
  for (VstInt32 index = 0; index < count; ++index) {
    if (call(effGetProgramNameIndexed, index, kAnyCategory, buffer.data(), 0.0F) == 0) break;
    buffer.back() = 0;
    names.push_back(cleaned(buffer.data()));
  }
  return names;
}

std::vector<std::string> Effect::programNamesByIndex(int count) {
  const std::lock_guard life(module.lifeLock());
  return namesUnlocked(count);
}

std::vector<std::string> Effect::programNames() {
  const std::lock_guard life(module.lifeLock());
  const VstInt32 count = effect->numPrograms;
  std::vector<std::string> names = namesUnlocked(count);
  if (static_cast<VstInt32>(names.size()) == count) return names;
  const VstIntPtr current = call(effGetProgram, 0, 0, nullptr, 0.0F);
  names.clear();
  for (VstInt32 index = 0; index < count; ++index) {
    call(effSetProgram, 0, index, nullptr, 0.0F);
    names.push_back(textUnlocked(effGetProgramName, 0, 0));
  }
  call(effSetProgram, 0, current, nullptr, 0.0F);
  return names;
}

void Effect::selectProgram(int index) {
  const std::lock_guard life(module.lifeLock());
  call(effBeginSetProgram, 0, 0, nullptr, 0.0F);
  call(effSetProgram, 0, index, nullptr, 0.0F);
  call(effEndSetProgram, 0, 0, nullptr, 0.0F);
}

void Effect::nameProgram(const std::string& programName) {
  std::array<char, kTextCapacity> buffer{};
  programName.copy(buffer.data(), kVstMaxProgNameLen - 1);
  dispatch(effSetProgramName, 0, 0, buffer.data());
}

void Effect::checkHasChunk() const {
  if (hasChunk()) return;
  throw Failure(name + ": the effect keeps no state that could be saved or loaded");
}

Effect::Bytes Effect::chunk(ChunkOf what) {
  checkHasChunk();
  const std::lock_guard life(module.lifeLock());
  void* bytes = nullptr;
  const VstIntPtr size = call(effGetChunk, indexOf(what), 0, &bytes, 0.0F);
  if (size < 0 || size > static_cast<VstIntPtr>(kLargestState)) {
    throw Failure(name + ": the effect answers a state of " + std::to_string(size) +
                  " bytes, which cannot be");
  }
  if (size == 0 || bytes == nullptr) throw Failure(name + ": the effect gives no state");
  const auto* first = static_cast<const unsigned char*>(bytes);
  return {first, first + size};
}

void Effect::setChunk(std::span<const unsigned char> bytes, ChunkOf what) {
  checkHasChunk();
  const std::lock_guard life(module.lifeLock());
  Bytes copy(bytes.begin(), bytes.end());  // effects may change what they are given
  const auto size = static_cast<VstIntPtr>(copy.size());
  if (call(effSetChunk, indexOf(what), size, copy.data(), 0.0F) < 0) {
    throw Failure(name + ": the effect refuses the state (damaged, or another plug-in's)");
  }
}

void Effect::checkCanProcess(bool doublePrecision) const {
  if ((effect->flags & effFlagsIsSynth) != 0 || effect->numInputs == 0) {
    throw Failure(name + ": takes no sound in; widen needs an effect");
  }
  if (effect->numOutputs == 0) throw Failure(name + ": gives no sound out");
  if ((effect->flags & effFlagsCanReplacing) == 0 || effect->processReplacing == nullptr) {
    throw Failure(name + ": the effect has no processReplacing");
  }
  if (doublePrecision && !canProcessDouble())
    throw Failure(name + ": the effect cannot process in double precision (leave --double out)");
}

bool Effect::canProcessDouble() const {
  return (effect->flags & effFlagsCanDoubleReplacing) != 0 &&
         effect->processDoubleReplacing != nullptr;
}

void Effect::checkTakes(int channels, const std::string& sound) const {
  if (channels <= effect->numInputs) return;
  throw Failure(sound + ": is stereo, but " + name + " takes mono only");
}

void Effect::setUp(int sampleRate, int blockSize) {
  host.setSampleRate(sampleRate);
  host.setBlockSize(blockSize);
  dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(sampleRate));
  dispatch(effSetBlockSize, 0, blockSize);
}

void Effect::start(bool doublePrecision) {
  const std::lock_guard life(module.lifeLock());
  // No answer is waited for: effects that can do it have said so in their flags.
  if ((effect->flags & effFlagsCanDoubleReplacing) != 0) {
    call(effSetProcessPrecision, 0, doublePrecision ? 1 : 0, nullptr, 0.0F);
  }
  position = 0;
  host.setPosition(0);
  call(effMainsChanged, 0, 1, nullptr, 0.0F);
  running = true;
  call(effStartProcess, 0, 0, nullptr, 0.0F);
  host.setProcessing(true);
  checkEffectShape(*effect, name);
  inputPins = effect->numInputs;
  outputPins = effect->numOutputs;
}

void Effect::stop() {
  if (!running) return;
  const std::lock_guard life(module.lifeLock());
  running = false;
  host.setProcessing(false);
  call(effStopProcess, 0, 0, nullptr, 0.0F);
  call(effMainsChanged, 0, 0, nullptr, 0.0F);
}

void Effect::advance(int frames) {
  position += frames;
  host.setPosition(position);
  checkShape();
}

// Effects change it with and without a word to the host.
void Effect::checkShape() const {
  checkEffectShape(*effect, name);
  if (effect->numInputs == inputPins && effect->numOutputs == outputPins) return;
  throw Failure(name + ": the effect changed from " + pinCounts(inputPins, outputPins) + " to " +
                pinCounts(effect->numInputs, effect->numOutputs) + " while it was processing");
}

void Effect::process(float** inputs, float** outputs, int frames) {
  effect->processReplacing(effect, inputs, outputs, frames);
  advance(frames);
}

void Effect::process(double** inputs, double** outputs, int frames) {
  effect->processDoubleReplacing(effect, inputs, outputs, frames);
  advance(frames);
}
