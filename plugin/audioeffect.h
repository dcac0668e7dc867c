// The effect base: the record the host sees, the basic opcodes, and calls back to the host.
#pragma once

#include <memory>

#include "platform/relaxed.h"
#include "plugin/aeffeditor.h"
#include "plugin/vst24.h"

// One instance per AEffect. The host makes and ends it on its user-interface thread, calls the
// dispatcher there (some hosts also call effMainsChanged, effCanBeAutomated and getParameter on the
// audio thread), processes on its audio thread, and may set parameters from any thread. Nothing
// here locks. The virtual operations stand in the published order.
class AudioEffect {
 public:
  // setChunk returns it for what it does not take; 0: taken
  static constexpr VstInt32 kChunkRefused = -1;

  AudioEffect(audioMasterCallback host, VstInt32 programs, VstInt32 parameters);
  virtual ~AudioEffect();  // deletes the editor
  AudioEffect(const AudioEffect&) = delete;
  AudioEffect& operator=(const AudioEffect&) = delete;

  // Opcodes below 25; every other returns 0.
  virtual VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                               float opt);
  virtual void open() {}
  virtual void close() {}
  virtual void suspend() {}
  virtual void resume() {}
  // Hz, as the host says it
  virtual void setSampleRate(float newSampleRate) { sampleRate = newSampleRate; }
  // frames; a hint, blocks may differ
  virtual void setBlockSize(VstInt32 newBlockSize) { blockSize = newBlockSize; }
  // Audio thread. The buffers may be the same ones; sampleFrames may be 0 or more than announced.
  virtual void processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) = 0;
  virtual void processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames) = 0;
  // Any thread, and from inside any host callback.
  virtual void setParameter(VstInt32 index, float value);
  virtual float getParameter(VstInt32 index);
  virtual void setParameterAutomated(VstInt32 index, float value);  // sets, then tells the host

  virtual VstInt32 getProgram() { return curProgram; }
  virtual void setProgram(VstInt32 program) { curProgram = program; }
  virtual void setProgramName(char* name);
  virtual void getProgramName(char* name);
  // text: the host's buffer, by the interface at least kVstMaxParamStrLen bytes; hosts give more.
  virtual void getParameterLabel(VstInt32 index, char* label);
  virtual void getParameterDisplay(VstInt32 index, char* text);
  virtual void getParameterName(VstInt32 index, char* text);
  // The block stays this effect's, valid until the next call. Returns its size in bytes, 0 where
  // there is none.
  virtual VstInt32 getChunk(void** data, bool isPreset);
  virtual VstInt32 setChunk(void* data, VstInt32 byteSize, bool isPreset);

  virtual void setUniqueID(VstInt32 id) { cEffect.uniqueID = id; }
  virtual void setNumInputs(VstInt32 inputs) { cEffect.numInputs = inputs; }
  virtual void setNumOutputs(VstInt32 outputs) { cEffect.numOutputs = outputs; }
  virtual void canProcessReplacing(bool state = true) { setFlag(effFlagsCanReplacing, state); }
  virtual void canDoubleReplacing(bool state = true) { setFlag(effFlagsCanDoubleReplacing, state); }
  virtual void programsAreChunks(bool state = true) { setFlag(effFlagsProgramChunks, state); }
  virtual void setInitialDelay(VstInt32 delay) { cEffect.initialDelay = delay; }  // frames

  virtual AEffEditor* getEditor() { return editor.get(); }
  virtual AEffect* getAeffect() { return &cEffect; }
  virtual float getSampleRate() { return sampleRate; }
  virtual VstInt32 getBlockSize() { return blockSize; }

  virtual VstInt32 getMasterVersion();
  virtual VstInt32 getCurrentUniqueId();
  virtual void masterIdle();
  // Audio thread too. True where the host's answer is 0, or there is no host.
  virtual bool isInputConnected(VstInt32 input);
  virtual bool isOutputConnected(VstInt32 output);

  // Texts for displays, with two digits after the point. maxLen: bytes of `text`, the end among
  // them. "Huge!" where the whole part finds no room.
  virtual void dB2string(float amplitude, char* text, VstInt32 maxLen);  // "-oo" for 0 and below
  virtual void Hz2string(float samples, char* text, VstInt32 maxLen);    // of a period in frames
  virtual void ms2string(float samples, char* text, VstInt32 maxLen);    // of that many frames
  virtual void float2string(float value, char* text, VstInt32 maxLen);
  virtual void int2string(VstInt32 value, char* text, VstInt32 maxLen);

  // Of the interface before version 2.4. Hosts no longer ask; each does nothing and returns 0.
  virtual void processDeprecated(float** /*inputs*/, float** /*outputs*/,
                                 VstInt32 /*sampleFrames*/) {}
  virtual float getVuDeprecated() { return 0.0F; }
  virtual void hasVuDeprecated(bool /*state*/ = true) {}
  virtual void hasClipDeprecated(bool /*state*/ = true) {}
  virtual void canMonoDeprecated(bool /*state*/ = true) {}
  virtual void setRealtimeQualitiesDeprecated(VstInt32 /*qualities*/) {}
  virtual void setOfflineQualitiesDeprecated(VstInt32 /*qualities*/) {}

  void setEditor(AEffEditor* newEditor);  // takes it over; the host is told by the flag

 protected:
  // Sends an opcode to the host; 0 where there is none.
  VstIntPtr callHost(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                     float opt = 0.0F);

  audioMasterCallback audioMaster;
  std::unique_ptr<AEffEditor> editor;
  Relaxed<float> sampleRate{44100.0F};  // Hz
  Relaxed<VstInt32> blockSize{1024};    // frames
  VstInt32 numPrograms;
  VstInt32 numParams;
  Relaxed<VstInt32> curProgram{0};

 private:
  void setFlag(VstInt32 flag, bool state);

  AEffect cEffect{};
};
