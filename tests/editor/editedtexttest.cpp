// Editing a text by characters of one to four bytes.
#include "editor/controls/linux/editedtext.h"

#include <gtest/gtest.h>

namespace {

const std::string kUmlaut = "\xC3\xA4", kKanji = "\xE9\x9F\xB3", kNote = "\xF0\x9D\x84\x9E";
const std::string kMixed = "a" + kUmlaut + kKanji + kNote;  // characters begin at 0, 1, 3, 6

TEST(EditedText, IsSelectedWholeAtFirst) {
  const EditedText edit(kMixed);
  EXPECT_EQ(edit.selectionBegin(), 0U);
  EXPECT_EQ(edit.selectionEnd(), 10U);
  EXPECT_EQ(edit.caret(), 10U);
  EXPECT_FALSE(EditedText("").hasSelection());
}

TEST(EditedText, StepsOverWholeCharacters) {
  const EditedText edit(kMixed);
  std::size_t place = 0;
  for (const std::size_t next : {1U, 3U, 6U, 10U, 10U}) {
    place = edit.after(place);
    EXPECT_EQ(place, next);
  }
  for (const std::size_t previous : {6U, 3U, 1U, 0U, 0U}) {
    place = edit.before(place);
    EXPECT_EQ(place, previous);
  }
}

TEST(EditedText, InsertsInTheSelectionsPlace) {
  EditedText edit(kMixed);
  edit.moveTo(1, false);
  edit.moveTo(6, true);
  edit.insert("xy");
  EXPECT_EQ(edit.text(), "axy" + kNote);
  EXPECT_EQ(edit.caret(), 3U);
  EXPECT_FALSE(edit.hasSelection());
  edit.insert(kKanji);
  EXPECT_EQ(edit.text(), "axy" + kKanji + kNote);
  EXPECT_EQ(edit.caret(), 6U);
}

TEST(EditedText, ErasesTheCharacterOnEitherSideOfTheCaret) {
  EditedText edit(kMixed);
  edit.moveTo(3, false);
  edit.eraseBack();
  EXPECT_EQ(edit.text(), "a" + kKanji + kNote);
  EXPECT_EQ(edit.caret(), 1U);
  edit.eraseForward();
  EXPECT_EQ(edit.text(), "a" + kNote);
  EXPECT_EQ(edit.caret(), 1U);
}

TEST(EditedText, ErasesTheSelectionAloneInEitherDirection) {
  for (const bool back : {true, false}) {
    for (const bool fromTheRight : {true, false}) {
      EditedText edit(kMixed);
      edit.moveTo(fromTheRight ? 6 : 1, false);
      edit.moveTo(fromTheRight ? 1 : 6, true);
      back ? edit.eraseBack() : edit.eraseForward();
      EXPECT_EQ(edit.text(), "a" + kNote);
      EXPECT_EQ(edit.caret(), 1U);
    }
  }
}

TEST(EditedText, ErasesNothingBeyondItsEnds) {
  EditedText edit("a");
  edit.moveTo(0, false);
  edit.eraseBack();
  EXPECT_EQ(edit.text(), "a");
  edit.moveTo(1, false);
  edit.eraseForward();
  EXPECT_EQ(edit.text(), "a");
}

TEST(EditedText, MovingWithoutExtendingGoesToAnEndOfTheSelection) {
  EditedText edit(kMixed);
  edit.moveTo(1, false);
  edit.moveTo(6, true);
  EditedText other = edit;
  edit.moveBack(false);
  EXPECT_EQ(edit.caret(), 1U);
  EXPECT_FALSE(edit.hasSelection());
  other.moveForward(false);
  EXPECT_EQ(other.caret(), 6U);
  EXPECT_FALSE(other.hasSelection());
}

TEST(EditedText, MovingWithExtendingKeepsTheOtherEnd) {
  EditedText edit(kMixed);
  edit.moveTo(3, false);
  edit.moveBack(true);
  EXPECT_EQ(edit.selectionBegin(), 1U);
  EXPECT_EQ(edit.selectionEnd(), 3U);
  edit.moveForward(true);
  edit.moveForward(true);
  EXPECT_EQ(edit.selectionBegin(), 3U);
  EXPECT_EQ(edit.selectionEnd(), 6U);
}

}  // namespace
