// What counts as printable UTF-8, and how a verdict shows what is not.
#include "host/validate/means/guardedtext.h"

#include <gtest/gtest.h>

TEST(Utf8, IsWhatItsRulesAllow) {
  for (const char* text :
       {"", "Gain",
        "Gr\xc3\xb6\xc3\x9f"
        "e",
        "\xe2\x82\xac", "\xf0\x9f\x8e\xa7", "\xed\x9f\xbf", "\xee\x80\x80", "\xf4\x8f\xbf\xbf"}) {
    EXPECT_TRUE(isUtf8(text)) << shown(text);
  }
}

// Latin-1; a second byte alone; an end too soon; one written longer than it needs; a surrogate;
// beyond the last character.
TEST(Utf8, IsNothingElse) {
  for (const char* text : {"Gr\xf6\xdf"
                           "e",
                           "\x80", "a\xbf", "\xc3", "\xe2\x82", "\xf0\x9f\x8e", "\xc3(",
                           "\xe2(\xa1", "\xc0\xaf", "\xe0\x80\xaf", "\xf0\x80\x80\xaf",
                           "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80", "\xff"}) {
    EXPECT_FALSE(isUtf8(text)) << shown(text);
  }
}

TEST(ControlCharacters, AreFoundAnywhere) {
  EXPECT_FALSE(
      hasControls("Gr\xc3\xb6\xc3\x9f"
                  "e in %"));
  for (const char* text : {"\n", "a\tb", "end\x7f", "\x1b[1m"}) EXPECT_TRUE(hasControls(text));
}

TEST(ShownText, HasNothingThatATerminalWouldTake) {
  EXPECT_EQ(shown("Gain\n\xf6"), "\"Gain\\x0a\\xf6\"");
  EXPECT_EQ(shown(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}
