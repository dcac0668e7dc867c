// What each control of the preset bar does.
#include <algorithm>
#include <cstring>
#include <string>

#include "editor/controls/corvtextedit.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/cpskickbutton.h"
#include "presetsystem/bar/cpresetsystemeditor.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

constexpr float kAlternative = 0.5F;  // a load button's value for the other byte order
constexpr float kSaves = 0.75F;       // from here on a default button saves, below it resets

}  // namespace

void CPresetSystemEditor::valueChanged(VSTGUI::CControl* control) {
  if (presetEffect == nullptr) return;
  const float value = control->getValue();
  switch (control->getTag()) {
    case kNameEditTag:
      nameEdited();
      break;
    case kPresetRockerTag:
      stepPreset(value);
      break;
    case kLoadBankTag:
      loadBank(value == kAlternative);
      break;
    case kSaveBankTag:
      saveBank();
      break;
    case kLoadPresetTag:
      loadPreset(value == kAlternative);
      break;
    case kSavePresetTag:
      savePreset();
      break;
    case kPresetMenuTag:
      presetChosen();
      break;
    case kDefaultBankTag:
      if (value >= kSaves) {
        saveDefaultBank();
      } else {
        resetDefaultBank();
      }
      break;
    case kDefaultPresetTag:
      if (value >= kSaves) {
        saveDefaultPreset();
      } else {
        resetDefaultPreset();
      }
      break;
    case kMemoryAStoreTag:
      storeA();
      break;
    case kMemoryBStoreTag:
      storeB();
      break;
    case kMemoryARecallTag:
      recallA();
      break;
    case kMemoryBRecallTag:
      recallB();
      break;
    case kManualTag:
      openManual();
      // Nobody waits for the mouse to come up: the press has done its work.
      if (bar.manualButton != nullptr) {
        bar.manualButton->pressed = false;
        bar.manualButton->setDirty();
      }
      break;
    default:
      break;
  }
}

void CPresetSystemEditor::nameEdited() {
  if (bar.nameEdit == nullptr) return;
  const std::string typed = bar.nameEdit->getText().data();
  const std::string name = typed.substr(0, ACombProgram::kNameSize);
  nameChangedInternal(name.c_str());
}

// Stops at both ends, where the preset is applied once more.
void CPresetSystemEditor::stepPreset(float direction) {
  const long last = CPresetSystemEffect::kPresetCount - 1;
  long next = presetEffect->getPresetNo();
  if (direction > 0.0F) {
    next = std::min(next + 1, last);
  } else if (direction < 0.0F) {
    next = std::max(next - 1, 0L);
  } else {
    return;
  }
  char name[ACombProgram::kNameSize + 1] = {};
  std::memcpy(name, presetEffect->preset(next).name, ACombProgram::kNameSize);
  bar.showCurrent(next);
  bar.showName(name);
  presetEffect->setPresetNo(next);
  presetEffect->setPresetName(name);
}

// While the window closes with the list open, the toolkit reports a choice that nobody made.
void CPresetSystemEditor::presetChosen() {
  if (bar.presetMenu == nullptr || bar.presetMenu->getLastResult() < 0) return;
  const auto chosen = static_cast<std::int32_t>(bar.presetMenu->getValue() + 0.5F);
  const VSTGUI::CMenuItem* entry = bar.presetMenu->getEntry(chosen);
  if (entry == nullptr) return;
  const std::string title = entry->getTitle().data();
  bar.showCurrent(chosen);
  presetEffect->setPresetNo(chosen);
  presetEffect->setPresetName(title.c_str());
  bar.showName(title.c_str());
}
