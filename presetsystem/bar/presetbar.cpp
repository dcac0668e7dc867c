// Builds the preset bar and keeps its names in step with the bank.
#include "presetsystem/bar/presetbar.h"

#include "editor/base/sharedbitmaps.h"
#include "editor/controls/corvtextedit.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/cpskickbutton.h"
#include "editor/controls/cpsrockerswitch.h"
#include "editor/controls/csaveloadbutton.h"
#include "editor/controls/windowcolors.h"
#include "presetsystem/store/cpresetsystemeffect.h"
#include "vstgui.h"

using VSTGUI::CBitmap;
using VSTGUI::CPoint;
using VSTGUI::CRect;

namespace {

constexpr std::int32_t kBackgroundBitmap = 128;
constexpr std::int32_t kButtonImages = 3;  // idle, hover, pressed
constexpr std::int32_t kRockerImages = 5;  // idle, hover left and right, pressed left and right

std::int32_t imageHeight(const CBitmap& bitmap, std::int32_t images) {
  return static_cast<std::int32_t>(bitmap.getHeight()) / images;
}

// Adds the buttons, all of which come about alike.
class Builder {
 public:
  Builder(VSTGUI::CViewContainer& heldRoot, VSTGUI::IControlListener* heldListener)
      : root(heldRoot), listener(heldListener) {}

  CSaveLoadButton* saveLoad(std::int32_t tag, const CRect& size, std::int32_t bitmapNumber) {
    const auto bitmap = sharedBitmap(bitmapNumber);
    return add(new CSaveLoadButton(size, listener, tag, imageHeight(*bitmap, kButtonImages), bitmap,
                                   noOffset));
  }

  CPSKickButton* kick(std::int32_t tag, const CRect& size, std::int32_t bitmapNumber,
                      bool requireDoubleClick) {
    const auto bitmap = sharedBitmap(bitmapNumber);
    return add(new CPSKickButton(size, listener, tag, imageHeight(*bitmap, kButtonImages), bitmap,
                                 noOffset, requireDoubleClick));
  }

  CPSRockerSwitch* rocker(std::int32_t tag, const CRect& size, std::int32_t bitmapNumber) {
    const auto bitmap = sharedBitmap(bitmapNumber);
    return add(new CPSRockerSwitch(size, listener, tag, imageHeight(*bitmap, kRockerImages), bitmap,
                                   noOffset, VSTGUI::CRockerSwitch::kHorizontal));
  }

  template <typename View>
  View* add(View* made) {
    root.addView(made);
    return made;
  }

 private:
  VSTGUI::CViewContainer& root;
  VSTGUI::IControlListener* listener;
  CPoint noOffset;
};

COrvTextEdit* makeNameEdit(VSTGUI::IControlListener* listener, CBitmap* background,
                           const char* name) {
  const double lineHeight = VSTGUI::kNormalFontSmall->getSize();
  const CRect size(91, 229 - lineHeight / 2 - 2, 201, 229 + lineHeight / 2 + 2);
  auto* edit = new COrvTextEdit(size, listener, kNameEditTag, name, background, 0, false);
  edit->setBackOffset(size.getTopLeft());
  edit->setBackColor(kFieldColor);
  edit->setFont(VSTGUI::kNormalFontSmall);
  edit->setFontColor(VSTGUI::kBlackCColor);
  edit->setHoriAlign(VSTGUI::kCenterText);
  edit->setCustomFontEditionColor(VSTGUI::kBlackCColor);
  edit->setUnderPointerColor(VSTGUI::CColor(176, 215, 223, 255));  // toward the buttons'
  edit->setCustomHighlightColor(kSelectionColor);
  return edit;
}

CPresetMenu* makeMenu(VSTGUI::IControlListener* listener, CBitmap* background) {
  using VSTGUI::COptionMenu;
  constexpr std::int32_t kStyle = COptionMenu::kPopupStyle | COptionMenu::kCheckStyle |
                                  COptionMenu::kNoTextStyle | COptionMenu::kNoDrawStyle;
  const CRect size(207, 221, 217, 235);
  auto* menu = new CPresetMenu(size, listener, kPresetMenuTag, background, nullptr, kStyle);
  menu->setBackOffset(size.getTopLeft());
  menu->setNbItemsPerColumn(16);
  menu->showUnderPointer(sharedBitmap(143));
  return menu;
}

}  // namespace

