// Bytes that become a text.
#include "platform/validtext.h"

#include <gtest/gtest.h>

namespace {

const std::string kBad = "\xEF\xBF\xBD";

TEST(ValidText, WhatIsValidStaysAsItIs) {
  for (const char* text :
       {"", "plain", "\xC3\x84nderung", "\xE2\x80\xA6", "\xF0\x9F\x98\x80", "\x7F", "\xC2\x80",
        "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(validText(text), text);
  }
}

TEST(ValidText, ACharacterCutOffAtTheEndIsLeftOut) {
  EXPECT_EQ(validText("name\xC3"), "name");
  EXPECT_EQ(validText("name\xE2\x80"), "name");
  EXPECT_EQ(validText("name\xF0\x9F\x98"), "name");
  EXPECT_EQ(validText("\xF0"), "");
}

TEST(ValidText, BytesThatDoNotBelongAreReplacedOneByOne) {
  EXPECT_EQ(validText("\x80ok"), kBad + "ok");
  EXPECT_EQ(validText("f\xFCr"), "f" + kBad + "r");  // Latin-1
  EXPECT_EQ(validText("\xC3(x"), kBad + "(x");       // no continuation
  EXPECT_EQ(validText("\xE2\x80(x"), kBad + kBad + "(x");
  EXPECT_EQ(validText("\xFF\xFE"), kBad + kBad);
}

TEST(ValidText, LongerSpellingsSurrogatesAndTooLargeNumbersAreRefused) {
  EXPECT_EQ(validText("\xC0\x80."), kBad + kBad + ".");
  EXPECT_EQ(validText("\xC1\xBF."), kBad + kBad + ".");
  EXPECT_EQ(validText("\xE0\x9F\xBF."), kBad + kBad + kBad + ".");
  EXPECT_EQ(validText("\xED\xA0\x80."), kBad + kBad + kBad + ".");
  EXPECT_EQ(validText("\xF0\x8F\xBF\xBF."), kBad + kBad + kBad + kBad + ".");
  EXPECT_EQ(validText("\xF4\x90\x80\x80."), kBad + kBad + kBad + kBad + ".");
  EXPECT_EQ(validText("\xF5\x80\x80\x80."), kBad + kBad + kBad + kBad + ".");
}

}  // namespace
