// The extended interface: opcodes from effProcessEvents on, and what else an effect asks its host.
#pragma once

#include "plugin/audioeffect.h"

// Every operation that an effect does not override keeps the interface's default answer: 0, false
// or nothing. Threads as in AudioEffect. The virtual operations stand in the published order.
class AudioEffectX : public AudioEffect {
 public:
  using AudioEffect::AudioEffect;

  VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                       float opt) override;

  virtual VstInt32 processEvents(VstEvents*) { return 0; }
  virtual bool canParameterBeAutomated(VstInt32) { return true; }
  // a null text only asks whether it could
  virtual bool string2parameter(VstInt32, char*) { return false; }
  virtual bool getProgramNameIndexed(VstInt32, VstInt32, char*) { return false; }
  // Writes no more than label, flags, arrangement and short label: some hosts' records end there.
  virtual bool getInputProperties(VstInt32, VstPinProperties*) { return false; }
  virtual bool getOutputProperties(VstInt32, VstPinProperties*) { return false; }
  virtual VstPlugCategory getPlugCategory() { return kPlugCategUnknown; }
  virtual bool setSpeakerArrangement(VstSpeakerArrangement*, VstSpeakerArrangement*) {
    return false;
  }
  virtual bool setBypass(bool) { return false; }  // false: the host bypasses by itself
  virtual bool getEffectName(char*) { return false; }
  virtual bool getVendorString(char*) { return false; }
  virtual bool getProductString(char*) { return false; }
  virtual VstInt32 getVendorVersion() { return 0; }
  virtual VstIntPtr vendorSpecific(VstInt32, VstIntPtr, void*, float) { return 0; }
  virtual VstInt32 canDo(char*) { return 0; }  // 1 yes, 0 unknown; hosts take -1 for yes
  virtual VstInt32 getTailSize() { return 0; }
  virtual bool getParameterProperties(VstInt32, VstParameterProperties*) { return false; }
  virtual VstInt32 getVstVersion() { return kVstVersion; }
  virtual bool getSpeakerArrangement(VstSpeakerArrangement**, VstSpeakerArrangement**) {
    return false;
  }
  virtual VstInt32 startProcess() { return 0; }
  virtual VstInt32 stopProcess() { return 0; }
  virtual bool setPanLaw(VstInt32, float) { return false; }
  virtual bool beginSetProgram() { return false; }
  virtual bool endSetProgram() { return false; }
  virtual VstInt32 beginLoadBank(void*) { return 0; }
  virtual VstInt32 beginLoadProgram(void*) { return 0; }
  virtual bool setProcessPrecision(VstInt32) { return false; }
  virtual VstInt32 getNumMidiInputChannels() { return 0; }
  virtual VstInt32 getNumMidiOutputChannels() { return 0; }

  // To the host; each returns the host's answer.
  virtual float updateSampleRate();     // Hz; kept where the host's answer is above 0
  virtual VstInt32 updateBlockSize();   // frames; kept where the host's answer is above 0
  virtual VstInt32 getOutputLatency();  // frames
  virtual bool ioChanged();
  virtual bool updateDisplay();
  virtual bool beginEdit(VstInt32 index);
  virtual bool endEdit(VstInt32 index);
  virtual bool sizeWindow(VstInt32 width, VstInt32 height);  // pixels
  virtual VstTimeInfo* getTimeInfo(VstInt32 filter);  // null in scanners; sampleRate may be 0
  virtual bool getHostVendorString(char* text);
  virtual VstInt32 canHostDo(const char* text);
  virtual void* getDirectory();
  virtual VstInt32 getInputLatency();  // frames
  virtual VstInt32 getCurrentProcessLevel();
  virtual VstInt32 getAutomationState();
  virtual bool getHostProductString(char* text);
  virtual VstInt32 getHostVendorVersion();
  virtual VstIntPtr hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt);
  virtual VstInt32 getHostLanguage();

  // Of the interface before version 2.4. Hosts no longer ask; each does nothing and returns 0.
  virtual VstInt32 getNumCategoriesDeprecated() { return 0; }
  virtual bool copyProgramDeprecated(VstInt32 /*destination*/) { return false; }
  virtual bool inputConnectedDeprecated(VstInt32 /*index*/, bool /*state*/) { return false; }
  virtual bool outputConnectedDeprecated(VstInt32 /*index*/, bool /*state*/) { return false; }
  virtual VstInt32 reportCurrentPositionDeprecated() { return 0; }
  virtual float* reportDestinationBufferDeprecated() { return nullptr; }
  virtual bool getErrorTextDeprecated(char* /*text*/) { return false; }
  virtual VstInt32 fxIdleDeprecated() { return 0; }
  virtual void* getIconDeprecated() { return nullptr; }
  virtual bool setViewPositionDeprecated(VstInt32 /*x*/, VstInt32 /*y*/) { return false; }
  virtual bool keysRequiredDeprecated() { return false; }
  virtual void wantEventsDeprecated(VstInt32 /*filter*/ = 1) {}
  virtual VstInt32 tempoAtDeprecated(VstInt32 /*position*/) { return 0; }
  virtual VstInt32 getNumAutomatableParametersDeprecated() { return 0; }
  virtual VstInt32 getParameterQuantizationDeprecated() { return 0; }
  virtual bool needIdleDeprecated() { return false; }
  virtual AEffect* getPreviousPlugDeprecated(VstInt32 /*input*/) { return nullptr; }
  virtual AEffect* getNextPlugDeprecated(VstInt32 /*output*/) { return nullptr; }
  virtual VstInt32 willProcessReplacingDeprecated() { return 0; }
  virtual void setOutputSampleRateDeprecated(float /*rate*/) {}
  virtual VstSpeakerArrangement* getInputSpeakerArrangementDeprecated() { return nullptr; }
  virtual VstSpeakerArrangement* getOutputSpeakerArrangementDeprecated() { return nullptr; }
  virtual void wantAsyncOperationDeprecated(bool /*state*/ = true) {}
  virtual void hasExternalBufferDeprecated(bool /*state*/ = true) {}
};
