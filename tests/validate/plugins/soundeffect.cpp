// The effect that does everything right, and the module's entry.
#include "tests/validate/plugins/soundeffect.h"

#include <dlfcn.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <new>

namespace {

constexpr VstInt32 kChunkMagic = vstFourChars('S', 'o', 'n', 'd');
constexpr const char* kParameterNames[] = {"Gain", "Feed"};

NamedEffect*& firstEffect() {
  static NamedEffect* first = nullptr;
  return first;
}

void give(void* to, const char* text, std::size_t size) {
  std::snprintf(static_cast<char*>(to), size, "%s", text);
}

// What one thread sets while another plays. Built in, since what a host stores is plain memory, and
// not every library has std::atomic_ref.
template <typename Shared>
Shared load(const Shared& shared) {
  Shared value{};
  __atomic_load(&shared, &value, __ATOMIC_RELAXED);
  return value;
}
template <typename Shared>
void store(Shared& shared, Shared value) {
  __atomic_store(&shared, &value, __ATOMIC_RELAXED);
}

}  // namespace

NamedEffect::NamedEffect(const char* itsName, MakeEffect itsMake)
    : name(itsName), make(itsMake), next(firstEffect()) {
  firstEffect() = this;
}

SoundEffect::SoundEffect(audioMasterCallback callback) : host(callback) {
  record.magic = kEffectMagic;
  record.dispatcher = [](AEffect* e, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                         float opt) {
    auto* self = static_cast<SoundEffect*>(e->object);
    const VstIntPtr result = self->dispatch(opcode, index, value, ptr, opt);
    if (opcode == effClose) delete self;
    return result;
  };
  record.setParameter = [](AEffect* e, VstInt32 index, float value) {
    static_cast<SoundEffect*>(e->object)->setParameter(index, value);
  };
  record.getParameter = [](AEffect* e, VstInt32 index) {
    return static_cast<SoundEffect*>(e->object)->getParameter(index);
  };
  record.processReplacing = [](AEffect* e, float** in, float** out, VstInt32 frames) {
    static_cast<SoundEffect*>(e->object)->process(in, out, frames);
  };
  record.process = record.processReplacing;
  record.processDoubleReplacing = [](AEffect* e, double** in, double** out, VstInt32 frames) {
    static_cast<SoundEffect*>(e->object)->processDouble(in, out, frames);
  };
  record.numPrograms = kPrograms;
  record.numParams = kParameters;
  record.numInputs = 2;
  record.numOutputs = 2;
  record.flags = effFlagsCanReplacing | effFlagsCanDoubleReplacing | effFlagsProgramChunks;
  record.ioRatio = 1.0F;
  record.uniqueID = vstFourChars('S', 'n', 'd', 'E');
  record.version = 1000;
  record.object = this;
  for (int i = 0; i < kPrograms; ++i) {
    programs[i] = {{0.5F, 0.25F}, ""};
    std::snprintf(programs[i].name, sizeof programs[i].name, "Program %d", i);
  }
}

VstIntPtr SoundEffect::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                float opt) {
  const bool isParameter = index >= 0 && index < kParameters;
  switch (opcode) {
    case effSetProgram:
      if (value >= 0 && value < kPrograms) store(current, static_cast<int>(value));
      return 0;
    case effGetProgram:
      return current;
    case effSetProgramName:
      give(programs[current].name, static_cast<const char*>(ptr), kVstMaxProgNameLen);
      return 0;
    case effGetProgramName:
      give(ptr, programs[current].name, kVstMaxProgNameLen);
      return 0;
    case effGetProgramNameIndexed:
      if (index < 0 || index >= kPrograms) return 0;
      give(ptr, programs[index].name, kVstMaxProgNameLen);
      return 1;
    case effGetParamName:
      give(ptr, isParameter ? kParameterNames[index] : "", kVstMaxParamStrLen);
      return 0;
    case effGetParamLabel:
      give(ptr, isParameter ? "%" : "", kVstMaxParamStrLen);
      return 0;
    case effGetParamDisplay: {
      char text[16] = "";
      if (isParameter)
        std::snprintf(text, sizeof text, "%d", static_cast<int>(getParameter(index) * 100.0F));
      give(ptr, text, kVstMaxParamStrLen);
      return 0;
    }
    case effSetSampleRate:
      rate = opt;
      return 0;
    case effSetBlockSize:
      blockSize = static_cast<int>(value);
      return 0;
    case effMainsChanged:
      if (value != 0) clear();
      return 0;
    case effGetChunk:
      return giveChunk(static_cast<void**>(ptr), index != 0);
    case effSetChunk:
      return takeChunk(ptr, value, index != 0);
    case effCanBeAutomated:
      return isParameter ? 1 : 0;
    case effGetInputProperties:
    case effGetOutputProperties: {
      if (index < 0 || index >= 2) return 0;
      auto* pin = static_cast<VstPinProperties*>(ptr);  // some hosts' end after the short label
      pin->arrangementType = kSpeakerArrStereo;
      give(pin->label, index == 0 ? "Left" : "Right", sizeof pin->label);
      give(pin->shortLabel, index == 0 ? "L" : "R", sizeof pin->shortLabel);
      pin->flags = kVstPinIsActive | kVstPinIsStereo;
      return 1;
    }
    case effSetSpeakerArrangement:
      return takeArrangement(reinterpret_cast<const VstSpeakerArrangement*>(value),
                             static_cast<const VstSpeakerArrangement*>(ptr));
    case effGetPlugCategory:
      return kPlugCategEffect;
    case effGetEffectName:
      give(ptr, "Sound", kVstMaxEffectNameLen);
      return 1;
    case effGetVendorString:
    case effGetProductString:
      give(ptr, "Tests", kVstMaxVendorStrLen);
      return 1;
    case effGetVendorVersion:
      return 1000;
    case effGetVstVersion:
      return kVstVersion;
    case effSetProcessPrecision:
      return 1;
    default:
      return 0;
  }
}

