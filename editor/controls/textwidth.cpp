// Asks the font's painter, as no drawing goes on.
#include "editor/controls/textwidth.h"

#include "lib/platform/iplatformfont.h"

double textWidth(VSTGUI::CFontRef font, const std::string& text) {
  const auto painter = font->getFontPainter();
  const VSTGUI::UTF8String shown(text);
  return painter ? painter->getStringWidth(nullptr, shown.getPlatformString(), true) : 0.;
}
