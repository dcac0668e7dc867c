// Small pieces of text.
#include "host/base/text.h"

#include <gtest/gtest.h>

TEST(Text, FormatsTextsOfAnyLength) {
  const std::string longText(5000, 'x');
  EXPECT_EQ(formatted("<%s>", longText.c_str()), "<" + longText + ">");
  EXPECT_EQ(formatted("%d %s", 7, "dwarves"), "7 dwarves");
}

TEST(Text, ShowsNamesOnOneLineWithoutControlCharacters) {
  EXPECT_EQ(onOneLine("a\x1B[31mred\nb\x7F\t.wav"), "a?[31mred?b??.wav");
  EXPECT_EQ(onOneLine("\xC2\x9B"
                      "31m"),
            "?31m")
      << "the same in one character";
  EXPECT_EQ(onOneLine("\xC3\xA4\xC2\xB5\xC2"), "\xC3\xA4\xC2\xB5\xC2") << "letters stay";
}

TEST(Text, ShowsMagnitudesInDecibels) {
  EXPECT_EQ(decibelText(1.0), "0.0");
  EXPECT_EQ(decibelText(0.5), "-6.0");
  EXPECT_EQ(decibelText(10.0), "+20.0");
  EXPECT_EQ(decibelText(0.999), "0.0") << "no minus before a zero";
  EXPECT_EQ(decibelText(1.001), "0.0") << "no plus either";
  EXPECT_EQ(decibelText(0.0), "-inf");
}

TEST(Text, ShowsDurationsToTheMillisecond) {
  EXPECT_EQ(durationText(0.0), "0:00.000");
  EXPECT_EQ(durationText(3.25), "0:03.250");
  EXPECT_EQ(durationText(62.0), "1:02.000");
  EXPECT_EQ(durationText(59.9996), "1:00.000") << "rounded before it is split";
  EXPECT_EQ(durationText(3723.5), "1:02:03.500");
}

TEST(Text, NamesChannelCounts) {
  EXPECT_EQ(channelText(1), "mono");
  EXPECT_EQ(channelText(2), "stereo");
}

TEST(Text, MakesAsciiLettersSmallAndNothingElse) {
  EXPECT_EQ(lowerCase("AZaz@[`{09"), "azaz@[`{09");
  EXPECT_EQ(lowerCase("\xC4\u00C4"), "\xC4\u00C4") << "other characters' bytes stay";
  EXPECT_TRUE(sameLetters("Mix 1", "mIX 1"));
  EXPECT_FALSE(sameLetters("mix 1", "mix1"));
  EXPECT_FALSE(sameLetters("\u00E4", "\u00C4"));
}
