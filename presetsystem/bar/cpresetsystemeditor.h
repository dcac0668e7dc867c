// The editor-side half of the preset system: the preset bar, and the bank's images.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "editor/base/aeffguieditor.h"
#include "presetsystem/bar/barclicks.h"
#include "presetsystem/bar/barnames.h"
#include "presetsystem/bar/barwindow.h"
#include "presetsystem/bar/manual.h"
#include "presetsystem/bar/messages.h"
#include "presetsystem/bar/presetbar.h"
#include "presetsystem/bar/presetbaractions.h"
#include "presetsystem/bar/presetfiles.h"
#include "presetsystem/bar/storedpresets.h"
#include "presetsystem/image/newpresetheader.h"
#include "presetsystem/store/presetlistener.h"
#include "vstgui.h"

class CPresetSystemEffect;
class PressGuard;
class Tooltips;

// A façade: each operation is one object's, which knows neither the window nor the others. It works
// without a window. User-interface thread, but for what the store tells (PresetListener).
class CPresetSystemEditor : public AEffGUIEditor,
                            public VSTGUI::IControlListener,
                            protected PresetListener,
                            protected PresetBarActions,
                            protected BarWindow {
 public:
  explicit CPresetSystemEditor(CPresetSystemEffect* owner);
  ~CPresetSystemEditor() override;  // stores the folder and the file names

  // builds the bar into the frame that is open; false without one
  bool open(void* window) override;
  void close() override;
  void idle() override;
  // acts on the bar's tags, see PresetBarTag
  void valueChanged(VSTGUI::CControl* control) override;
  virtual void endLearn() {}
  virtual void endCancel() {}
  void nameChangedExternal(const char* name) override;  // any thread; at most 24 characters
  void loadDefaults() override;

  // Readers of images whose unique ID the caller has checked. data, entries: what stands after the
  // prefix or header; at most header->dataSize bytes are read. header: already in this machine's
  // byte order. Old records hold `floatsPerRecord` floats after 24 name bytes, and all of
  // them are there.
  virtual void BufferToBankOld(char* data, bool swapped, int recordCount, int floatsPerRecord);
  virtual void BufferToBank(char* entries, newpresetheader* header, bool swapped);
  virtual void BufferToPresetOld(char* data, bool swapped, int floatCount);
  virtual void BufferToPreset(char* entries, newpresetheader* header, bool swapped);
  virtual void BufferToMidiOld(char* data, bool swapped, int floatCount);
  virtual void BufferToMidi(char* entries, newpresetheader* header, bool swapped);
  // Writers: return the image's length in bytes; the caller releases *out with delete[].
  virtual long BankToBuffer(char** out);
  virtual long PresetToBuffer(char** out);
  virtual long MidiToBuffer(char** out);

  // Files, see PresetFiles; stored values, see StoredPresets.
  void loadBank(bool endianReversed) override;
  void saveBank() override;
  void saveDefaultBank() override;
  void resetDefaultBank() override;
  virtual void loadDefaultBank();
  void loadPreset(bool endianReversed) override;
  void savePreset() override;
  void saveDefaultPreset() override;
  void resetDefaultPreset() override;
  virtual void loadDefaultPreset();
  void storeA() override;
  void storeB() override;
  void recallA() override;
  void recallB() override;
  // MIDI maps, whose files and stored default this effect has not; only a stored one is removed.
  virtual void loadMidi(bool /*endianReversed*/) {}
  virtual void saveMidi() {}
  virtual void saveDefaultMidi() {}
  virtual void resetDefaultMidi();
  virtual void loadDefaultMidi() {}
  virtual void storePathsAndFilenames();
  virtual void recallPathsAndFilenames();

  virtual void keyFocusChanged(bool) {}
  virtual bool recallKeyFocus() { return false; }

  // Code on this side renames the current preset: field, list and effect follow.
  void nameChangedInternal(const char* name) override;
  bool fileOperationRunning() const { return files.running(); }
  void completeFileOperation() { files.complete(); }  // from every idle pass
  void endFileOperation() { files.end(); }            // the window closes
  bool messageRunning() const { return messages.running(); }
  void watchMessages() { messages.watch(); }  // from every idle pass
  void endMessages() { messages.end(); }      // the window closes
  void openManual() override { manual.open(); }
  void watchManual() { manual.watch(); }         // from every idle pass
  void tryToStoreAgain() { stored.tryAgain(); }  // likewise

 protected:
  void keyboardLeft() override;  // confirms a running name entry
  void presetsChanged() override;
  bool isShown() const override;
  std::uintptr_t hostWindow() const override;
  void redraw() override;
  bool isAtRest() const override;
  void showMessage(const std::string& text) override;
  bool takesInput() const override { return !fileOperationRunning() && !messageRunning(); }

  CPresetSystemEffect* presetEffect;
  FilePlaces places;
  PresetBar bar;

 private:
  StoredPresets stored;
  Messages messages;  // before those who say something
  PresetFiles files;
  Manual manual;
  BarNames names;
  BarClicks clicks;
  std::unique_ptr<PressGuard> pressGuard;  // while the window is open
  std::unique_ptr<Tooltips> tooltips;      // likewise
};
