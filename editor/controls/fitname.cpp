// Tries smaller fonts, then cuts between characters.
#include "editor/controls/fitname.h"

#include "platform/validtext.h"

FittedName fitName(VSTGUI::CDrawContext* context, const std::string& bytes, double width,
                   VSTGUI::CFontRef largest) {
  const VSTGUI::UTF8String name(validText(bytes));
  const auto fits = [&](const VSTGUI::UTF8String& text) {
    return context->getStringWidth(text.getPlatformString()) <= width;
  };
  for (VSTGUI::CFontRef font :
       {largest, VSTGUI::kNormalFontSmaller, VSTGUI::kNormalFontVerySmall}) {
    context->setFont(font);
    if (fits(name)) return {name, font};
  }
  // The toolkit's createTruncatedText ends in two full stops, which a name may have of its own.
  constexpr char kEllipsis[] = "\xE2\x80\xA6";
  VSTGUI::UTF8String cut;
  auto end = name.end();
  do {
    if (end != name.begin()) --end;
    cut = VSTGUI::UTF8String(std::string(name.begin().base(), end.base()) + kEllipsis);
  } while (end != name.begin() && !fits(cut));
  return {cut, VSTGUI::kNormalFontVerySmall};
}
