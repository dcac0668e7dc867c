// A switch with two positions and a hover picture.
#pragma once

#include "editor/controls/mousecontrol.h"
#include "vstgui.h"

// Three sub-images, each a third of the bitmap's height: off, off under the pointer, on. A press of
// the left button turns value 0 into 1 and back and tells the listener once. User-interface thread.
class CPSOnOffButton : public HoverControl<VSTGUI::COnOffButton> {
 public:
  CPSOnOffButton(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
                 VSTGUI::CBitmap* background);

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
};
