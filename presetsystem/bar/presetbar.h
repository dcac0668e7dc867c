// The preset bar's controls: what they are, where they stand, and how names reach them.
#pragma once

#include <cstdint>
#include <cstring>

#include "platform/threadcontract.h"
#include "presetsystem/image/acombprogram.h"

namespace VSTGUI {
class CViewContainer;
class IControlListener;
}  // namespace VSTGUI

class COrvTextEdit;
class CPresetMenu;
class CPresetSystemEffect;
class CPSKickButton;
class CPSRockerSwitch;
class CSaveLoadButton;

// The controls' tags; the numbers between are not used.
enum PresetBarTag : std::int32_t {
  kNameEditTag = 1000,
  kPresetRockerTag = 1001,
  kLoadBankTag = 1002,
  kSaveBankTag = 1003,
  kLoadPresetTag = 1004,
  kSavePresetTag = 1005,
  kPresetMenuTag = 1012,
  kDefaultBankTag = 1013,
  kDefaultPresetTag = 1014,
  kMemoryAStoreTag = 1015,
  kMemoryBStoreTag = 1016,
  kMemoryARecallTag = 1017,
  kMemoryBRecallTag = 1018,
  kManualTag = 1019,
};

// A preset's name as the bar shows it: 24 bytes need not hold an end of their own.
struct ShownName {
  explicit ShownName(const ACombProgram& preset) {
    std::memcpy(text, preset.name, sizeof preset.name);
  }
  char text[ACombProgram::kNameSize + 1] = {};
};

// The frame owns the views; the pointers are valid from build to clear. Every operation is harmless
// without them. User-interface thread.
class PresetBar {
 public:
  // Adds the controls to `root`, showing the effect's names and current preset. The listener hears
  // all of them.
  void build(VSTGUI::CViewContainer& root, VSTGUI::IControlListener* listener,
             CPresetSystemEffect& effect);
  void clear() { *this = PresetBar(); }

  void showName(const char* name);
  void showCurrent(long n);                   // the list's current entry
  void retitleCurrent(const char* name);      // of the list
  void refresh(CPresetSystemEffect& effect);  // all titles, the current entry and its name

  COrvTextEdit* nameEdit = nullptr;
  CPresetMenu* presetMenu = nullptr;
  CPSRockerSwitch* presetRocker = nullptr;
  CSaveLoadButton* savePresetButton = nullptr;
  CSaveLoadButton* loadPresetButton = nullptr;
  CPSKickButton* memoryAStoreButton = nullptr;
  CPSKickButton* memoryARecallButton = nullptr;
  CPSKickButton* memoryBStoreButton = nullptr;
  CPSKickButton* memoryBRecallButton = nullptr;
  CPSKickButton* defaultPresetButton = nullptr;
  CSaveLoadButton* saveBankButton = nullptr;
  CSaveLoadButton* loadBankButton = nullptr;
  CPSKickButton* defaultBankButton = nullptr;
  CPSKickButton* manualButton = nullptr;

 private:
  void redrawList();

  [[no_unique_address]] WindowContract contract;
};
