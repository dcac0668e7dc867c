// Tags that the library does not show, in files without chunks.
#include "host/sound/tagnames.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/host/chunkfiles.h"
#include "tests/host/conversionfixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class TagNames : public Conversions {
 protected:
  std::vector<std::string> found(const std::string& bytes) const {
    writeText(in("file"), bytes);
    const int descriptor = open(in("file").c_str(), O_RDONLY);
    const std::vector<std::string> names = unknownTags(FileBytes(descriptor));
    close(descriptor);
    return names;
  }
};

std::string comments(const std::vector<std::string>& all) {
  std::string list = little(3, 4) + "lib" + little(all.size(), 4);
  for (const std::string& each : all) list += little(each.size(), 4) + each;
  return list;
}

std::string flacBlock(int type, const std::string& bytes) {
  return static_cast<char>(type) + big(bytes.size(), 3) + bytes;
}

const std::vector<std::string> kComments = {
    "TITLE=A", "ALBUMARTIST=B", "artist=C", "Artist=D", "METADATA_BLOCK_PICTURE=abc", "BPM=120"};

// Pages of one packet each, but for the second, which is spread over two.
std::string oggOf(const std::string& first, const std::string& second) {
  const auto page = [](const std::string& segments, const std::string& bytes) {
    return "OggS" + std::string(22, '\0') + static_cast<char>(segments.size()) + segments + bytes;
  };
  const std::string rest = second.substr(255);
  return page(std::string(1, static_cast<char>(first.size())), first) +
         page("\xFF", second.substr(0, 255)) +
         page(std::string(1, static_cast<char>(rest.size())), rest);
}

std::string id3(const std::vector<std::pair<std::string, std::size_t>>& frames, bool newer) {
  std::string body;
  for (const auto& [id, bytes] : frames) {
    // 200 is written 1, 72 where a byte has seven bits
    const std::string size = newer ? big(bytes / 128 * 256 + bytes % 128, 4) : big(bytes, 4);
    body += id + size + std::string(2, '\0') + std::string(bytes, 'x');
  }
  return "ID3" + std::string(1, newer ? '\4' : '\3') + std::string(2, '\0') +
         big(body.size() / 128 * 256 + body.size() % 128, 4) + body;
}

}  // namespace

TEST_F(TagNames, NameTextsAndPicturesOfFlac) {
  EXPECT_THAT(
      found("fLaC" + flacBlock(0, std::string(34, 's')) + flacBlock(4, comments(kComments)) +
            flacBlock(6, "picture") + flacBlock(2, "riff") + flacBlock(0x85, "cues") +
            flacBlock(6, "after the last")),
      ElementsAre("text albumartist", "text artist", "picture", "text bpm", "application data",
                  "cue sheet"));
}

TEST_F(TagNames, NameThemInOggWhereTheyGoOverPages) {
  std::vector<std::string> all = kComments;
  all.insert(all.begin(), "DESCRIPTION=" + std::string(200, 'd'));
  for (const char* magic : {"\3vorbis", "OpusTags"}) {
    const std::string packet = magic + comments(all);
    ASSERT_LT(packet.size(), 2 * 255U);
    EXPECT_THAT(found(oggOf("head", packet)), ElementsAre("text description", "text albumartist",
                                                          "text artist", "picture", "text bpm"));
  }
}

TEST_F(TagNames, NameThemInId3OfBothVersions) {
  for (const bool newer : {false, true}) {
    EXPECT_THAT(found(id3({{"TIT2", 5}, {"APIC", 200}, {"TBPM", 3}, {"PRIV", 4}}, newer)),
                ElementsAre("picture", "text TBPM", "tag PRIV"));
  }
}

// Lengths are the file's own word.
TEST_F(TagNames, StopAtTheEndOfDamagedTags) {
  EXPECT_THAT(found("fLaC" + flacBlock(4, little(0xFFFFFFFF, 4) + "x")), IsEmpty());
  EXPECT_THAT(
      found("fLaC" + flacBlock(4, little(0, 4) + little(9, 4) + little(0xFFFFFFF0, 4) + "k=")),
      ElementsAre("text k"));
  EXPECT_THAT(found("fLaC\x84\xFF\xFF\xFF"), IsEmpty());
  EXPECT_THAT(found("OggS"), IsEmpty());
  EXPECT_THAT(found("ID3"), IsEmpty());
  EXPECT_THAT(found(std::string("ID3\4\0\0\x7F\x7F\x7F\x7FTBPM\x7F\x7F\x7F\x7F\0\0", 20)),
              ElementsAre("text TBPM"));
}

TEST_F(TagNames, AreSaidOfAFileThatLosesThem) {
  writeSound(in("plain.flac"), noise(1000, 2, 1), SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  std::string file = textOf(in("plain.flac"));
  file.insert(42, flacBlock(2, "test" + std::string(100, 'p')));  // after the first block
  writeText(in("in.flac"), file);
  const Outcome outcome = widen({"in.flac", "-o", "out.flac", "--process", "off"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error, "widen: out.flac: FLAC cannot keep application data\n");
}
