// Writes a stereo sound file.
#include "host/sound/soundwriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>

#include "host/base/failure.h"
#include "host/sound/soundreader.h"
#include "tests/host/foldertest.h"
#include "tests/host/sounds.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Case {
  const char* name;
  FileType type;
  SampleFormat format;
  int libFormat;
};

void PrintTo(const Case& tested, std::ostream* out) {
  *out << tested.name;
}

class SoundWriterFormats : public FolderTest, public testing::WithParamInterface<Case> {};

class SoundWriterFiles : public FolderTest {
 protected:
  static SoundWriterOptions options(SampleFormat format, FileType type = FileType::wav) {
    SoundWriterOptions chosen;
    chosen.type = type;
    chosen.format = format;
    chosen.sampleRate = 44100;
    chosen.frames = 1000;
    return chosen;
  }
};

}  // namespace

// Read with the library's own integers, so that no scaling of ours is in between.
TEST_P(SoundWriterFormats, RoundTrip) {
  const auto& [name, type, format, libFormat] = GetParam();
  const Sound sound = noise(50000, 2, 5);
  SoundWriterOptions options;
  options.type = type;
  options.format = format;
  options.sampleRate = 96000;
  options.frames = 50000;
  SoundWriter writer(in(name), options);
  for (std::size_t frame = 0; frame < sound.frames(); ++frame) {
    const double left = sound.at(frame, 0);
    const double right = sound.at(frame, 1);
    writer.write(&left, &right, 1);
  }
  writer.finish();
  EXPECT_EQ(writer.framesWritten(), 50000);
  EXPECT_EQ(libFormatOf(in(name)), libFormat);
  EXPECT_THAT(names(), ElementsAre(name));
  const int bits = integerBits(format);
  if (bits == 0) {
    const Sound back = readSound(in(name));
    EXPECT_EQ(back.rate, 96000);
    EXPECT_EQ(back.samples, sound.samples);
    return;
  }
  std::vector<std::int32_t> expected;
  for (const double sample : sound.samples) {
    const auto step = static_cast<std::int64_t>(std::nearbyint(std::ldexp(sample, bits - 1)));
    const std::int64_t highest = (std::int64_t{1} << (bits - 1)) - 1;
    expected.push_back(
        static_cast<std::int32_t>(std::min(step, highest) * (std::int64_t{1} << (32 - bits))));
  }
  EXPECT_EQ(readIntegers(in(name)), expected);
}

