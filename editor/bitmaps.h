// Bitmaps of the bundle, by number.
#pragma once

#include "vstgui.h"

// The caller's reference ends with the pointer; views keep their own. A missing file is a bitmap of size 0 that draws
// nothing. User-interface thread, with the toolkit set up.
inline VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number) {
  return VSTGUI::makeOwned<VSTGUI::CBitmap>(VSTGUI::CResourceDescription(number));
}
