// Bitmaps on X11, where the toolkit draws a point as one pixel on every screen.
#include "editor/base/bitmaps.h"

#include "vstgui.h"

VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number) {
  return VSTGUI::makeOwned<VSTGUI::CBitmap>(VSTGUI::CResourceDescription(number));
}
