// The editor-side half of the preset system: the preset bar, and the bank's images.
#pragma once

#include <array>
#include <atomic>
#include <memory>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "editor/base/aeffguieditor.h"
#include "editor/base/filedialog.h"
#include "platform/openmanual.h"
#include "presetsystem/bar/presetbar.h"
#include "presetsystem/image/newpresetheader.h"

class CPresetSystemEffect;
class PreferenceStore;
class PressGuard;

// The images go through the editor because a finished reading refreshes the window's preset list and name. It works
// without a window. User-interface thread, and whichever thread the host calls the chunk on.
class CPresetSystemEditor : public AEffGUIEditor, public VSTGUI::IControlListener {
 public:
  explicit CPresetSystemEditor(CPresetSystemEffect* owner);
  ~CPresetSystemEditor() override;  // stores the folder and the file names

  bool open(void* window) override;  // builds the bar into the frame that is open; false without one
  void close() override;
  void idle() override;
  void valueChanged(VSTGUI::CControl* control) override;  // acts on the bar's tags, see PresetBarTag
  virtual void endLearn() {}
  virtual void endCancel() {}
  virtual void keyFocusChanged(bool) {}
  virtual bool recallKeyFocus() { return false; }

  // Code on this side renames the current preset: field, list and effect follow.
  void nameChangedInternal(const char* name);
  virtual void nameChangedExternal(const char* name);  // the current preset has a new name, at most 24 characters
  virtual void loadDefaults();  // the stored default bank and preset, folder and file names; one reading of the store

  // Readers of images whose unique ID the caller has checked. data, entries: what stands behind the prefix or header;
  // at most header->dataSize bytes are read. header: already in this machine's byte order. Old records hold
  // `floatsPerRecord` floats behind 24 name bytes, and all of them are there.
  virtual void BufferToBankOld(char* data, bool swapped, int recordCount, int floatsPerRecord);
  virtual void BufferToBank(char* entries, newpresetheader* header, bool swapped);
  virtual void BufferToPresetOld(char* data, bool swapped, int floatCount);
  virtual void BufferToPreset(char* entries, newpresetheader* header, bool swapped);
  virtual void BufferToMidiOld(char* data, bool swapped, int floatCount);
  virtual void BufferToMidi(char* entries, newpresetheader* header, bool swapped);
  // Writers: answer the image's length in bytes; the caller releases *out with delete[].
  virtual long BankToBuffer(char** out);
  virtual long PresetToBuffer(char** out);
  virtual long MidiToBuffer(char** out);

  // Files: load and save open a dialog, where there is a window and no dialog yet, and return; what the user chooses
  // there is done by completeFileOperation. endianReversed: take the file for the other byte order than its ID tells.
  // Stored values: in the user's preferences, which all instances share; on disk before the storing ones return. The
  // loading ones put a preset into the current one. Nothing is reported: what is missing, foreign or refused leaves the
  // bank as it was.
  virtual void loadBank(bool endianReversed);
  virtual void saveBank();
  virtual void saveDefaultBank();
  virtual void resetDefaultBank();
  virtual void loadDefaultBank();
  virtual void loadPreset(bool endianReversed);
  virtual void savePreset();
  virtual void saveDefaultPreset();
  virtual void resetDefaultPreset();
  virtual void loadDefaultPreset();
  virtual void storeA();
  virtual void storeB();
  virtual void recallA();
  virtual void recallB();
  // MIDI maps, whose files and stored default this effect has not; only a stored one is removed.
  virtual void loadMidi(bool /*endianReversed*/) {}
  virtual void saveMidi() {}
  virtual void saveDefaultMidi() {}
  virtual void resetDefaultMidi();
  virtual void loadDefaultMidi() {}
  virtual void storePathsAndFilenames();  // writes nothing while they are as they were recalled or stored last
  virtual void recallPathsAndFilenames();

  bool fileOperationRunning() const { return fileOperation != FileOperation::none; }
  void completeFileOperation();  // from every idle pass
  void endFileOperation();       // the window closes; the dialog goes with it

  // Starts the viewer and returns; watchManual, from every idle pass, shows an alert if that fails.
  void openManual();
  void watchManual();

 protected:
  void keyboardLeft() override;  // confirms a running name entry
  // True where views may be touched: on the thread that opened the window. Others mark, and the idle pass does it.
  bool onWindowThread() const;
  void presetsChanged();  // any thread: the bar shows the bank's names and current preset, now or at the next idle

  // What the dialogs open with. The folder ends in "/".
  static constexpr std::size_t kPathBufferSize = 257;  // bytes, the last one spare
  char currentDirectory[kPathBufferSize] = {};
  char bankFileName[kPathBufferSize] = {};
  char presetFileName[kPathBufferSize] = {};

  PresetBar bar;
  CPresetSystemEffect* presetEffect;

 private:
  void refreshBar();  // the window's thread

  enum class FileOperation { none, loadBank, saveBank, loadPreset, savePreset };

  void startFileOperation(FileOperation operation, bool endianReversed);
  void finishFileOperation(FileOperation operation, const std::string& path);
  // Images with header or prefix; a foreign ID and an unknown kind are ignored. whole: false for the beginning of one
  // that is too large to hold.
  void takePresetImage(std::span<char> image, bool endianReversed);
  void takeBankImage(std::span<char> image, bool whole, bool endianReversed);
  void storeImage(const char* key, long (CPresetSystemEditor::*writer)(char** out));
  std::vector<char> storedImage(const char* key) const;
  void recallPreset(const char* key);
  void removeStored(const char* key);
  std::array<std::string, 3> pathsAndFilenames() const;

  void takeOverBank(long n);
  void takeOverPreset(long n);
  void nameEdited();
  void stepPreset(float direction);
  void presetChosen();

  std::unique_ptr<PressGuard> pressGuard;  // while the window is open
  FileDialog fileDialog;
  FileOperation fileOperation = FileOperation::none;
  bool fileEndianReversed = false;
  ManualOpener manual;
  bool manualAwaited = false;
  std::array<std::string, 3> storedPaths;               // as recalled or stored last
  const PreferenceStore* startupPreferences = nullptr;  // while the defaults are loaded, so that they are read once

  std::atomic<bool> refreshWanted{false};
  std::atomic<std::thread::id> windowThread{};
};
