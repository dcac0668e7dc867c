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
  EXPECT_EQ(fileTypeOf("x.caf"), FileType::caf);
  EXPECT_EQ(fileTypeOf("x.W64"), FileType::w64);
  EXPECT_EQ(fileTypeOf("x.rf64"), FileType::rf64);
  EXPECT_EQ(fileTypeOf("x.ogg"), FileType::vorbis);
  EXPECT_EQ(fileTypeOf("x.opus"), FileType::opus);
  EXPECT_EQ(fileTypeOf("x.Mp3"), FileType::mp3);
  for (const char* name : {"x", "x.au", ".wav", "wav", "x.wav.bak", "x.", "x.wav ", "x. "})
    EXPECT_EQ(fileTypeOf(name), std::nullopt) << name;
}

TEST(SoundFormat, KnowsATypeByItsExtensionAlone) {
  EXPECT_EQ(fileTypeNamed("Aiff"), FileType::aiff);
  for (const char* name : {"", ".wav", "a.wav", "a/wav", "wav aiff"})
    EXPECT_EQ(fileTypeNamed(name), std::nullopt) << name;
}

TEST(SoundFormat, GivesLossyTypesWhatTheirEncodersTake) {
  for (const FileType type : {FileType::vorbis, FileType::opus, FileType::mp3}) {
    EXPECT_TRUE(isLossy(type));
    EXPECT_EQ(keptFormat(SampleFormat::pcm24, type), SampleFormat::lossy);
    EXPECT_FALSE(canHold(type, SampleFormat::pcm16));
  }
  EXPECT_FALSE(canHold(FileType::wav, SampleFormat::lossy));
  EXPECT_EQ(refusedRate(FileType::opus, 44100),
            "Opus takes 8000, 12000, 16000, 24000 and 48000 Hz, not 44100");
  EXPECT_EQ(refusedRate(FileType::opus, 48000), "");
  EXPECT_EQ(refusedRate(FileType::mp3, 44100), "");
  EXPECT_NE(refusedRate(FileType::mp3, 96000), "");
  EXPECT_EQ(refusedRate(FileType::vorbis, 44101), "");
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
  EXPECT_EQ(heldSample(SampleFormat::lossy, 2.5), 1.0);
  EXPECT_EQ(heldSample(SampleFormat::lossy, 0.1), static_cast<double>(0.1F));
}
