// Whether an Ogg or FLAC file is whole: every page and the last frame are there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/sound/completeness.h"
#include "tests/host/completenessfixture.h"

namespace {

using testing::HasSubstr;

}  // namespace

TEST_F(Completeness, RefusesAnOggWithoutItsLastPage) {
  for (const int subtype : {SF_FORMAT_VORBIS, SF_FORMAT_OPUS}) {
    const std::string bytes = bytesOf(SF_FORMAT_OGG | subtype, 2);
    const std::size_t last = bytes.rfind("OggS");
    for (const std::string& without : {bytes.substr(0, last), bytes.substr(0, bytes.size() - 1)}) {
      writeText(in("a.ogg"), without);
      EXPECT_THAT(reading("a.ogg").failure,
                  HasSubstr("a.ogg: has no last page: it is cut short, or a piece of a stream"));
    }
  }
}

// Each page carries a checksum of all its bits.
TEST_F(Completeness, RefusesAnOggWithAFlippedBitAnywhere) {
  for (const int subtype : {SF_FORMAT_VORBIS, SF_FORMAT_OPUS}) {
    const std::string bytes = bytesOf(SF_FORMAT_OGG | subtype, 2);
    for (std::size_t flip = 0; flip < 80; ++flip) {
      std::string damaged = bytes;
      damaged[flip * bytes.size() / 80] ^= static_cast<char>(1 << flip % 8);
      writeText(in("a.ogg"), damaged);
      EXPECT_NE(reading("a.ogg").failure, "") << flip;
    }
    std::string damaged = bytes;
    damaged.back() ^= 4;
    writeText(in("a.ogg"), damaged);
    EXPECT_THAT(reading("a.ogg").failure,
                HasSubstr("is damaged at byte " + std::to_string(bytes.rfind("OggS"))));
  }
}

TEST_F(Completeness, TakesAnOggOfSeveralStreamsOneAfterTheOther) {
  const std::string bytes = bytesOf(SF_FORMAT_OGG | SF_FORMAT_VORBIS, 2);
  writeText(in("a.ogg"), bytes + bytesOf(SF_FORMAT_OGG | SF_FORMAT_VORBIS, 2));
  EXPECT_EQ(reading("a.ogg").failure, "");
}

// A header that promises more frames than follow, in a type where the library believes it.
TEST_F(Completeness, RefusesAFlacThatEndsBeforeItsLastFrame) {
  const std::string bytes = bytesOf(SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 2);
  std::string longer = bytes;
  longer.replace(22, 4, number(kFrames + 7, 4, true));  // the low 32 bits of the number of frames
  writeText(in("a.flac"), longer);
  EXPECT_THAT(reading("a.flac").failure, HasSubstr("only 20001 of 20008 frames can be read"));
  std::string unknown = bytes;
  unknown.replace(22, 4, number(0, 4, true));  // as an encoder leaves it that writes into a pipe
  writeText(in("a.flac"), unknown);
  EXPECT_EQ(reading("a.flac").failure, "");
  EXPECT_EQ(reading("a.flac").frames, static_cast<std::int64_t>(kFrames));
  EXPECT_EQ(SoundReader(in("a.flac")).frames(), std::nullopt) << "nobody knows";
  writeText(in("a.flac"), unknown.substr(0, unknown.size() / 2));
  EXPECT_THAT(reading("a.flac").failure, HasSubstr("a.flac: is damaged"));
}
