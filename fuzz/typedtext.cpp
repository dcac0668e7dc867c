// Edits a list of characters.
#include "fuzz/typedtext.h"

namespace fuzz {

std::u32string charactersOf(const std::string& valid) {
  std::u32string characters;
  for (const char byte : valid) {
    const auto bits = static_cast<unsigned char>(byte);
    if ((bits & 0xC0U) == 0x80U) {
      characters.back() = characters.back() << 6U | (bits & 0x3FU);
    } else {  // the bits after the length's mark
      characters += bits < 0x80   ? bits
                    : bits < 0xE0 ? bits & 0x1FU
                                  : bits & (bits < 0xF0 ? 15U : 7U);
    }
  }
  return characters;
}

std::string utf8Of(const std::u32string& characters) {
  std::string bytes;
  for (const char32_t character : characters) {
    int more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned kMarks[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(kMarks[more] | character >> (6 * more));
    while (more-- > 0) bytes += static_cast<char>(0x80U | (character >> (6 * more) & 0x3FU));
  }
  return bytes;
}

void TypedText::type(char32_t character) {
  eraseSelection();
  characters.insert(caret, 1, character);
  jump(caret + 1, false);
}

void TypedText::erase(bool forward) {
  if (caret == anchor) step(forward, true);
  eraseSelection();
}

void TypedText::step(bool forward, bool extend) {
  if (caret != anchor && !extend) return jump(forward ? end() : begin(), false);
  if (forward ? caret < characters.size() : caret > 0)
    jump(forward ? caret + 1 : caret - 1, extend);
  if (!extend) anchor = caret;
}

void TypedText::jump(std::size_t place, bool extend) {
  caret = place;
  if (!extend) anchor = place;
}

void TypedText::eraseSelection() {
  characters.erase(begin(), end() - begin());
  jump(begin(), false);
}

}  // namespace fuzz
