// The preset store: the effect-side half of the preset system, with the bank, the current preset
// and the host's chunk.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>

#include "platform/relaxed.h"
#include "plugin/audioeffectx.h"
#include "presetsystem/image/presetimage.h"
#include "presetsystem/store/chunkbuffers.h"
#include "presetsystem/store/presetchange.h"

class PresetListener;

// Towards the host there is one program, whose number is always 0, and its state is the chunk with
// the whole bank. setParameter and getParameter may come from any thread, the audio thread among
// them, and take no lock: values are relaxed words. The rest comes from every other thread, also at
// once: names and whole records have a lock, which is never held while the host or the listener is
// told of something.
class CPresetSystemEffect : public AudioEffectX {
 public:
  static constexpr int kPresetCount = presetimage::kPresetCount;
  static constexpr int kParameterCount = presetimage::kParameterCount;

  explicit CPresetSystemEffect(audioMasterCallback host);
  ~CPresetSystemEffect() override;

  void resume() override {}
  // Stores into the current preset, as given; an index that is no parameter's is ignored.
  void setParameter(VstInt32 index, float value) override;
  // -1.0 for an index that is no parameter's.
  float getParameter(VstInt32 index) override;
  VstInt32 getProgram() override { return 0; }
  void setProgram(VstInt32) override {}
  // the host renames the current preset; the editor is told
  void setProgramName(char* name) override;
  void getProgramName(char* name) override;  // writes 25 bytes
  VstInt32 getChunk(void** data, bool isPreset) override;
  VstInt32 setChunk(void* data, VstInt32 byteSize, bool isPreset) override;
  // writes 25 bytes
  bool getProgramNameIndexed(VstInt32 category, VstInt32 index, char* text) override;
  VstInt32 processEvents(VstEvents*) override { return 0; }
  VstInt32 canDo(char*) override { return 0; }

  virtual long getPresetNo() { return static_cast<long>(currentPreset.load()); }
  // n: 0..31, others are ignored. Pushes the preset's values into the effect and makes the host
  // re-read them; returns the host's answer to the end of that empty gesture.
  virtual bool setPresetNo(long n);
  // the editor renames the current preset; the host is told
  virtual void setPresetName(const char* name);

  // MIDI learn and the MIDI map, which this effect has not; the editor may call them all the same.
  virtual void attachMidi(int, int) {}
  virtual void detachMidiParam(int) {}
  virtual void detachMidiCC(int) {}
  virtual int getMidiCC(int) { return 0; }
  virtual int getMidiParam(int) { return 0; }
  virtual int getMidiActivity() { return 0; }
  virtual void beginLearn() {}
  virtual void endLearn() {}
  virtual void setLearnParam(int) {}
  virtual void beginCancel() {}
  virtual void endCancel() {}

  virtual VstInt32 getUniqueID() { return getAeffect()->uniqueID; }
  // n: 0..31, others are ignored; makes it a copy of the default preset
  virtual void initializePreset(long n);
  // True for slots that current and old images leave out.
  virtual bool isDummy(int index) = 0;
  virtual bool isDummyOld(int index) = 0;
  // at construction: factory preset 0 is the default record, then the stored defaults
  virtual void loadDefaults();
  virtual void initPresets() {}
  virtual void initMidi() {}
  virtual float getVu() { return 0.0F; }

  // One at a time; null: none. It is told on the thread of the operation.
  void setPresetListener(PresetListener* newListener) { listener = newListener; }
  PresetListener* presetListener() const { return listener; }

  // For the window and the images. Whoever reads or writes names or whole records where others may
  // do so too holds the lock; never on the audio thread.
  using BankLock = std::unique_lock<std::recursive_mutex>;
  [[nodiscard]] BankLock lockBank() { return BankLock(bankMutex); }
  presetimage::Bank& bank() { return *presets; }
  ACombProgram& preset(long n) { return (*presets)[static_cast<std::size_t>(n)]; }
  ACombProgram copyOfPreset(long n);
  const ACombProgram& getDefaultPreset() const { return defaultPreset; }
  // On this thread: then setParameter leaves the bank alone.
  bool isPresetChangeInProgress() const { return presetChange.isMine(); }
  presetimage::DummySlots dummySlots();     // of current images
  presetimage::DummySlots oldDummySlots();  // of old images
  // The bank's place is taken by `read`, of which preset n becomes current; under this lock, which
  // ends before the host is told. Returns what setPresetNo returns.
  bool takeBank(const presetimage::Bank& read, long n, BankLock lock);
  void bankTakenOver(
      long n);             // a bank has been read: preset n becomes current, the listener is told
  void presetTakenOver();  // the current preset has been read: host and effect take it over

 protected:
  // Stores what getParameter returns in the current preset. Where other threads set the parameter
  // or select a preset meanwhile, the two are the same when all have ended. index: a parameter's.
  // Any thread, also the audio thread: waits for nobody.
  void storeParameter(VstInt32 index);

 private:
  void pushPreset(long n);
  bool tellOfPreset(BankLock lock);

  PresetListener* listener = nullptr;
  std::unique_ptr<presetimage::Bank> presets;
  // recursive: an effect may ask for a name from inside its setParameter
  std::recursive_mutex bankMutex;
  Relaxed<std::int64_t> currentPreset{0};  // 0..31
  ChunkBuffers chunkBuffers;
  ACombProgram defaultPreset;
  PresetChange presetChange;
};
