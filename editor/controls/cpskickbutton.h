// A push button that can ask for a double click.
#pragma once

#include "editor/controls/doubleclick.h"
#include "editor/controls/mousecontrol.h"
#include "vstgui.h"

// Three sub-images: idle, under the pointer, pressed. A press of the left button sets the value to
// 1 and tells the listener once; the release takes the value back silently. With requireDoubleClick
// only the second press of a double click does so, with value 0.5 while the toolkit's control
// modifier is held. User-interface thread.
class CPSKickButton : public HoverControl<VSTGUI::CKickButton> {
 public:
  // heightOfOneImage: pixels. offset: where the first sub-image begins in the bitmap.
  CPSKickButton(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
                VSTGUI::CCoord heightOfOneImage, VSTGUI::CBitmap* background,
                const VSTGUI::CPoint& offset, bool requireDoubleClick);

  // Open to the listener: it may clear this and mark the button dirty, to show it at rest before
  // the release.
  bool pressed = false;

  void setClock(DoubleClick::Clock clock) { clicks.setClock(std::move(clock)); }

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                      const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseCancel() override;

 private:
  VSTGUI::CMouseEventResult release();

  DoubleClick clicks;
  bool requireDoubleClick;
};
