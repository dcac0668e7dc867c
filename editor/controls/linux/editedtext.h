// The text of an entry, its caret and its selection, without a view.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Places are offsets in bytes and never lie inside a character of UTF-8. The caret is one end of
// the selection, the anchor the other; where both are the same nothing is selected.
class EditedText {
 public:
  explicit EditedText(std::string valid);  // UTF-8; all of it is selected

  const std::string& text() const { return bytes; }
  std::size_t caret() const { return caretPlace; }
  std::size_t selectionBegin() const { return caretPlace < anchorPlace ? caretPlace : anchorPlace; }
  std::size_t selectionEnd() const { return caretPlace < anchorPlace ? anchorPlace : caretPlace; }
  bool hasSelection() const { return caretPlace != anchorPlace; }

  std::size_t before(std::size_t place) const;  // one character back; 0 stays
  std::size_t after(std::size_t place) const;   // one character on; the end stays

  void insert(std::string_view valid);  // UTF-8, in the selection's place
  void eraseBack();                     // the selection, or else the character before the caret
  void eraseForward();                  // the selection, or else the character after the caret
  void moveBack(bool extend);  // without extending a selection goes, and the caret is at its begin
  void moveForward(bool extend);  // or at its end
  void moveTo(std::size_t place, bool extend);
  void selectAll();

 private:
  void eraseSelection();

  std::string bytes;
  std::size_t caretPlace = 0;
  std::size_t anchorPlace = 0;
};