void SoundEffect::setParameter(VstInt32 index, float value) {
  if (index < 0 || index >= kParameters || std::isnan(value)) return;
  store(programs[load(current)].values[index], std::clamp(value, 0.0F, 1.0F));
}

float SoundEffect::getParameter(VstInt32 index) {
  return index < 0 || index >= kParameters ? 0.0F : load(programs[load(current)].values[index]);
}

// Every frame of both inputs is read before it is written, so that buffers may be the same.
template <typename Sample>
void SoundEffect::processSamples(Sample** in, Sample** out, VstInt32 frames) {
  if (frames <= 0) return;
  const Program& program = programs[load(current)];
  const auto gain = static_cast<Sample>(load(program.values[kGain]));
  const auto feed = static_cast<Sample>(load(program.values[kFeed]));
  for (VstInt32 frame = 0; frame < frames; ++frame) {
    const bool isMono = inputs == 1 || in[1] == nullptr;
    const Sample now[2] = {in[0][frame], isMono ? in[0][frame] : in[1][frame]};
    for (int pin = 0; pin < 2; ++pin) {
      if (pin < outputs && out[pin] != nullptr)
        out[pin][frame] = gain * now[pin] + feed * static_cast<Sample>(previous[pin]);
      previous[pin] = static_cast<double>(now[pin]);
    }
  }
}

void SoundEffect::process(float** in, float** out, VstInt32 frames) {
  processSamples(in, out, frames);
}

void SoundEffect::processDouble(double** in, double** out, VstInt32 frames) {
  processSamples(in, out, frames);
}

VstIntPtr SoundEffect::takeArrangement(const VstSpeakerArrangement* in,
                                       const VstSpeakerArrangement* out) {
  if (in == nullptr || out == nullptr || in->numChannels < 1 || in->numChannels > 2 ||
      out->numChannels < 1 || out->numChannels > 2)
    return 0;
  inputs = in->numChannels;
  outputs = out->numChannels;
  return 1;
}

VstIntPtr SoundEffect::giveChunk(void** bytes, bool programOnly) {
  chunk.magic = kChunkMagic;
  chunk.current = current;
  std::copy_n(programs, kPrograms, chunk.programs);
  if (programOnly) chunk.programs[0] = programs[current];
  *bytes = &chunk;
  return static_cast<VstIntPtr>(programOnly ? offsetof(Chunk, programs) + sizeof(Program)
                                            : sizeof chunk);
}

VstIntPtr SoundEffect::takeChunk(const void* bytes, VstIntPtr size, bool programOnly) {
  Chunk taken{};
  const auto whole = static_cast<VstIntPtr>(
      programOnly ? offsetof(Chunk, programs) + sizeof(Program) : sizeof taken);
  if (bytes == nullptr || size != whole) return 0;
  std::memcpy(&taken, bytes, static_cast<std::size_t>(size));
  const int count = programOnly ? 1 : kPrograms;
  if (taken.magic != kChunkMagic || taken.current < 0 || taken.current >= kPrograms) return 0;
  for (Program& program : taken.programs) {
    program.name[kVstMaxProgNameLen - 1] = '\0';
    for (const float value : program.values) {
      if (!(value >= 0.0F && value <= 1.0F)) return 0;
    }
  }
  if (!programOnly) store(current, taken.current);
  for (int i = 0; i < count; ++i) {
    Program& program = programs[programOnly ? current : i];
    for (int index = 0; index < kParameters; ++index)
      store(program.values[index], taken.programs[i].values[index]);
    std::memcpy(program.name, taken.programs[i].name, sizeof program.name);
  }
  return 1;
}

void SoundEffect::clear() {
  previous[0] = previous[1] = 0.0;
}

EFFECT_IN_FILE(sound, SoundEffect);

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(
    audioMasterCallback callback) {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&VSTPluginMain), &info) == 0) return nullptr;
  try {
    const std::string name = std::filesystem::path(info.dli_fname).stem();
    for (const NamedEffect* effect = firstEffect(); effect != nullptr; effect = effect->next) {
      if (name == effect->name) return effect->make(callback)->made();
    }
  } catch (const std::bad_alloc&) {
    // no memory, no effect
  }
  return nullptr;
}
