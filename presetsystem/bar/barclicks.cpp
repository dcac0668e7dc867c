// The preset bar's controls, and what a press or a choice does.
#include "presetsystem/bar/barclicks.h"

#include <algorithm>
#include <string>

#include "editor/controls/corvtextedit.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/cpskickbutton.h"
#include "presetsystem/bar/presetbar.h"
#include "presetsystem/bar/presetbaractions.h"
#include "presetsystem/store/cpresetsystemeffect.h"
#include "vstgui.h"

namespace {

// Where a press has two meanings, the control's value tells which.
constexpr float kAlternative = 0.5F;  // a load button's value for the other byte order
constexpr float kSaves = 0.75F;       // from here on a default button saves, below it resets

struct Click {
  std::int32_t tag;
  void (*act)(PresetBarActions& actions, float value);
};

// Controls that only ask for something; the others are the switch below.
constexpr Click kClicks[] = {
    {kLoadBankTag,
     [](PresetBarActions& actions, float value) { actions.loadBank(value == kAlternative); }},
    {kSaveBankTag, [](PresetBarActions& actions, float) { actions.saveBank(); }},
    {kLoadPresetTag,
     [](PresetBarActions& actions, float value) { actions.loadPreset(value == kAlternative); }},
    {kSavePresetTag, [](PresetBarActions& actions, float) { actions.savePreset(); }},
    {kDefaultBankTag,
     [](PresetBarActions& actions, float value) {
       value >= kSaves ? actions.saveDefaultBank() : actions.resetDefaultBank();
     }},
    {kDefaultPresetTag,
     [](PresetBarActions& actions, float value) {
       value >= kSaves ? actions.saveDefaultPreset() : actions.resetDefaultPreset();
     }},
    {kMemoryAStoreTag, [](PresetBarActions& actions, float) { actions.storeA(); }},
    {kMemoryBStoreTag, [](PresetBarActions& actions, float) { actions.storeB(); }},
    {kMemoryARecallTag, [](PresetBarActions& actions, float) { actions.recallA(); }},
    {kMemoryBRecallTag, [](PresetBarActions& actions, float) { actions.recallB(); }},
};

}  // namespace

void BarClicks::valueChanged(VSTGUI::CControl* control) {
  if (effect == nullptr) return;
  const std::int32_t tag = control->getTag();
  const float value = control->getValue();
  for (const Click& click : kClicks) {
    if (click.tag == tag) return click.act(actions, value);
  }
  switch (tag) {
    case kNameEditTag:
      return nameEdited();
    case kPresetRockerTag:
      return stepPreset(value);
    case kPresetMenuTag:
      return presetChosen();
    case kManualTag:
      return manualPressed();
    default:
      return;
  }
}

// Nobody waits for the mouse to come up: the press has done its work.
void BarClicks::manualPressed() {
  actions.openManual();
  if (bar.manualButton == nullptr) return;
  bar.manualButton->pressed = false;
  bar.manualButton->setDirty();
}

void BarClicks::nameEdited() {
  if (bar.nameEdit == nullptr) return;
  const std::string typed = bar.nameEdit->getText().data();
  const std::string name = typed.substr(0, ACombProgram::kNameSize);
  actions.nameChangedInternal(name.c_str());
}

// Stops at both ends, where the preset is applied once more.
void BarClicks::stepPreset(float direction) {
  const long last = CPresetSystemEffect::kPresetCount - 1;
  long next = effect->getPresetNo();
  if (direction > 0.0F) {
    next = std::min(next + 1, last);
  } else if (direction < 0.0F) {
    next = std::max(next - 1, 0L);
  } else {
    return;
  }
  const ShownName name(effect->copyOfPreset(next));
  bar.showCurrent(next);
  bar.showName(name.text);
  effect->setPresetNo(next);
  effect->setPresetName(name.text);
}

// While the window closes with the list open, the toolkit reports a choice that nobody made.
void BarClicks::presetChosen() {
  if (bar.presetMenu == nullptr || bar.presetMenu->getLastResult() < 0) return;
  const auto chosen = static_cast<std::int32_t>(bar.presetMenu->getValue() + 0.5F);
  const VSTGUI::CMenuItem* entry = bar.presetMenu->getEntry(chosen);
  if (entry == nullptr) return;
  const std::string title = entry->getTitle().data();
  bar.showCurrent(chosen);
  effect->setPresetNo(chosen);
  effect->setPresetName(title.c_str());
  bar.showName(title.c_str());
}
