// Bitmaps of the bundle, by number.
#pragma once

#include "vstgui.h"

// The caller's reference ends with the pointer; views keep their own. Where the system scales
// windows itself, the bitmap holds the picture of twice the size too. A missing file is a bitmap of
// size 0 that draws nothing. User-interface thread, with the toolkit set up.
VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number);

// Reads into the bitmap of that number what it lacks for a window of `scale`. False: it cannot be
// read, and the bitmap shows what it has. Throws where memory runs out.
bool loadScale(VSTGUI::CBitmap& bitmap, std::int32_t number, double scale);
