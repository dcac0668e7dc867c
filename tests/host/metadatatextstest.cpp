// Texts and notes of AIFF and CAF, of which the library knows a part.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/chunkfiles.h"
#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ForeignTexts : public Conversions {
 protected:
  // Writes the file, converts it and returns what is said on the error stream.
  std::string said(const std::string& input, const std::string& bytes, const std::string& output) {
    writeText(in(input), bytes);
    const Outcome outcome = widen({input, "-o", output, "--process", "off", "--force", "-q"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    return outcome.error;
  }
  std::string chunk(const std::string& file, const std::string& id) const {
    return chunkIn(textOf(in(file)), id);
  }
};

std::string aiffWith(const std::vector<FileChunk>& chunks) {
  const auto chunk = [](const std::string& id, const std::string& bytes) {
    return id + big(bytes.size(), 4) + bytes + std::string(bytes.size() % 2, '\0');
  };
  const std::string rate = "\x40\x0E\xBB\x80" + big(0, 6);  // 48000 in ten bytes
  std::string body = "AIFF" + chunk("COMM", big(2, 2) + big(1000, 4) + big(16, 2) + rate);
  for (const FileChunk& each : chunks) body += chunk(each.id, each.bytes);
  body += chunk("SSND", big(0, 8) + std::string(4000, '\1'));
  return "FORM" + big(body.size(), 4) + body;
}

}  // namespace

// The library puts points in place of what is no plain letter there, and of zeros at its end.
TEST_F(ForeignTexts, KeepTheCopyrightOfAnAiffInAnyLetters) {
  for (const auto& [stored, shown] :
       {std::pair("Wir", "Wir"), std::pair("\xC2\xA9 Wir", "\xC2\xA9 Wir"),
        std::pair("\xA9 Wir", "\xC2\xA9 Wir")}) {
    const std::string file = aiffWith({{"NAME", "Lied"}, {"(c) ", stored}});
    EXPECT_EQ(said("in.aiff", file, "out.aiff"), "") << shown;
    EXPECT_EQ(chunk("out.aiff", "(c) "), shown);
    EXPECT_THAT(chunk("out.aiff", "NAME"), StartsWith("Lied"));
    EXPECT_EQ(said("in.aiff", file, "out.flac"), "") << shown;
    EXPECT_THAT(textOf(in("out.flac")), HasSubstr(std::string("copyright=") + shown));
  }
}

TEST_F(ForeignTexts, SayThatOtherTypesHaveOneNoteAndNoDataOfPrograms) {
  const std::vector<FileChunk> one = {{"APPL", "m3gaProg"}, {"ANNO", "Note"}};
  EXPECT_EQ(said("in.aiff", aiffWith(one), "out.wav"), "");
  EXPECT_EQ(said("in.aiff", aiffWith({{"APPL", "stocdata"}, {"ANNO", "Note"}, {"ANNO", "Another"}}),
                 "out.wav"),
            "widen: out.wav: WAV cannot keep chunk APPL, chunk ANNO\n");
}

// Some programs have keys of their own there.
TEST_F(ForeignTexts, SayWhichTextsOfACafOnlyACafKeeps) {
  std::string texts = big(5, 4);
  for (const char* word :
       {"title", "Lied", "composer", "Someone", "track number", "3", "BPM", "90", "empty", ""})
    texts += word + std::string(1, '\0');
  std::string rate = "\x40\xE7\x70";  // 48000 as a double
  rate.resize(8);
  const auto chunk = [](const std::string& id, const std::string& bytes) {
    return id + big(bytes.size(), 8) + bytes;
  };
  const std::string file =
      std::string("caff\0\1\0\0", 8) +
      chunk("desc", rate + "lpcm" + big(0, 4) + big(4, 4) + big(1, 4) + big(2, 4) + big(16, 4)) +
      chunk("info", texts) + chunk("data", std::string(4 + 4000, '\1'));
  EXPECT_EQ(said("in.caf", file, "out.wav"),
            "widen: out.wav: WAV cannot keep text composer, text track number, text BPM\n");
  EXPECT_EQ(said("in.caf", file, "out.caf"), "");
}