void PresetBar::build(VSTGUI::CViewContainer& root, VSTGUI::IControlListener* listener,
                      CPresetSystemEffect& effect) {
  contract.opened();
  Builder in(root, listener);
  const auto background = sharedBitmap(kBackgroundBitmap);
  const long current = effect.getPresetNo();

  nameEdit =
      in.add(makeNameEdit(listener, background, ShownName(effect.copyOfPreset(current)).text));
  presetMenu = in.add(makeMenu(listener, background));
  for (long n = 0; n < CPresetSystemEffect::kPresetCount; ++n) {
    presetMenu->addEntry(ShownName(effect.copyOfPreset(n)).text);
  }
  presetMenu->setCurrent(static_cast<std::int32_t>(current));
  presetRocker = in.rocker(kPresetRockerTag, CRect(219, 221, 250, 235), 19997);
  loadBankButton = in.saveLoad(kLoadBankTag, CRect(71, 229, 83, 243), 19993);
  saveBankButton = in.saveLoad(kSaveBankTag, CRect(8, 229, 20, 243), 19994);
  defaultBankButton = in.kick(kDefaultBankTag, CRect(26, 231, 63, 241), 19990, true);
  loadPresetButton = in.saveLoad(kLoadPresetTag, CRect(71, 214, 83, 228), 19998);
  savePresetButton = in.saveLoad(kSavePresetTag, CRect(8, 214, 20, 228), 19999);
  defaultPresetButton = in.kick(kDefaultPresetTag, CRect(22, 216, 69, 226), 19899, true);
  memoryARecallButton = in.kick(kMemoryARecallTag, CRect(279, 214, 291, 228), 19991, false);
  memoryAStoreButton = in.kick(kMemoryAStoreTag, CRect(254, 214, 266, 228), 19995, false);
  memoryBRecallButton = in.kick(kMemoryBRecallTag, CRect(279, 229, 291, 243), 19992, false);
  memoryBStoreButton = in.kick(kMemoryBStoreTag, CRect(254, 229, 266, 243), 19996, false);
  manualButton = in.kick(kManualTag, CRect(262, 187, 278, 201), 989, false);
}

void PresetBar::showName(const char* name) {
  contract.ensure("the preset's name");
  if (nameEdit == nullptr) return;
  nameEdit->setText(name);
  nameEdit->invalid();
}

void PresetBar::showCurrent(long n) {
  contract.ensure("the current preset");
  if (presetMenu == nullptr) return;
  presetMenu->setCurrent(static_cast<std::int32_t>(n));
  redrawList();
}

void PresetBar::retitleCurrent(const char* name) {
  contract.ensure("the list of presets");
  if (presetMenu == nullptr) return;
  if (VSTGUI::CMenuItem* entry = presetMenu->getEntry(presetMenu->getCurrentIndex()))
    entry->setTitle(name);
  redrawList();
}

// An open list shows the menu's entries as they are when it is drawn.
void PresetBar::redrawList() {
  if (presetMenu->isOpen() && presetMenu->getFrame() != nullptr) presetMenu->getFrame()->invalid();
}

void PresetBar::refresh(CPresetSystemEffect& effect) {
  contract.ensure("the list of presets");
  if (presetMenu == nullptr) return;
  for (long n = 0; n < CPresetSystemEffect::kPresetCount; ++n) {
    presetMenu->getEntry(static_cast<std::int32_t>(n))
        ->setTitle(ShownName(effect.copyOfPreset(n)).text);
  }
  showCurrent(effect.getPresetNo());
  showName(ShownName(effect.copyOfPreset(effect.getPresetNo())).text);
}
