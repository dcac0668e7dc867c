// A switch that is pressed on its left or on its right and comes back by itself.
#pragma once

#include "editor/controls/mousecontrol.h"
#include "editor/controls/wheelsteps.h"
#include "vstgui.h"

// Five sub-images: idle, pointer over the left half, over the right half, pressed left, pressed
// right. A press of the left button tells the listener once, with -1 left of the middle and +1
// otherwise; the release takes the value back to 0 silently. Each click of the wheel does the same,
// up as left. User-interface thread.
class CPSRockerSwitch : public MouseControl<VSTGUI::CRockerSwitch> {
 public:
  // The bitmap is read from its upper left corner, whatever the offset.
  CPSRockerSwitch(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
                  VSTGUI::CCoord heightOfOneImage, VSTGUI::CBitmap* background,
                  const VSTGUI::CPoint& offset, std::int32_t style);

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                      const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                         const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseCancel() override;
  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override;

 private:
  int sideOf(const VSTGUI::CPoint& where) const;  // -1 left of the middle, else 1
  VSTGUI::CMouseEventResult release();

  WheelSteps wheel;
  int hoverSide = 0;  // -1, 1; 0: the pointer is elsewhere
};
