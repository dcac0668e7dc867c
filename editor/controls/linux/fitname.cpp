// Tries smaller fonts, then cuts between characters.
#include "editor/controls/linux/fitname.h"

#include "platform/validtext.h"

FittedName fitName(VSTGUI::CDrawContext* context, const std::string& bytes, double width) {
  const VSTGUI::UTF8String name(validText(bytes));
  const auto fits = [&](const VSTGUI::UTF8String& text) {
    return context->getStringWidth(text.getPlatformString()) <= width;
  };
  for (VSTGUI::CFontRef font : {VSTGUI::kNormalFontSmall, VSTGUI::kNormalFontSmaller, VSTGUI::kNormalFontVerySmall}) {
    context->setFont(font);
    if (fits(name)) return {name, font};
  }
  const auto insideCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };  // UTF-8
  std::string head = name.getString();
  VSTGUI::UTF8String cut;
  do {
    while (!head.empty() && insideCharacter(head.back())) head.pop_back();
    if (!head.empty()) head.pop_back();
    cut = VSTGUI::UTF8String(head + "\xE2\x80\xA6");  // ellipsis
  } while (!head.empty() && !fits(cut));
  return {cut, VSTGUI::kNormalFontVerySmall};
}
