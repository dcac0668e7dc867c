// Whether a sound file is whole: damage is noticed, and whole files are taken.
#include "host/sound/completeness.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <utility>

#include "tests/host/completenessfixture.h"

namespace {

using testing::HasSubstr;

// Every type and subtype that the library writes, so that it also reads them.
std::vector<int> everyFormat() {
  int types = 0;
  int subtypes = 0;
  sf_command(nullptr, SFC_GET_FORMAT_MAJOR_COUNT, &types, sizeof types);
  sf_command(nullptr, SFC_GET_FORMAT_SUBTYPE_COUNT, &subtypes, sizeof subtypes);
  std::vector<int> formats;
  for (int type = 0; type < types; ++type) {
    SF_FORMAT_INFO typeInfo{type, nullptr, nullptr};
    sf_command(nullptr, SFC_GET_FORMAT_MAJOR, &typeInfo, sizeof typeInfo);
    for (int subtype = 0; subtype < subtypes; ++subtype) {
      SF_FORMAT_INFO subtypeInfo{subtype, nullptr, nullptr};
      sf_command(nullptr, SFC_GET_FORMAT_SUBTYPE, &subtypeInfo, sizeof subtypeInfo);
      formats.push_back(typeInfo.format | subtypeInfo.format);
    }
  }
  return formats;
}

// A chunk's size field is `offset` bytes after the beginning of its name.
struct SizeField {
  const char* name;
  int libFormat;
  const char* chunk;
  std::size_t offset;
  int bytes;
  bool bigEndian;
};

constexpr SizeField kFields[] = {
    {"a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, "data", 4, 4, false},
    {"b.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24, "data", 4, 4, false},
    {"c.wav", SF_FORMAT_WAVEX | SF_FORMAT_FLOAT, "data", 4, 4, false},
    {"d.wav", SF_ENDIAN_BIG | SF_FORMAT_WAV | SF_FORMAT_PCM_16, "data", 4, 4, true},
    {"e.wav", SF_FORMAT_RF64 | SF_FORMAT_PCM_16, "ds64", 16, 8, false},
    {"a.w64", SF_FORMAT_W64 | SF_FORMAT_PCM_16, "data", 16, 8, false},
    {"a.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16, "SSND", 4, 4, true},
    {"a.aifc", SF_FORMAT_AIFF | SF_FORMAT_FLOAT, "SSND", 4, 4, true},
    {"a.au", SF_FORMAT_AU | SF_FORMAT_PCM_16, ".snd", 8, 4, true},
    {"b.au", SF_ENDIAN_LITTLE | SF_FORMAT_AU | SF_FORMAT_PCM_16, "dns.", 8, 4, false},
    {"a.caf", SF_FORMAT_CAF | SF_FORMAT_PCM_16, "data", 4, 8, true},
};

}  // namespace

TEST_F(Completeness, TakesEveryTypeThatTheLibraryReads) {
  int taken = 0;
  for (const int format : everyFormat()) {
    // One more than the pieces in which it is read: there the library loses the rest of some types.
    for (const auto& [channels, length] : {std::pair(2, 5001UL), std::pair(1, 16385UL)}) {
      const std::string bytes = bytesOf(format, channels, length);
      // Without a header only the name's end would show the type.
      if (bytes.empty() || (format & SF_FORMAT_TYPEMASK) == SF_FORMAT_RAW) continue;
      const auto frames = framesByTheLibrary("written");
      if (!frames || *frames == 0) continue;
      const Reading whole = reading("written");
      EXPECT_EQ(whole.failure, "") << std::hex << format << " " << channels;
      EXPECT_EQ(whole.frames, *frames) << std::hex << format << " " << channels;
      ++taken;
    }
  }
  EXPECT_GT(taken, 150);
}

TEST_F(Completeness, TakesWhatFollowsTheSound) {
  const std::string tag = "TAG" + std::string(125, ' ');  // ID3v1
  const int formats[] = {
      SF_FORMAT_WAV | SF_FORMAT_PCM_16,  SF_FORMAT_WAV | SF_FORMAT_PCM_24,
      SF_FORMAT_AIFF | SF_FORMAT_PCM_16, SF_FORMAT_FLAC | SF_FORMAT_PCM_16,
      SF_FORMAT_OGG | SF_FORMAT_VORBIS,  SF_FORMAT_OGG | SF_FORMAT_OPUS,
      SF_FORMAT_AU | SF_FORMAT_PCM_16,   SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III};
  for (const int format : formats) {
    const std::string bytes = bytesOf(format, 1);
    if (bytes.empty()) continue;  // a library without MP3
    for (const std::string& after : {tag, std::string(1, '\0'), std::string(100, '\0')}) {
      writeText(in("a"), bytes + after);
      EXPECT_EQ(reading("a").failure, "") << std::hex << format;
      EXPECT_GE(reading("a").frames, static_cast<std::int64_t>(kFrames)) << std::hex << format;
    }
  }
}

// The first frame, which holds no sound, gives the length; without it the library guesses, and
// wrongly where half of the file is silence.
TEST_F(Completeness, TakesAnMp3ThatNamesNoLength) {
  SF_INFO info{0, 44100, 1, SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 0, 0};
  SNDFILE* file = sf_open(in("a.mp3").c_str(), SFM_WRITE, &info);
  if (file == nullptr) GTEST_SKIP() << "a library without MP3";
  int variable = SF_BITRATE_MODE_VARIABLE;
  sf_command(file, SFC_SET_BITRATE_MODE, &variable, sizeof variable);
  Sound sound = noise(400000, 1, 1);
  std::fill_n(sound.samples.begin(), 200000, 0.0);
  sf_write_double(file, sound.samples.data(), 400000);
  sf_close(file);
  const std::string bytes = textOf(in("a.mp3"));
  const std::size_t second = bytes.find(bytes.substr(0, 2), 4);  // the next frame's mark
  ASSERT_LT(bytes.find("Xing"), second);
  writeText(in("a.mp3"), bytes.substr(second));
  EXPECT_GT(SoundReader(in("a.mp3")).frames(), 500000) << "a guess indeed";
  EXPECT_EQ(reading("a.mp3").failure, "");
  EXPECT_GE(reading("a.mp3").frames, 400000);
}

// The library takes a damaged frame's place for the end, without an error.
TEST_F(Completeness, RefusesAnMp3ThatNamesMoreFramesThanCanBeRead) {
  constexpr std::size_t kLong = 200000;  // frames
  const std::string whole = bytesOf(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 2, kLong);
  if (whole.empty()) GTEST_SKIP() << "a library without MP3";
  const std::string tag = "ID3\4" + std::string(5, '\0') + '\x40' + std::string(64, '\0');
  for (const std::string& front : {std::string(), tag}) {
    writeText(in("a"), front + whole);
    EXPECT_EQ(reading("a").failure, "");
    EXPECT_EQ(reading("a").frames, static_cast<std::int64_t>(kLong));
    std::string damaged = whole;
    damaged.replace(whole.size() / 3, 2000, std::string(2000, '\x55'));
    for (const std::string& bytes : {whole.substr(0, whole.size() / 2), damaged}) {
      writeText(in("a"), front + bytes);
      EXPECT_THAT(reading("a").failure, testing::HasSubstr(" of 200000 frames can be read"));
    }
  }
}

TEST_F(Completeness, TakesAnOddSoundWithAndWithoutItsPadding) {
  // Header of 44 bytes, 101 samples of 8 bits, a byte of padding.
  const Sound sound = noise(101, 1, 2);
  writeSound(in("a.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_PCM_U8);
  EXPECT_EQ(reading("a.wav").frames, 101);
  std::filesystem::resize_file(in("a.wav"), 44 + 101);
  EXPECT_EQ(reading("a.wav").failure, "");
  EXPECT_EQ(reading("a.wav").frames, 101);
  std::filesystem::resize_file(in("a.wav"), 44 + 100);
  EXPECT_THAT(reading("a.wav").failure,
              HasSubstr("is cut short: its header names 101 bytes of sound, 100 are there"));
}

// Sizes of writers that do not know the length: all ones, a little less, or the largest signed
// number, which some round down to whole frames (6 bytes: 0x7FFFEFFC) or put at 0x7F000000 in AIFF.
TEST_F(Completeness, TakesLengthsThatAWriterIntoAPipeLeftOpen) {
  for (const SizeField& field : kFields) {
    const std::string bytes = bytesOf(field.libFormat, 2);
    ASSERT_FALSE(bytes.empty()) << field.name;
    const std::size_t at = bytes.find(field.chunk) + field.offset;
    std::vector<std::uint64_t> open = {0xFFFFFFFF, 0xFFFFFFDB, 0x7FFFF000,
                                       0x7FFFEFFC, 0x7FFFFFFF, 0x80000000};
    if (field.bigEndian) open.push_back(0x7F000008 - 4);
    if (field.bytes == 8) open = {~std::uint64_t{0}, ~std::uint64_t{0} >> 1};
    for (const std::uint64_t size : open) {
      std::string changed = bytes;
      changed.replace(at, static_cast<std::size_t>(field.bytes),
                      number(size, field.bytes, field.bigEndian));
      writeText(in(field.name), changed);
      // What the library makes of it is its own: here it must only not be called damaged.
      EXPECT_EQ(reading(field.name).failure.find("cut short"), std::string::npos)
          << field.name << std::hex << " " << size << " " << reading(field.name).failure;
    }
  }
  const std::string wav = bytesOf(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2);
  for (const std::uint64_t size : {0xFFFFFFFFU, 0x7FFFF000U, 0x80000000U}) {
    const std::size_t at = wav.find("data") + 4;
    writeText(in("a.wav"),
              wav.substr(0, at) + number(size, 4, false) + wav.substr(at + 4, 4 * kFrames));
    EXPECT_EQ(reading("a.wav").failure, "") << size;
    EXPECT_EQ(reading("a.wav").frames, static_cast<std::int64_t>(kFrames)) << size;
  }
}

// Between those a size is meant as it stands, though only a part of so much is there.
TEST_F(Completeness, DoesNotTakeJustAnyLargeLengthForAnOpenOne) {
  const std::string wav = bytesOf(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2);
  const std::size_t at = wav.find("data") + 4;
  for (const std::uint64_t size : {0x40000000U, 0x7FF00000U, 0x90000000U, 0xFFF00000U}) {
    writeText(in("a.wav"), wav.substr(0, at) + number(size, 4, false) + wav.substr(at + 4));
    EXPECT_THAT(reading("a.wav").failure, HasSubstr("a.wav: is cut short")) << size;
  }
}

TEST_F(Completeness, RefusesEveryCutThatCostsAFrame) {
  std::vector<std::pair<std::string, int>> cases;
  for (const SizeField& field : kFields) cases.emplace_back(field.name, field.libFormat);
  cases.insert(cases.end(), {{"a.iff", SF_FORMAT_SVX | SF_FORMAT_PCM_16},
                             {"16.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
                             {"24.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
                             {"a.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
                             {"a.opus", SF_FORMAT_OGG | SF_FORMAT_OPUS},
                             {"a-law.wav", SF_FORMAT_WAV | SF_FORMAT_ALAW},
                             {"adpcm.wav", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM}});
  for (const auto& [name, format] : cases) {
    const std::string bytes =
        bytesOf(format, (format & SF_FORMAT_TYPEMASK) == SF_FORMAT_SVX ? 1 : 2);
    ASSERT_FALSE(bytes.empty()) << name;
    writeText(in(name), bytes);
    const std::int64_t all = reading(name).frames;
    ASSERT_GE(all, static_cast<std::int64_t>(kFrames)) << name << " " << reading(name).failure;
    for (int part = 1; part < 20; ++part) {
      writeText(in(name), bytes.substr(0, bytes.size() * static_cast<std::size_t>(part) / 20));
      const Reading cut = reading(name);
      // Near the end only chunks after the sound may be missing.
      const bool wholeAllTheSame = part >= 18 && cut.failure.empty() && cut.frames == all;
      EXPECT_TRUE(wholeAllTheSame || !cut.failure.empty())
          << name << " " << part << ": " << cut.frames;
    }
  }
}
