// What a sound file says beside its sound goes into the output, or is named as lost.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "tests/host/chunkfiles.h"
#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string text(const std::string& shown, std::size_t bytes) {
  return shown + std::string(bytes - shown.size(), '\0');
}

// Version 1 of the broadcast chunk, which knows no loudness.
std::string broadcast() {
  return text("A scene", 256) + text("Recorder", 32) + text("REF 1", 32) + "2024-05-06" +
         "10:11:12" + little(123456, 8) + little(1, 2) + std::string(64, 'u') +
         std::string(190, '\0') + "A=PCM,F=48000,W=24,M=stereo,T=mic\r\n";
}

std::string cue(int number, int frame) {
  return little(static_cast<std::uint64_t>(number), 4) + little(0, 4) + "data" + little(0, 8) +
         little(static_cast<std::uint64_t>(frame), 4);
}
std::string cues() {
  return little(2, 4) + cue(1, 100) + cue(7, 1500);
}
std::string labels() {
  return "adtllabl" + little(10, 4) + little(1, 4) + text("Intro", 6) + "labl" + little(9, 4) +
         little(7, 4) + text("Hook", 6);
}
// Note 64, one loop of the frames 200 to 1799.
std::string sampler() {
  return little(0, 8) + little(20833, 4) + little(64, 4) + little(0, 12) + little(1, 4) +
         little(0, 4) + little(0, 8) + little(200, 4) + little(1799, 4) + little(0, 8);
}
// Note 64, 3 cents up, 2 dB down, keys 10 to 100, velocities 1 to 120.
const std::string kKeys = "\x40\x03\xFE\x0A\x64\x01\x78";
const std::string kInfo = "INFOINAM" + little(6, 4) + text("S\xC3\xBC\xC3\x9F", 6) + "IENG" +
                          little(4, 4) + text("Eng", 4);
const std::string kScene = "<BWFXML><SCENE>12</SCENE></BWFXML>";
const std::string kAcid = little(1, 4) + little(60, 4) + std::string(16, 'a');

