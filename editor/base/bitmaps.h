// Bitmaps of the bundle, by number.
#pragma once

#include "vstgui.h"

// The caller's reference ends with the pointer; views keep their own. Where screens are sharper
// than a point, the bitmap holds the picture of twice the size too. A missing file is a bitmap of
// size 0 that draws nothing. User-interface thread, with the toolkit set up.
VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number);
