// Makes a name fit a width.
#pragma once

#include <string>

#include "vstgui.h"

// Text and the font to draw it in.
struct FittedName {
  VSTGUI::UTF8String text;
  VSTGUI::CFontRef font;
};

// The whole name in `largest` or one of the toolkit's two smallest fonts; a name that is too long
// even then loses its end to an ellipsis. bytes: the name, UTF-8 or not. width: pixels. The
// context's font is changed.
FittedName fitName(VSTGUI::CDrawContext* context, const std::string& bytes, double width,
                   VSTGUI::CFontRef largest);
