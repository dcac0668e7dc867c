// Breaking a text into lines: each character counts as one wide, unless a test says otherwise.
#include "editor/controls/wrappedtext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

std::vector<std::string> inLinesOf(double width, const std::string& text) {
  return wrappedText(text, width,
                     [](const std::string& line) { return static_cast<double>(line.size()); });
}

TEST(WrappedText, StaysOneLineThatFits) {
  EXPECT_THAT(inLinesOf(9, "some text"), ElementsAre("some text"));
  EXPECT_THAT(inLinesOf(9, ""), ElementsAre(""));
}

TEST(WrappedText, BreaksAtBlanks) {
  EXPECT_THAT(inLinesOf(8, "some text"), ElementsAre("some", "text"));
  EXPECT_THAT(inLinesOf(4, "some text"), ElementsAre("some", "text"));
  EXPECT_THAT(inLinesOf(9, "some text that is long"), ElementsAre("some text", "that is", "long"));
}

TEST(WrappedText, KeepsNewLines) {
  EXPECT_THAT(inLinesOf(20, "first\nsecond\n\nlast"), ElementsAre("first", "second", "", "last"));
  EXPECT_THAT(inLinesOf(20, "first\n"), ElementsAre("first", ""));
  EXPECT_THAT(inLinesOf(5, "first\nsome text"), ElementsAre("first", "some", "text"));
}

TEST(WrappedText, BreaksAWordThatIsTooLongAlone) {
  EXPECT_THAT(inLinesOf(4, "a/very/long"), ElementsAre("a/ve", "ry/l", "ong"));
  EXPECT_THAT(inLinesOf(4, "x abcdefg"), ElementsAre("x", "abcd", "efg"));
}

TEST(WrappedText, NeverBreaksACharacter) {
  const std::string umlaut = "\xC3\xA4";  // two bytes
  EXPECT_THAT(inLinesOf(3, umlaut + umlaut), ElementsAre(umlaut, umlaut));
}

TEST(WrappedText, EndsWhereNothingFits) {
  EXPECT_THAT(inLinesOf(0, "abc"), ElementsAre("a", "b", "c"));
}

}  // namespace
