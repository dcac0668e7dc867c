// The invisible area that opens the about panel.
#pragma once

#include "editor/controls/mousecontrol.h"
#include "vstgui.h"

// Value 0: closed, 1: the panel is open and has the mouse to itself. The listener is told nothing.
// User-interface thread.
class CAbout : public OwnPresses<VSTGUI::CSplashScreen> {
 public:
  // displayArea: the panel's rectangle in the frame. textOrigin: the first line's place, from the
  // panel's corner.
  CAbout(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
         VSTGUI::CBitmap* background, const VSTGUI::CRect& displayArea,
         const VSTGUI::CPoint& offset, const VSTGUI::CPoint& textOrigin);

  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;

 private:
  VSTGUI::CPoint textOrigin;
};
