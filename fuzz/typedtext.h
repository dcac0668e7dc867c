// What a text becomes under the keys of an entry, as a list of characters: the rule that the text
// field is held against.
#pragma once

#include <cstddef>
#include <string>

namespace fuzz {

// UTF-8, one character for each element; valid: as validText returns it.
std::u32string charactersOf(const std::string& valid);
std::string utf8Of(const std::u32string& characters);

// Places count characters. All is selected at first.
struct TypedText {
  std::u32string characters;
  std::size_t caret;
  std::size_t anchor;

  explicit TypedText(std::u32string typed)
      : characters(std::move(typed)), caret(characters.size()), anchor(0) {}

  void type(char32_t character);
  void erase(bool forward);
  void step(bool forward, bool extend);
  void jump(std::size_t place, bool extend);

 private:
  std::size_t begin() const { return caret < anchor ? caret : anchor; }
  std::size_t end() const { return caret < anchor ? anchor : caret; }
  void eraseSelection();
};

}  // namespace fuzz
