// Presses and pictures of the switch with two positions.
#include "editor/controls/cpsonoffbutton.h"

CPSOnOffButton::CPSOnOffButton(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener,
                               std::int32_t tag, VSTGUI::CBitmap* background)
    : HoverControl(size, listener, tag, background, 0) {}

void CPSOnOffButton::draw(VSTGUI::CDrawContext* context) {
  const VSTGUI::CBitmap* bitmap = getDrawBackground();
  const int third = bitmap != nullptr ? static_cast<int>(bitmap->getHeight()) / 3 : 0;  // pixels
  const int image = value == 1 ? 2 : value == 0 && mouseOver ? 1 : 0;
  drawPart(context, 0, image * third);
}

VSTGUI::CMouseEventResult CPSOnOffButton::onMouseDown(VSTGUI::CPoint& /*where*/,
                                                      const VSTGUI::CButtonState& buttons) {
  if (!(buttons & VSTGUI::kLButton)) return VSTGUI::kMouseEventNotHandled;
  value = 1 - value;
  valueChanged();
  invalid();
  return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
