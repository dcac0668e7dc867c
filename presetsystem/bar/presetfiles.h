// Loading and saving presets and banks: the dialog, the file, and what is in it.
#pragma once

#include <cstdint>
#include <string>

#include "editor/base/filedialog.h"
#include "presetsystem/bar/barwindow.h"
#include "presetsystem/bar/fileplaces.h"

class CPresetSystemEffect;
class Messages;

// One operation at a time. It is started where there is a window, returns at once, and is completed
// from the idle pass that finds the user's choice. Of a file nothing is reported: what is foreign
// or refused leaves the bank as it was. A dialog that there is not is. User-interface thread.
class PresetFiles {
 public:
  PresetFiles(CPresetSystemEffect* filesEffect, FilePlaces& usedPlaces, BarWindow& servedWindow,
              Messages& heard);

  // endianReversed: take the file for the other byte order than its ID tells.
  void loadBank(bool endianReversed) { start(Operation::loadBank, endianReversed); }
  void saveBank() { start(Operation::saveBank, false); }
  void loadPreset(bool endianReversed) { start(Operation::loadPreset, endianReversed); }
  void savePreset() { start(Operation::savePreset, false); }

  bool running() const { return operation != Operation::none; }
  void complete();  // from every idle pass
  void end();       // the window closes; the dialog goes with it

 private:
  enum class Operation : std::uint8_t { none, loadBank, saveBank, loadPreset, savePreset };

  void start(Operation wanted, bool endianReversed);
  void finish(Operation chosen, const std::string& path);
  void save(Operation chosen, const std::string& path);
  void load(Operation chosen, const std::string& path);

  CPresetSystemEffect* effect;
  FilePlaces& places;
  BarWindow& window;
  Messages& messages;
  FileDialog dialog;
  Operation operation = Operation::none;
  bool orderReversed = false;
};
