// The extended interface: opcodes from effProcessEvents upward, and what else a plug-in may ask its host.
#pragma once

#include "plugin/audioeffect.h"

// Every operation that an effect does not override keeps the interface's default answer: 0, false or nothing.
// Threads as in AudioEffect. Operations stand in the order of their opcodes.
class AudioEffectX : public AudioEffect {
 public:
  using AudioEffect::AudioEffect;

  VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) override;

  virtual VstInt32 processEvents(VstEvents*) { return 0; }
  virtual bool canParameterBeAutomated(VstInt32) { return true; }
  virtual bool string2parameter(VstInt32, char*) { return false; }  // a null text only asks whether it could
  virtual bool getProgramNameIndexed(VstInt32, VstInt32, char*) { return false; }
  // Writes no more than label, flags, arrangement and short label: some hosts' records end there.
  virtual bool getInputProperties(VstInt32, VstPinProperties*) { return false; }
  virtual bool getOutputProperties(VstInt32, VstPinProperties*) { return false; }
  virtual VstPlugCategory getPlugCategory() { return kPlugCategUnknown; }
  virtual bool setSpeakerArrangement(VstSpeakerArrangement*, VstSpeakerArrangement*) { return false; }
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
  virtual bool getSpeakerArrangement(VstSpeakerArrangement**, VstSpeakerArrangement**) { return false; }
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

  // To the host; each answers what the host answers.
  virtual bool beginEdit(VstInt32 index);
  virtual bool endEdit(VstInt32 index);
  virtual bool updateDisplay();
  virtual bool ioChanged();
  virtual bool sizeWindow(VstInt32 width, VstInt32 height);  // pixels
  virtual float updateSampleRate();                          // Hz; kept where the host's answer is above 0
  virtual VstInt32 updateBlockSize();                        // frames; kept where the host's answer is above 0
  virtual VstInt32 getInputLatency();                        // frames
  virtual VstInt32 getOutputLatency();                       // frames
  virtual VstTimeInfo* getTimeInfo(VstInt32 filter);         // null in scanners; sampleRate may be 0
  virtual VstInt32 getCurrentProcessLevel();
  virtual VstInt32 getAutomationState();
  virtual bool getHostVendorString(char* text);
  virtual bool getHostProductString(char* text);
  virtual VstInt32 getHostVendorVersion();
  virtual VstIntPtr hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt);
  virtual VstInt32 canHostDo(const char* text);
  virtual VstInt32 getHostLanguage();
  virtual void* getDirectory();
};
