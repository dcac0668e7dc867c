// Routes the extended opcodes and calls the host.
#include "plugin/audioeffectx.h"

#include "plugin/vstkeycode.h"

namespace {

VstKeyCode keyCode(VstInt32 character, VstIntPtr virtualKey, float modifiers) {
  return {character, static_cast<std::uint8_t>(virtualKey),
          static_cast<std::uint8_t>(modifiers > 0.0F && modifiers < 256.0F ? modifiers : 0.0F)};
}

}  // namespace

VstIntPtr AudioEffectX::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                   float opt) {
  auto* text = static_cast<char*>(ptr);
  switch (opcode) {
    case effProcessEvents:
      return processEvents(static_cast<VstEvents*>(ptr));
    case effCanBeAutomated:
      return canParameterBeAutomated(index) ? 1 : 0;
    case effString2Parameter:
      return string2parameter(index, text) ? 1 : 0;
    case effGetProgramNameIndexed:
      return text != nullptr && getProgramNameIndexed(static_cast<VstInt32>(value), index, text)
                 ? 1
                 : 0;
    case effGetInputProperties:
      return ptr != nullptr && getInputProperties(index, static_cast<VstPinProperties*>(ptr)) ? 1
                                                                                              : 0;
    case effGetOutputProperties:
      return ptr != nullptr && getOutputProperties(index, static_cast<VstPinProperties*>(ptr)) ? 1
                                                                                               : 0;
    case effGetPlugCategory:
      return getPlugCategory();
    case effSetSpeakerArrangement:
      return setSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement*>(value),
                                   static_cast<VstSpeakerArrangement*>(ptr))
                 ? 1
                 : 0;
    case effSetBlockSizeAndSampleRate:
      setBlockSize(static_cast<VstInt32>(value));
      setSampleRate(opt);
      return 1;
    case effSetBypass:
      return setBypass(value != 0) ? 1 : 0;
    case effGetEffectName:
      return text != nullptr && getEffectName(text) ? 1 : 0;
    case effGetVendorString:
      return text != nullptr && getVendorString(text) ? 1 : 0;
    case effGetProductString:
      return text != nullptr && getProductString(text) ? 1 : 0;
    case effGetVendorVersion:
      return getVendorVersion();
    case effVendorSpecific:
      return vendorSpecific(index, value, ptr, opt);
    case effCanDo:
      return text != nullptr ? canDo(text) : 0;
    case effGetTailSize:
      return getTailSize();
    case effGetParameterProperties:
      return ptr != nullptr &&
                     getParameterProperties(index, static_cast<VstParameterProperties*>(ptr))
                 ? 1
                 : 0;
    case effGetVstVersion:
      return getVstVersion();
    case effEditKeyDown: {
      VstKeyCode key = keyCode(index, value, opt);
      return editor && editor->onKeyDown(key) ? 1 : 0;
    }
    case effEditKeyUp: {
      VstKeyCode key = keyCode(index, value, opt);
      return editor && editor->onKeyUp(key) ? 1 : 0;
    }
    case effSetEditKnobMode:
      return editor && editor->setKnobMode(static_cast<int>(value)) ? 1 : 0;
    case effBeginSetProgram:
      return beginSetProgram() ? 1 : 0;
    case effEndSetProgram:
      return endSetProgram() ? 1 : 0;
    case effGetSpeakerArrangement:
      return getSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement**>(value),
                                   static_cast<VstSpeakerArrangement**>(ptr))
                 ? 1
                 : 0;
    case effStartProcess:
      return startProcess();
    case effStopProcess:
      return stopProcess();
    case effSetPanLaw:
      return setPanLaw(static_cast<VstInt32>(value), opt) ? 1 : 0;
    case effBeginLoadBank:
      return beginLoadBank(ptr);
    case effBeginLoadProgram:
      return beginLoadProgram(ptr);
    case effSetProcessPrecision:
      return setProcessPrecision(static_cast<VstInt32>(value)) ? 1 : 0;
    case effGetNumMidiInputChannels:
      return getNumMidiInputChannels();
    case effGetNumMidiOutputChannels:
      return getNumMidiOutputChannels();
    default:
      return AudioEffect::dispatcher(opcode, index, value, ptr, opt);
  }
}

bool AudioEffectX::beginEdit(VstInt32 index) {
  return callHost(audioMasterBeginEdit, index) != 0;
}
bool AudioEffectX::endEdit(VstInt32 index) {
  return callHost(audioMasterEndEdit, index) != 0;
}
bool AudioEffectX::updateDisplay() {
  return callHost(audioMasterUpdateDisplay) != 0;
}
bool AudioEffectX::ioChanged() {
  return callHost(audioMasterIOChanged) != 0;
}

bool AudioEffectX::sizeWindow(VstInt32 width, VstInt32 height) {
  return callHost(audioMasterSizeWindow, width, height) != 0;
}

float AudioEffectX::updateSampleRate() {
  const VstIntPtr answer = callHost(audioMasterGetSampleRate);
  if (answer > 0) sampleRate = static_cast<float>(answer);
  return sampleRate;
}

VstInt32 AudioEffectX::updateBlockSize() {
  const VstIntPtr answer = callHost(audioMasterGetBlockSize);
  if (answer > 0) blockSize = static_cast<VstInt32>(answer);
  return blockSize;
}

VstInt32 AudioEffectX::getInputLatency() {
  return static_cast<VstInt32>(callHost(audioMasterGetInputLatency));
}
VstInt32 AudioEffectX::getOutputLatency() {
  return static_cast<VstInt32>(callHost(audioMasterGetOutputLatency));
}

VstTimeInfo* AudioEffectX::getTimeInfo(VstInt32 filter) {
  return reinterpret_cast<VstTimeInfo*>(callHost(audioMasterGetTime, 0, filter));
}

VstInt32 AudioEffectX::getCurrentProcessLevel() {
  return static_cast<VstInt32>(callHost(audioMasterGetCurrentProcessLevel));
}

VstInt32 AudioEffectX::getAutomationState() {
  return static_cast<VstInt32>(callHost(audioMasterGetAutomationState));
}

bool AudioEffectX::getHostVendorString(char* text) {
  return callHost(audioMasterGetVendorString, 0, 0, text) != 0;
}
bool AudioEffectX::getHostProductString(char* text) {
  return callHost(audioMasterGetProductString, 0, 0, text) != 0;
}
VstInt32 AudioEffectX::getHostVendorVersion() {
  return static_cast<VstInt32>(callHost(audioMasterGetVendorVersion));
}

VstIntPtr AudioEffectX::hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt) {
  return callHost(audioMasterVendorSpecific, index, value, ptr, opt);
}

VstInt32 AudioEffectX::canHostDo(const char* text) {
  return static_cast<VstInt32>(callHost(audioMasterCanDo, 0, 0, const_cast<char*>(text)));
}

VstInt32 AudioEffectX::getHostLanguage() {
  return static_cast<VstInt32>(callHost(audioMasterGetLanguage));
}
void* AudioEffectX::getDirectory() {
  return reinterpret_cast<void*>(callHost(audioMasterGetDirectory));
}