class MetadataFiles : public Conversions {
 protected:
  // Writes the file, converts it and returns what is said on the error stream.
  std::string said(const std::string& input, const std::string& bytes, const std::string& output) {
    writeText(in(input), bytes);
    const Outcome outcome = widen({input, "-o", output, "--process", "off", "--force", "-q"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    return outcome.error;
  }
  std::string chunk(const std::string& file, const std::string& id,
                    const std::string& beginning = "") const {
    return chunkIn(textOf(in(file)), id, beginning);
  }
};

std::string rich() {
  return wavWith({{"bext", broadcast()},
                  {"cue ", cues()},
                  {"LIST", labels()},
                  {"smpl", sampler()},
                  {"inst", kKeys},
                  {"acid", kAcid}},
                 {{"LIST", kInfo}, {"iXML", kScene}});
}

}  // namespace

TEST_F(MetadataFiles, KeepTheirChunksByteForByteInTheirOwnKind) {
  for (const char* output : {"out.wav", "out.rf64"}) {
    EXPECT_EQ(said("in.wav", rich(), output), "");
    EXPECT_EQ(chunk(output, "cue "), cues());
    EXPECT_THAT(chunk(output, "LIST", "adtl"), StartsWith(labels()));
    EXPECT_EQ(chunk(output, "smpl"), sampler());
    EXPECT_EQ(chunk(output, "inst"), kKeys + '\0') << "made even";
    EXPECT_EQ(chunk(output, "acid"), kAcid);
    EXPECT_EQ(chunk(output, "LIST", "INFO"), kInfo.substr(0, 22) + little(6, 4) + text("Eng", 6))
        << "zeros behind its last text would be taken for another one";
    EXPECT_EQ(chunk(output, "iXML"), kScene + "  ") << "a document ends with spaces, not zeros";
    EXPECT_EQ(readSound(in(output)).samples, readSound(in("in.wav")).samples);
  }
}

TEST_F(MetadataFiles, HaveNoChunkTwice) {
  said("in.wav", rich(), "out.wav");
  std::vector<std::string> ids;
  for (const FileChunk& each : chunksIn(textOf(in("out.wav")))) ids.push_back(each.id);
  EXPECT_THAT(ids, testing::UnorderedElementsAre("fmt ", "bext", "cue ", "LIST", "smpl", "inst",
                                                 "acid", "LIST", "iXML", "data"));
}

// The loudness that another sound had is not told; who made the change is.
TEST_F(MetadataFiles, KeepTheBroadcastChunkButForWhatIsNoLongerTrue) {
  std::string second = broadcast();
  second.replace(346, 2, little(2, 2));
  second.replace(412, 10, std::string(10, '\1'));
  for (const std::string& told : {broadcast(), second}) {
    EXPECT_EQ(said("in.wav", wavWith({{"bext", told}}), "out.wav"), "");
    const std::string kept = chunk("out.wav", "bext");
    EXPECT_EQ(kept.substr(0, 346), told.substr(0, 346)) << "texts, date, time of the first frame";
    EXPECT_EQ(kept.substr(348, 64), told.substr(348, 64)) << "the material's number";
    std::string unknown;
    for (int figure = 0; figure < 5; ++figure) unknown += little(0x7FFF, 2);
    EXPECT_EQ(kept.substr(412, 10), unknown);
    EXPECT_THAT(kept.substr(602), StartsWith(told.substr(602) + "A=PCM,F=48000,W=16,M=stereo,T="));
  }
}

TEST_F(MetadataFiles, DropWhatDescribesTheOldSamples) {
  EXPECT_EQ(said("in.wav",
                 wavWith({{"PEAK", std::string(24, 'p')}, {"JUNK", "junk"}},
                         {{"levl", std::string(120, 'l')}}),
                 "out.wav"),
            "");
  for (const char* id : {"PEAK", "JUNK", "levl"}) EXPECT_EQ(chunk("out.wav", id), "none");
}

TEST_F(MetadataFiles, TakeCuesAndLoopsFromWavToAiffAndBack) {
  EXPECT_EQ(
      said("in.wav",
           wavWith({{"cue ", cues()}, {"LIST", labels()}, {"smpl", sampler()}, {"inst", kKeys}}),
           "out.aiff"),
      "");
  // the loop's end lies behind its last frame here
  const std::string marks = big(4, 2) + big(1, 2) + big(200, 4) + "\x08" + "beg loop" + '\0' +
                            big(2, 2) + big(1800, 4) + "\x08" + "end loop" + '\0' + big(3, 2) +
                            big(100, 4) + "\x05Intro" + big(4, 2) + big(1500, 4) + "\x04Hook" +
                            '\0';
  EXPECT_THAT(chunk("out.aiff", "MARK"), StartsWith(marks));
  EXPECT_EQ(chunk("out.aiff", "INST"), std::string("\x40\x03\x0A\x64\x01\x78\xFF\xFE", 8) +
                                           big(1, 2) + big(1, 2) + big(2, 2) + big(0, 6));
  EXPECT_EQ(widen({"out.aiff", "-o", "back.wav", "--process", "off"}).error, "");
  const std::string back = chunk("back.wav", "cue ");
  EXPECT_EQ(back.substr(0, 4), little(2, 4));
  EXPECT_EQ(back.substr(24, 4), little(100, 4));
  EXPECT_EQ(back.substr(48, 4), little(1500, 4));
  EXPECT_THAT(chunk("back.wav", "LIST", "adtl"), HasSubstr("Intro"));
  EXPECT_THAT(chunk("back.wav", "LIST", "adtl"), HasSubstr("Hook"));
  EXPECT_EQ(chunk("back.wav", "smpl").substr(44, 8), little(200, 4) + little(1799, 4));
  EXPECT_EQ(chunk("back.wav", "inst"), kKeys + '\0');
}

// Other programs write the markers of a loop anywhere among them.
TEST_F(MetadataFiles, FindTheCuesOfAnAiffWhereverItsLoopsAre) {
  writeSound(in("plain.aiff"), noise(2000, 2, 1), SF_FORMAT_AIFF | SF_FORMAT_PCM_16);
  const auto chunk8 = [](const std::string& id, const std::string& bytes) {
    return id + big(bytes.size(), 4) + bytes;
  };
  std::string file = textOf(in("plain.aiff"));
  file += chunk8("MARK", big(3, 2) + big(5, 2) + big(10, 4) + "\1A" + big(6, 2) + big(20, 4) +
                             "\1B" + big(9, 2) + big(900, 4) + "\1C");
  file += chunk8("INST", std::string("\x40\0\0\x7F\0\x7F\0\0", 8) + big(1, 2) + big(6, 2) +
                             big(9, 2) + big(0, 6));
  file.replace(4, 4, big(file.size() - 8, 4));
  EXPECT_EQ(said("in.aiff", file, "out.wav"), "");
  const std::string kept = chunk("out.wav", "cue ");
  ASSERT_EQ(kept.size(), 28U) << "one cue";
  EXPECT_EQ(kept.substr(24, 4), little(10, 4));
  EXPECT_EQ(chunk("out.wav", "smpl").substr(44, 8), little(20, 4) + little(899, 4));
}

TEST_F(MetadataFiles, SayInOneLineWhatTheTypeCannotKeep) {
  const std::string lost =
      "broadcast data, 2 cues, instrument and loops, chunk acid, text IENG, chunk iXML\n";
  EXPECT_EQ(said("in.wav", rich(), "out.flac"), "widen: out.flac: FLAC cannot keep " + lost);
  EXPECT_EQ(said("in.wav", rich(), "out.caf"), "widen: out.caf: CAF cannot keep " + lost);
  EXPECT_EQ(said("in.wav", rich(), "out.w64"), "widen: out.w64: W64 cannot keep title, " + lost);
  EXPECT_EQ(said("in.wav", rich(), "out.mp3"), "widen: out.mp3: MP3 cannot keep " + lost);
  EXPECT_EQ(
      said("in.wav", rich(), "out.aiff"),
      "widen: out.aiff: AIFF cannot keep broadcast data, chunk acid, text IENG, chunk iXML\n");
}

TEST_F(MetadataFiles, TakeOldTextsForLatin1) {
  const std::string info = "INFOINAM" + little(4, 4) + "S\xFC\xDF" + '\0';
  for (const char* output : {"out.flac", "out.mp3", "out.ogg"}) {
    EXPECT_EQ(said("in.wav", wavWith({{"LIST", info}}), output), "");
    SF_INFO about{};
    SNDFILE* file = sf_open(in(output).c_str(), SFM_READ, &about);
    ASSERT_NE(file, nullptr);
    EXPECT_STREQ(sf_get_string(file, SF_STR_TITLE), "S\xC3\xBC\xC3\x9F") << output;
    sf_close(file);
  }
  EXPECT_EQ(said("in.wav", wavWith({{"LIST", info}}), "out.wav"), "");
  EXPECT_EQ(chunk("out.wav", "LIST", "INFO"), info) << "as it was";
}

// A header that outgrows the library's memory would come out damaged.
TEST_F(MetadataFiles, LeaveOutAndSayWhatIsTooLongForAHeader) {
  const std::string longText = "ICMT" + little(60000, 4) + std::string(60000, 'c');
  const std::vector<FileChunk> chunks = {{"aaaa", std::string(20000, '1')},
                                         {"bbbb", std::string(20000, '2')},
                                         {"cccc", std::string(20000, '3')},
                                         {"dddd", std::string(300000, '4')},
                                         {"LIST", "INFO" + longText}};
  EXPECT_THAT(said("in.wav", wavWith(chunks), "out.wav"),
              HasSubstr("WAV cannot keep chunk cccc, chunk dddd, chunk LIST\n"));
  EXPECT_EQ(chunk("out.wav", "bbbb"), chunks[1].bytes);
  EXPECT_EQ(readSound(in("out.wav")).samples, readSound(in("in.wav")).samples);
  EXPECT_EQ(chunksIn(textOf(in("out.wav"))).size(), 4U) << "fmt, aaaa, bbbb, data";
  std::string many = little(2000, 4);
  for (int number = 1; number <= 2000; ++number) many += cue(number, number);
  EXPECT_EQ(said("in.wav", wavWith({{"cue ", many}}), "out.wav"),
            "widen: out.wav: WAV cannot keep chunk cue\n");
  EXPECT_EQ(said("in.wav", wavWith({{"cue ", many}}), "out.aiff"), "");
}

TEST_F(MetadataFiles, KeepEveryTextThatBothTypesKnow) {
  const std::vector<std::pair<int, const char*>> all = {
      {SF_STR_TITLE, "Lied \xC3\xBC\xC2\xAB\xE2\x82\xAC"},
      {SF_STR_ARTIST, "Someone"},
      {SF_STR_ALBUM, "Album"},
      {SF_STR_DATE, "2024-05-06"},
      {SF_STR_GENRE, "Field recording"},
      {SF_STR_TRACKNUMBER, "7"},
      {SF_STR_COMMENT, "A comment that is longer than thirty letters"},
      {SF_STR_COPYRIGHT, "Ours"},
      {SF_STR_LICENSE, "Free"}};
  SF_INFO info{0, 48000, 2, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 0, 0};
  SNDFILE* made = sf_open(in("in.flac").c_str(), SFM_WRITE, &info);
  ASSERT_NE(made, nullptr);
  for (const auto& [type, shown] : all) sf_set_string(made, type, shown);
  const std::vector<short> samples(4000, 1000);
  sf_write_short(made, samples.data(), 4000);
  sf_close(made);
  for (const char* output : {"out.flac", "out.ogg", "out.opus", "out.mp3", "out.caf"}) {
    EXPECT_EQ(widen({"in.flac", "-o", output, "-q"}).error, "") << output;
    SNDFILE* file = sf_open(in(output).c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr) << output;
    for (const auto& [type, shown] : all) {
      if (type == SF_STR_LICENSE && output == std::string("out.mp3")) continue;  // below
      EXPECT_STREQ(sf_get_string(file, type), shown) << output << ' ' << type;
    }
    sf_close(file);
  }
  EXPECT_THAT(textOf(in("out.mp3")),
              HasSubstr(std::string("TXXX\0\0\0\x0D\0\0\3LICENSE\0Free", 23)));
  EXPECT_EQ(widen({"in.flac", "-o", "out.wav", "-q"}).error,
            "widen: out.wav: WAV cannot keep licence\n");
  EXPECT_EQ(widen({"in.flac", "-o", "out.aiff", "-q"}).error,
            "widen: out.aiff: AIFF cannot keep date, album, licence, track number, genre\n");
}
