// A button whose right click means something else.
#pragma once

#include "editor/controls/mousecontrol.h"
#include "vstgui.h"

// Three sub-images: idle, under the pointer, value not 0. A press of the left or right button tells
// the listener once: with 0.5 for the right button alone, with 1 for anything else. The value is 0
// again right after. Without a listener a press is left to others. User-interface thread.
class CSaveLoadButton : public HoverControl<VSTGUI::CKickButton> {
 public:
  // heightOfOneImage: pixels. offset: where the first sub-image begins in the bitmap.
  CSaveLoadButton(VSTGUI::CRect size, VSTGUI::IControlListener* listener, std::int32_t tag,
                  VSTGUI::CCoord heightOfOneImage, VSTGUI::CBitmap* background,
                  const VSTGUI::CPoint& offset);

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
};
