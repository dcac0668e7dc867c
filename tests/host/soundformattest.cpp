// Sample formats and file types.
#include "host/sound/soundformat.h"

#include <gtest/gtest.h>
#include <sndfile.h>

TEST(SoundFormat, KnowsTheFormatsThatCanBeAskedFor) {
  EXPECT_EQ(sampleFormatNamed("pcm16"), SampleFormat::pcm16);
  EXPECT_EQ(sampleFormatNamed("pcm24"), SampleFormat::pcm24);
  EXPECT_EQ(sampleFormatNamed("pcm32"), SampleFormat::pcm32);
  EXPECT_EQ(sampleFormatNamed("float"), SampleFormat::float32);
  EXPECT_EQ(sampleFormatNamed("double"), SampleFormat::float64);
  EXPECT_EQ(sampleFormatNamed("pcm8"), std::nullopt);
  EXPECT_EQ(sampleFormatNamed(""), std::nullopt);
}

TEST(SoundFormat, TellsTheFileTypeByTheExtension) {
  EXPECT_EQ(fileTypeOf("a/b.WAV"), FileType::wav);
  EXPECT_EQ(fileTypeOf("x.y.aiff"), FileType::aiff);
  EXPECT_EQ(fileTypeOf("x.Aif"), FileType::aiff);
  EXPECT_EQ(fileTypeOf("x.flac"), FileType::flac);
  for (const char* name : {"x", "x.mp3", ".wav", "wav", "x.wav.bak"})
    EXPECT_EQ(fileTypeOf(name), std::nullopt) << name;
}

TEST(SoundFormat, KeepsWhatTheInputHas) {
  EXPECT_EQ(sampleFormatOf(SF_FORMAT_WAV | SF_FORMAT_PCM_U8), SampleFormat::pcm8);
  EXPECT_EQ(sampleFormatOf(SF_FORMAT_AIFF | SF_FORMAT_PCM_S8), SampleFormat::pcm8);
  EXPECT_EQ(sampleFormatOf(SF_FORMAT_FLAC | SF_FORMAT_PCM_24), SampleFormat::pcm24);
  EXPECT_EQ(sampleFormatOf(SF_FORMAT_WAV | SF_FORMAT_DOUBLE), SampleFormat::float64);
  EXPECT_EQ(sampleFormatOf(SF_FORMAT_OGG | SF_FORMAT_VORBIS), SampleFormat::pcm16);
  EXPECT_EQ(sampleFormatOf(SF_FORMAT_CAF | SF_FORMAT_ALAC_24), SampleFormat::pcm24);
}

TEST(SoundFormat, GivesFlacWhatItCanHold) {
  EXPECT_FALSE(canHold(FileType::flac, SampleFormat::float32));
  EXPECT_FALSE(canHold(FileType::flac, SampleFormat::pcm32));
  EXPECT_EQ(keptFormat(SampleFormat::float32, FileType::flac), SampleFormat::pcm24);
  EXPECT_EQ(keptFormat(SampleFormat::pcm16, FileType::flac), SampleFormat::pcm16);
  EXPECT_EQ(keptFormat(SampleFormat::float64, FileType::wav), SampleFormat::float64);
}

// 4 GB are 2^32 bytes; a stereo frame of 32 bits has 8 of them.
TEST(SoundFormat, ChoosesATypeThatHoldsTheLength) {
  constexpr std::int64_t kTooMany = (std::int64_t{1} << 32) / 8;
  EXPECT_EQ(libFormatFor(FileType::wav, SampleFormat::float32, kTooMany / 2),
            SF_FORMAT_WAV | SF_FORMAT_FLOAT);
  EXPECT_EQ(libFormatFor(FileType::wav, SampleFormat::float32, kTooMany),
            SF_FORMAT_RF64 | SF_FORMAT_FLOAT);
  EXPECT_EQ(libFormatFor(FileType::aiff, SampleFormat::float32, kTooMany), std::nullopt);
  EXPECT_EQ(libFormatFor(FileType::wav, SampleFormat::float32, std::nullopt),
            SF_FORMAT_RF64 | SF_FORMAT_FLOAT);
  EXPECT_EQ(libFormatFor(FileType::aiff, SampleFormat::float32, std::nullopt),
            SF_FORMAT_AIFF | SF_FORMAT_FLOAT);
  EXPECT_EQ(libFormatFor(FileType::flac, SampleFormat::pcm24, kTooMany * 8),
            SF_FORMAT_FLAC | SF_FORMAT_PCM_24);
  EXPECT_EQ(libFormatFor(FileType::wav, SampleFormat::pcm8, 10), SF_FORMAT_WAV | SF_FORMAT_PCM_U8);
  EXPECT_EQ(libFormatFor(FileType::aiff, SampleFormat::pcm8, 10),
            SF_FORMAT_AIFF | SF_FORMAT_PCM_S8);
}

TEST(SoundFormat, SaysWhatAFileHoldsInASamplesPlace) {
  const double step = 1.0 / 32768;
  EXPECT_EQ(heldSample(SampleFormat::pcm16, 0.6 * step), step);
  EXPECT_EQ(heldSample(SampleFormat::pcm16, -0.4 * step), 0.0);
  EXPECT_EQ(heldSample(SampleFormat::pcm16, 2.0), 1.0 - step);
  EXPECT_EQ(heldSample(SampleFormat::pcm24, -2.0), -1.0);
  EXPECT_EQ(heldSample(SampleFormat::pcm32, 2.0), 1.0 - 1.0 / 2147483648.0);
  EXPECT_EQ(heldSample(SampleFormat::float32, 0.1), static_cast<double>(0.1F));
  EXPECT_EQ(heldSample(SampleFormat::float64, 2.5), 2.5);
}
