// A switch that shows another picture under the pointer.
#pragma once

#include "editor/controls/mousecontrol.h"
#include "vstgui.h"

// The toolkit's switch in all else: a click or Return turns it. Both bitmaps hold two sub-images,
// off above on. User-interface thread.
class CLitSwitch : public Hovered<VSTGUI::COnOffButton> {
 public:
  // underPointer: of the background's size.
  CLitSwitch(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
             VSTGUI::CBitmap* background, VSTGUI::CBitmap* underPointer);

  void draw(VSTGUI::CDrawContext* context) override;

 private:
  VSTGUI::SharedPointer<VSTGUI::CBitmap> lit;
};
