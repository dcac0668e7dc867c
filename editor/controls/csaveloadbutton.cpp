// Presses and pictures of the load and save buttons.
#include "editor/controls/csaveloadbutton.h"

CSaveLoadButton::CSaveLoadButton(VSTGUI::CRect size, VSTGUI::IControlListener* listener,
                                 std::int32_t tag, VSTGUI::CCoord heightOfOneImage,
                                 VSTGUI::CBitmap* background, const VSTGUI::CPoint& offset)
    : HoverControl(size, listener, tag, heightOfOneImage, background, offset) {}

void CSaveLoadButton::draw(VSTGUI::CDrawContext* context) {
  const int image = value != 0 ? 2 : mouseOver ? 1 : 0;
  drawPart(context, offset.x, offset.y + image * heightOfOneImage);
}

VSTGUI::CMouseEventResult CSaveLoadButton::onMouseDown(VSTGUI::CPoint& /*where*/,
                                                       const VSTGUI::CButtonState& buttons) {
  if (!(buttons & (VSTGUI::kLButton | VSTGUI::kRButton)) || listener == nullptr)
    return VSTGUI::kMouseEventNotHandled;
  // A quick second right click is a right click like the first.
  const std::int32_t state = buttons() & ~VSTGUI::kDoubleClick;
  value = state == VSTGUI::kRButton ? 0.5F : 1.0F;
  valueChanged();
  value = 0;
  invalid();
  return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
