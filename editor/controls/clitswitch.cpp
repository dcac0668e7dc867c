// The pictures of the switch.
#include "editor/controls/clitswitch.h"

CLitSwitch::CLitSwitch(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener,
                       std::int32_t tag, VSTGUI::CBitmap* background, VSTGUI::CBitmap* underPointer)
    : Hovered(size, listener, tag, background, 0), lit(underPointer) {}

void CLitSwitch::draw(VSTGUI::CDrawContext* context) {
  VSTGUI::CBitmap* shown = mouseOver ? lit.get() : getDrawBackground();
  const double top = value == getMax() ? getHeight() : 0;  // of the sub-image
  if (shown != nullptr) shown->draw(context, getViewSize(), VSTGUI::CPoint(0, top), 1.0F);
  setDirty(false);
}