INSTANTIATE_TEST_SUITE_P(
    EveryFormat, SoundWriterFormats,
    testing::Values(
        Case{"8.wav", FileType::wav, SampleFormat::pcm8, SF_FORMAT_WAV | SF_FORMAT_PCM_U8},
        Case{"16.wav", FileType::wav, SampleFormat::pcm16, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
        Case{"24.wav", FileType::wav, SampleFormat::pcm24, SF_FORMAT_WAV | SF_FORMAT_PCM_24},
        Case{"32.wav", FileType::wav, SampleFormat::pcm32, SF_FORMAT_WAV | SF_FORMAT_PCM_32},
        Case{"f.wav", FileType::wav, SampleFormat::float32, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
        Case{"d.wav", FileType::wav, SampleFormat::float64, SF_FORMAT_WAV | SF_FORMAT_DOUBLE},
        Case{"8.aiff", FileType::aiff, SampleFormat::pcm8, SF_FORMAT_AIFF | SF_FORMAT_PCM_S8},
        Case{"16.aiff", FileType::aiff, SampleFormat::pcm16, SF_FORMAT_AIFF | SF_FORMAT_PCM_16},
        Case{"24.aiff", FileType::aiff, SampleFormat::pcm24, SF_FORMAT_AIFF | SF_FORMAT_PCM_24},
        Case{"32.aiff", FileType::aiff, SampleFormat::pcm32, SF_FORMAT_AIFF | SF_FORMAT_PCM_32},
        Case{"f.aiff", FileType::aiff, SampleFormat::float32, SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
        Case{"d.aiff", FileType::aiff, SampleFormat::float64, SF_FORMAT_AIFF | SF_FORMAT_DOUBLE},
        Case{"8.caf", FileType::caf, SampleFormat::pcm8, SF_FORMAT_CAF | SF_FORMAT_PCM_S8},
        Case{"16.caf", FileType::caf, SampleFormat::pcm16, SF_FORMAT_CAF | SF_FORMAT_PCM_16},
        Case{"24.caf", FileType::caf, SampleFormat::pcm24, SF_FORMAT_CAF | SF_FORMAT_PCM_24},
        Case{"32.caf", FileType::caf, SampleFormat::pcm32, SF_FORMAT_CAF | SF_FORMAT_PCM_32},
        Case{"f.caf", FileType::caf, SampleFormat::float32, SF_FORMAT_CAF | SF_FORMAT_FLOAT},
        Case{"d.caf", FileType::caf, SampleFormat::float64, SF_FORMAT_CAF | SF_FORMAT_DOUBLE},
        Case{"8.w64", FileType::w64, SampleFormat::pcm8, SF_FORMAT_W64 | SF_FORMAT_PCM_U8},
        Case{"16.w64", FileType::w64, SampleFormat::pcm16, SF_FORMAT_W64 | SF_FORMAT_PCM_16},
        Case{"24.w64", FileType::w64, SampleFormat::pcm24, SF_FORMAT_W64 | SF_FORMAT_PCM_24},
        Case{"32.w64", FileType::w64, SampleFormat::pcm32, SF_FORMAT_W64 | SF_FORMAT_PCM_32},
        Case{"f.w64", FileType::w64, SampleFormat::float32, SF_FORMAT_W64 | SF_FORMAT_FLOAT},
        Case{"d.w64", FileType::w64, SampleFormat::float64, SF_FORMAT_W64 | SF_FORMAT_DOUBLE},
        Case{"8.rf64", FileType::rf64, SampleFormat::pcm8, SF_FORMAT_RF64 | SF_FORMAT_PCM_U8},
        Case{"16.rf64", FileType::rf64, SampleFormat::pcm16, SF_FORMAT_RF64 | SF_FORMAT_PCM_16},
        Case{"24.rf64", FileType::rf64, SampleFormat::pcm24, SF_FORMAT_RF64 | SF_FORMAT_PCM_24},
        Case{"32.rf64", FileType::rf64, SampleFormat::pcm32, SF_FORMAT_RF64 | SF_FORMAT_PCM_32},
        Case{"f.rf64", FileType::rf64, SampleFormat::float32, SF_FORMAT_RF64 | SF_FORMAT_FLOAT},
        Case{"d.rf64", FileType::rf64, SampleFormat::float64, SF_FORMAT_RF64 | SF_FORMAT_DOUBLE},
        Case{"8.flac", FileType::flac, SampleFormat::pcm8, SF_FORMAT_FLAC | SF_FORMAT_PCM_S8},
        Case{"16.flac", FileType::flac, SampleFormat::pcm16, SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
        Case{"24.flac", FileType::flac, SampleFormat::pcm24, SF_FORMAT_FLAC | SF_FORMAT_PCM_24}),
    [](const auto& tested) {
      std::string name = tested.param.name;
      name[name.find('.')] = '_';
      return name;
    });

TEST_F(SoundWriterFiles, HoldsIntegersAtFullScaleAndCountsThem) {
  const std::vector<double> left = {1.5, 1.0, -1.0, 0.25};
  const std::vector<double> right = {-1.5, 40000.0, -1e300, 0.0};
  SoundWriter writer(in("a.wav"), options(SampleFormat::pcm16));
  writer.write(left.data(), right.data(), 4);
  writer.finish();
  EXPECT_EQ(writer.clippedSamples(), 4) << "1 itself is within full scale";
  EXPECT_EQ(writer.peak(), 1e300);
  EXPECT_EQ(writer.clippedFold(), 1e300 / 2) << "of the pair (-1, -1e300)";
  constexpr std::int32_t kTop = 32767 * 65536;
  constexpr std::int32_t kBottom = -32768 * 65536;
  EXPECT_THAT(readIntegers(in("a.wav")),
              ElementsAre(kTop, kBottom, kTop, kTop, kBottom, kBottom, 8192 * 65536, 0));
}

TEST_F(SoundWriterFiles, LosesNoFoldWhereBothChannelsLoseTheOpposite) {
  const double left = 1.5;
  const double right = -1.5;
  SoundWriter writer(in("a.wav"), options(SampleFormat::pcm16));
  writer.write(&left, &right, 1);
  EXPECT_EQ(writer.clippedFold(), 0.0);
}

TEST_F(SoundWriterFiles, WritesAndCountsTheSameInPiecesOfAnySize) {
  Sound sound = noise(50000, 2, 9);
  sound.samples[2 * 33333] = 1.25;
  std::vector<double> left;
  std::vector<double> right;
  for (std::size_t frame = 0; frame < sound.frames(); ++frame) {
    left.push_back(sound.at(frame, 0));
    right.push_back(sound.at(frame, 1));
  }
  std::vector<std::string> results;
  for (const std::size_t piece : {1, 7, 16384, 16385, 50000}) {
    SoundWriter writer(in("a.wav"), options(SampleFormat::pcm16));
    for (std::size_t at = 0; at < left.size(); at += piece) {
      const auto frames = static_cast<int>(std::min(piece, left.size() - at));
      writer.write(&left[at], &right[at], frames);
    }
    writer.finish();
    EXPECT_EQ(writer.peak(), 1.25) << piece;
    EXPECT_EQ(writer.clippedSamples(), 1) << piece;
    EXPECT_EQ(writer.clippedFold(), 0.125) << piece;
    results.push_back(textOf(in("a.wav")));
    std::filesystem::remove(in("a.wav"));
  }
  EXPECT_EQ(results.front().size(), 44 + 4 * 50000U) << "a header, and frames of 4 bytes";
  EXPECT_THAT(results, testing::Each(results.front()));
}

TEST_F(SoundWriterFiles, RoundsToTheNearestStep) {
  const double step = 1.0 / 32768;
  const std::vector<double> left = {0.4 * step, 0.6 * step, -0.4 * step, -0.6 * step};
  SoundWriter writer(in("a.wav"), options(SampleFormat::pcm16));
  writer.write(left.data(), left.data(), 4);
  writer.finish();
  EXPECT_THAT(readIntegers(in("a.wav")), ElementsAre(0, 0, 65536, 65536, 0, 0, -65536, -65536));
}

TEST_F(SoundWriterFiles, KeepsLoudFloatingPointAsItIs) {
  const double loud = 2.5;
  SoundWriter writer(in("a.wav"), options(SampleFormat::float32));
  writer.write(&loud, &loud, 1);
  writer.finish();
  EXPECT_EQ(writer.clippedSamples(), 0);
  EXPECT_EQ(writer.clippedFold(), 0.0);
  EXPECT_THAT(readSound(in("a.wav")).samples, ElementsAre(2.5, 2.5));
}

TEST_F(SoundWriterFiles, LeavesNothingWithoutFinish) {
  {
    SoundWriter writer(in("a.wav"), options(SampleFormat::pcm16));
    const std::vector<double> silence(40000);
    writer.write(silence.data(), silence.data(), 40000);
    EXPECT_EQ(names().size(), 1U) << "it is being written";
    EXPECT_NE(names().front(), "a.wav") << "under another name";
  }
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(SoundWriterFiles, RefusesWhatATypeCannotHold) {
  auto flac = options(SampleFormat::pcm16, FileType::flac);
  flac.sampleRate = 2000000;
  EXPECT_THROW(SoundWriter(in("a.flac"), flac), Failure);
  auto aiff = options(SampleFormat::float64, FileType::aiff);
  aiff.frames = std::int64_t{1} << 40;
  EXPECT_THROW(SoundWriter(in("a.aiff"), aiff), Failure);
  EXPECT_THAT(names(), IsEmpty());
}

// The long way to a file that outgrows a 32-bit size is not taken: a wrong guess must end as a WAV
// that every program reads, if with the extensible header.
TEST_F(SoundWriterFiles, WritesAnOrdinaryWavWhenTheGuessWasTooLong) {
  auto guess = options(SampleFormat::pcm16);
  guess.frames = std::int64_t{1} << 40;
  SoundWriter writer(in("a.wav"), guess);
  const double half = 0.5;
  writer.write(&half, &half, 1);
  writer.finish();
  EXPECT_EQ(libFormatOf(in("a.wav")), SF_FORMAT_WAVEX | SF_FORMAT_PCM_16);
  EXPECT_TRUE(textOf(in("a.wav")).starts_with("RIFF"));
  EXPECT_THAT(readSound(in("a.wav")).samples, ElementsAre(0.5, 0.5));
}

// Where the length is not known before, and where it was guessed too short. The frames are refused
// before they are read.
TEST_F(SoundWriterFiles, RefusesMoreThanTheTypeHoldsWhenItComes) {
  const double half = 0.5;
  constexpr int kBeyond4Gigabytes = 600000000;  // frames of 8 bytes
  for (const FileType type : {FileType::aiff, FileType::wav}) {
    auto known = options(SampleFormat::float32, type);
    known.frames = type == FileType::aiff ? std::nullopt : std::optional<std::int64_t>(10);
    SoundWriter writer(in("a.out"), known);
    writer.write(&half, &half, 1);
    EXPECT_THROW(writer.write(&half, &half, kBeyond4Gigabytes), Failure);
  }
}

TEST_F(SoundWriterFiles, WritesTheSameBytesEveryTime) {
  std::string bytes[2];
  for (std::string& written : bytes) {
    auto replacing = options(SampleFormat::float32);
    replacing.replace = true;
    SoundWriter writer(in("a.wav"), replacing);
    const double half = 0.5;
    writer.write(&half, &half, 1);
    writer.finish();
    written = textOf(in("a.wav"));
  }
  EXPECT_EQ(bytes[0], bytes[1]);
  EXPECT_EQ(bytes[0].find("PEAK"), std::string::npos) << "holds a time stamp";
}

TEST_F(SoundWriterFiles, CarriesTheTextsOver) {
  auto titled = options(SampleFormat::pcm16);
  titled.metadata.texts = {{SF_STR_TITLE, "Song"}, {SF_STR_ARTIST, "Somebody"}};
  SoundWriter writer(in("a.wav"), titled);
  const double half = 0.5;
  writer.write(&half, &half, 1);
  writer.finish();
  EXPECT_EQ(SoundReader(in("a.wav")).texts(), titled.metadata.texts);
}
