// Presses, wheel and pictures of the rocker.
#include "editor/controls/cpsrockerswitch.h"

#include <cstdlib>

using VSTGUI::CButtonState;
using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;

CPSRockerSwitch::CPSRockerSwitch(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener,
                                 std::int32_t tag, VSTGUI::CCoord heightOfOneImage,
                                 VSTGUI::CBitmap* background, const CPoint& offset,
                                 std::int32_t style)
    : MouseControl(size, listener, tag, heightOfOneImage, background, offset, style) {}

void CPSRockerSwitch::draw(VSTGUI::CDrawContext* context) {
  int image = hoverSide < 0 ? 1 : hoverSide > 0 ? 2 : 0;
  if (value == -1) image = 3;
  if (value == 1) image = 4;
  drawPart(context, 0, image * heightOfOneImage);
}

int CPSRockerSwitch::sideOf(const CPoint& where) const {
  const double middle = (getViewSize().left + getViewSize().right) / 2;
  return middle > where.x ? -1 : 1;
}

CMouseEventResult CPSRockerSwitch::onMouseDown(CPoint& where, const CButtonState& buttons) {
  if (!(buttons & VSTGUI::kLButton)) return VSTGUI::kMouseEventNotHandled;
  value = static_cast<float>(sideOf(where));
  invalid();
  valueChanged();
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CPSRockerSwitch::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
  return release();
}

CMouseEventResult CPSRockerSwitch::onMouseCancel() {
  return release();
}

CMouseEventResult CPSRockerSwitch::release() {
  value = 0;
  invalid();
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CPSRockerSwitch::onMouseMoved(CPoint& where, const CButtonState& buttons) {
  return buttons & VSTGUI::kLButton ? VSTGUI::kMouseEventHandled : onMouseEntered(where, buttons);
}

CMouseEventResult CPSRockerSwitch::onMouseEntered(CPoint& where, const CButtonState& /*buttons*/) {
  hoverSide = sideOf(where);
  invalid();
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CPSRockerSwitch::onMouseExited(CPoint& /*where*/,
                                                 const CButtonState& /*buttons*/) {
  hoverSide = 0;
  invalid();
  return VSTGUI::kMouseEventHandled;
}

// The toolkit's rocker holds a wheel click for 200 ms and loses the ones that come meanwhile.
void CPSRockerSwitch::onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) {
  if (event.deltaY == 0) return;
  event.consumed = true;
  if (value != 0) return;  // held by the mouse
  const int steps = wheel.add(event.deltaY);
  for (int step = 0; step < std::abs(steps); ++step) {
    value = steps > 0 ? -1.0F : 1.0F;
    valueChanged();
    value = 0;
  }
  if (steps != 0) invalid();
}
