// Fills the record, routes the basic opcodes, and calls the host.
#include "plugin/audioeffect.h"

#include <cmath>

namespace {

AudioEffect* objectOf(AEffect* effect) {
  return static_cast<AudioEffect*>(effect->object);
}

// Every entry of the record goes through here: hosts are not compiled to be unwound, so what is
// thrown (memory has run out) ends as the answer that the request could not be met.
template <typename Answer, typename Work>
Answer guarded(Answer cannot, Work&& work) noexcept {
  try {
    return work();
  } catch (...) {
    return cannot;
  }
}

template <typename Work>
void guarded(Work&& work) noexcept {
  guarded(false, [&work] {
    work();
    return true;
  });
}

// The object is gone when effClose returns; the host must not touch the record afterwards.
VstIntPtr dispatch(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                   float opt) {
  AudioEffect* object = objectOf(effect);
  const VstIntPtr cannot = opcode == effSetChunk ? AudioEffect::kChunkRefused : 0;
  const VstIntPtr answer =
      guarded(cannot, [&] { return object->dispatcher(opcode, index, value, ptr, opt); });
  if (opcode != effClose) return answer;
  delete object;
  return 1;
}

void processAccumulating(AEffect* effect, float** inputs, float** outputs, VstInt32 sampleFrames) {
  guarded([&] { objectOf(effect)->processDeprecated(inputs, outputs, sampleFrames); });
}

// A NaN is no parameter value: it would be heard as NaNs for as long as the effect is switched on,
// and no bank that holds one is read again.
void setParameterOf(AEffect* effect, VstInt32 index, float value) {
  if (std::isnan(value)) return;
  guarded([&] { objectOf(effect)->setParameter(index, value); });
}

float parameterOf(AEffect* effect, VstInt32 index) {
  return guarded(0.0F, [&] { return objectOf(effect)->getParameter(index); });
}

void processFloat(AEffect* effect, float** inputs, float** outputs, VstInt32 sampleFrames) {
  guarded([&] { objectOf(effect)->processReplacing(inputs, outputs, sampleFrames); });
}

void processDouble(AEffect* effect, double** inputs, double** outputs, VstInt32 sampleFrames) {
  guarded([&] { objectOf(effect)->processDoubleReplacing(inputs, outputs, sampleFrames); });
}

}  // namespace

// The record is whole before anything can call back: hosts use it from inside their first callback.
AudioEffect::AudioEffect(audioMasterCallback host, VstInt32 programs, VstInt32 parameters)
    : audioMaster(host), numPrograms(programs), numParams(parameters) {
  cEffect.magic = kEffectMagic;
  cEffect.dispatcher = dispatch;
  cEffect.process = processAccumulating;
  cEffect.setParameter = setParameterOf;
  cEffect.getParameter = parameterOf;
  cEffect.numPrograms = programs;
  cEffect.numParams = parameters;
  cEffect.numInputs = 1;
  cEffect.numOutputs = 1;
  cEffect.ioRatio = 1.0F;
  cEffect.object = this;
  cEffect.version = 1;
  cEffect.processReplacing = processFloat;
  cEffect.processDoubleReplacing = processDouble;
}

AudioEffect::~AudioEffect() = default;

VstIntPtr AudioEffect::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                  float opt) {
  const bool needsPointer = (opcode >= effSetProgramName && opcode <= effGetParamName) ||
                            opcode == effEditGetRect || opcode == effGetChunk;
  if (needsPointer && ptr == nullptr) return 0;
  auto* text = static_cast<char*>(ptr);
  switch (opcode) {
    case effOpen:
      open();
      return 0;
    case effClose:
      close();
      return 0;
    case effSetProgram:
      if (value < numPrograms) setProgram(static_cast<VstInt32>(value));
      return 0;
    case effGetProgram:
      return getProgram();
    case effSetProgramName:
      setProgramName(text);
      return 0;
    case effGetProgramName:
      getProgramName(text);
      return 0;
    case effGetParamLabel:
      getParameterLabel(index, text);
      return 0;
    case effGetParamDisplay:
      getParameterDisplay(index, text);
      return 0;
    case effGetParamName:
      getParameterName(index, text);
      return 0;
    case effSetSampleRate:
      setSampleRate(opt);
      return 0;
    case effSetBlockSize:
      setBlockSize(static_cast<VstInt32>(value));
      return 0;
    case effMainsChanged:
      if (value != 0) {
        resume();
      } else {
        suspend();
      }
      return 0;
    case effEditGetRect:
      return editor && editor->getRect(static_cast<ERect**>(ptr)) ? 1 : 0;
    case effEditOpen:
      return editor && editor->open(ptr) ? 1 : 0;
    case effEditClose:
      if (editor) editor->close();
      return 0;
    case effEditIdle:
      if (editor) editor->idle();
      return 0;
    case effIdentify:
      return kEffectIdentity;
    case effGetChunk:
      return getChunk(static_cast<void**>(ptr), index != 0);
    case effSetChunk:
      return setChunk(ptr, static_cast<VstInt32>(value), index != 0);
    default:
      return 0;
  }
}

void AudioEffect::setParameter(VstInt32, float) {}

float AudioEffect::getParameter(VstInt32) {
  return 0.0F;
}

void AudioEffect::setParameterAutomated(VstInt32 index, float value) {
  setParameter(index, value);
  callHost(audioMasterAutomate, index, 0, nullptr, value);
}

void AudioEffect::setProgramName(char*) {}
void AudioEffect::getProgramName(char* name) {
  *name = 0;
}
void AudioEffect::getParameterLabel(VstInt32, char* label) {
  *label = 0;
}
void AudioEffect::getParameterDisplay(VstInt32, char* text) {
  *text = 0;
}
void AudioEffect::getParameterName(VstInt32, char* text) {
  *text = 0;
}
VstInt32 AudioEffect::getChunk(void**, bool) {
  return 0;
}
VstInt32 AudioEffect::setChunk(void*, VstInt32, bool) {
  return 0;
}

void AudioEffect::setEditor(AEffEditor* newEditor) {
  if (newEditor != editor.get()) editor.reset(newEditor);
  setFlag(effFlagsHasEditor, newEditor != nullptr);
}

VstInt32 AudioEffect::getMasterVersion() {
  const auto version = static_cast<VstInt32>(callHost(audioMasterVersion));
  return version != 0 ? version : 1;  // a host so old that it does not answer
}

VstInt32 AudioEffect::getCurrentUniqueId() {
  return static_cast<VstInt32>(callHost(audioMasterCurrentId));
}

void AudioEffect::masterIdle() {
  callHost(audioMasterIdle);
}

bool AudioEffect::isInputConnected(VstInt32 input) {
  return callHost(audioMasterPinConnected, input, 0) == 0;
}

bool AudioEffect::isOutputConnected(VstInt32 output) {
  return callHost(audioMasterPinConnected, output, 1) == 0;
}

VstIntPtr AudioEffect::callHost(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                float opt) {
  return audioMaster != nullptr ? audioMaster(&cEffect, opcode, index, value, ptr, opt) : 0;
}

void AudioEffect::setFlag(VstInt32 flag, bool state) {
  cEffect.flags = state ? (cEffect.flags | flag) : (cEffect.flags & ~flag);
}
