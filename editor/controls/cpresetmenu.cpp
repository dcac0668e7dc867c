// Opens the list of presets and takes what is chosen there.
#include "editor/controls/cpresetmenu.h"

#include "editor/controls/modalview.h"
#include "editor/controls/presetpopup.h"

using VSTGUI::VirtualKey;

VSTGUI::CMenuItem* CPresetMenu::addEntry(const VSTGUI::UTF8String& title, std::int32_t index,
                                         std::int32_t itemFlags) {
  return COptionMenu::addEntry(new VSTGUI::CMenuItem(title, "", 0, nullptr, itemFlags), index);
}

void CPresetMenu::draw(VSTGUI::CDrawContext* context) {
  COptionMenu::draw(context);
  if (mouseOver && underPointer) underPointer->draw(context, getViewSize());
}

void CPresetMenu::opened() {
  inPopup = true;
  lastResult = -1;
  lastMenu = nullptr;
}

void CPresetMenu::choose(std::int32_t index) {
  if (index < 0 || index >= getNbEntries()) return;
  lastResult = index;
  lastMenu = this;
  setValue(static_cast<float>(index));
  valueChanged();
  invalid();
}

VSTGUI::CMouseEventResult CPresetMenu::onMouseDown(VSTGUI::CPoint& where,
                                                   const VSTGUI::CButtonState& buttons) {
  lastButton = buttons;
  if (!(buttons & (VSTGUI::kLButton | VSTGUI::kRButton))) return VSTGUI::kMouseEventNotHandled;
  openList(translateToGlobal(where, true));
  // the list follows the mouse from here on
  return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

void CPresetMenu::onKeyboardEvent(VSTGUI::KeyboardEvent& event) {
  if (event.type != VSTGUI::EventType::KeyDown || !event.modifiers.empty()) return;
  // From the entry shown, not from the value: whoever steps through the presets elsewhere sets the
  // entry alone.
  const std::int32_t current = getCurrentIndex(true);
  if (event.virt == VirtualKey::Return || event.virt == VirtualKey::Enter) {
    openList({});
  } else if (event.virt == VirtualKey::Up) {
    choose(current - 1);
  } else if (event.virt == VirtualKey::Down) {
    choose(current + 1);
  } else {
    return;
  }
  event.consumed = true;
}

// After the event, so that the menu has the keyboard first and the list takes it over.
void CPresetMenu::openList(const std::optional<VSTGUI::CPoint>& press) {
  VSTGUI::CFrame* frame = getFrame();
  if (frame == nullptr) return;
  const auto open = [self = VSTGUI::shared(this), press] {
    if (self->isAttached() && !self->isOpen()) openPresetPopup(self, press);
  };
  afterEvent(*frame, open);
}
