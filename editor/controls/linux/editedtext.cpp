// Edits a text character by character.
#include "editor/controls/linux/editedtext.h"

#include <utility>

#include "platform/validtext.h"

EditedText::EditedText(std::string valid) : bytes(std::move(valid)) {
  selectAll();
}

std::size_t EditedText::before(std::size_t place) const {
  if (place == 0) return 0;
  --place;
  while (place > 0 && continuesCharacter(bytes[place])) --place;
  return place;
}

std::size_t EditedText::after(std::size_t place) const {
  if (place >= bytes.size()) return bytes.size();
  ++place;
  while (place < bytes.size() && continuesCharacter(bytes[place])) ++place;
  return place;
}

void EditedText::insert(std::string_view valid) {
  eraseSelection();
  bytes.insert(caretPlace, valid);
  moveTo(caretPlace + valid.size(), false);
}

void EditedText::eraseBack() {
  if (!hasSelection()) moveBack(true);
  eraseSelection();
}

void EditedText::eraseForward() {
  if (!hasSelection()) moveForward(true);
  eraseSelection();
}

void EditedText::moveBack(bool extend) {
  moveTo(hasSelection() && !extend ? selectionBegin() : before(caretPlace), extend);
}

void EditedText::moveForward(bool extend) {
  moveTo(hasSelection() && !extend ? selectionEnd() : after(caretPlace), extend);
}

void EditedText::moveTo(std::size_t place, bool extend) {
  caretPlace = place;
  if (!extend) anchorPlace = place;
}

void EditedText::selectAll() {
  anchorPlace = 0;
  caretPlace = bytes.size();
}

void EditedText::eraseSelection() {
  const std::size_t begin = selectionBegin();
  bytes.erase(begin, selectionEnd() - begin);
  moveTo(begin, false);
}
