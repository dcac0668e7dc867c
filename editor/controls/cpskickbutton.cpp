// Presses and pictures of the push button.
#include "editor/controls/cpskickbutton.h"

using VSTGUI::CButtonState;
using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;

CPSKickButton::CPSKickButton(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener,
                             std::int32_t tag, VSTGUI::CCoord heightOfOneImage,
                             VSTGUI::CBitmap* background, const CPoint& offset,
                             bool needsDoubleClick)
    : HoverControl(size, listener, tag, heightOfOneImage, background, offset),
      requireDoubleClick(needsDoubleClick) {}

void CPSKickButton::draw(VSTGUI::CDrawContext* context) {
  const int image = pressed ? 2 : mouseOver ? 1 : 0;
  drawPart(context, offset.x, offset.y + image * heightOfOneImage);
}

CMouseEventResult CPSKickButton::onMouseDown(CPoint& where, const CButtonState& buttons) {
  if (!(buttons & VSTGUI::kLButton)) {
    clicks.forget();
    return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
  }
  if (requireDoubleClick && !clicks.press(where))
    return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
  pressed = true;
  value = requireDoubleClick && (buttons & VSTGUI::kControl) ? 0.5F : 1.0F;
  valueChanged();
  invalid();
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CPSKickButton::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
  return release();
}

CMouseEventResult CPSKickButton::onMouseCancel() {
  return release();
}

CMouseEventResult CPSKickButton::release() {
  value = 0;
  pressed = false;
  invalid();
  return VSTGUI::kMouseEventHandled;
}
