// Reads a mono or stereo sound file.
#include "host/sound/soundreader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "tests/host/foldertest.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

class SoundReaderFiles : public FolderTest {
 protected:
  std::string refusalOf(const std::string& name) const {
    try {
      SoundReader reader(in(name));
    } catch (const Failure& failure) {
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(SoundReaderFiles, GivesEverySampleInPiecesOfAnySize) {
  const Sound sound = noise(40000, 2, 1);
  for (const int format : {SF_FORMAT_WAV | SF_FORMAT_FLOAT, SF_FORMAT_WAV | SF_FORMAT_PCM_16,
                           SF_FORMAT_AIFF | SF_FORMAT_PCM_16, SF_FORMAT_FLAC | SF_FORMAT_PCM_16,
                           SF_FORMAT_WAV | SF_FORMAT_PCM_24, SF_FORMAT_WAV | SF_FORMAT_DOUBLE}) {
    writeSound(in("a"), sound, format);
    for (const int piece : {1000, 16384, 16385, 40001}) {
      SoundReader reader(in("a"));
      EXPECT_EQ(reader.channels(), 2);
      EXPECT_EQ(reader.sampleRate(), 44100);
      EXPECT_EQ(reader.frames(), 40000);
      std::vector<double> left(static_cast<std::size_t>(piece));
      std::vector<double> right(left);
      std::vector<double> all;
      int frames = 0;
      while ((frames = reader.read(left.data(), right.data(), piece)) > 0) {
        for (int i = 0; i < frames; ++i) {
          all.push_back(left[static_cast<std::size_t>(i)]);
          all.push_back(right[static_cast<std::size_t>(i)]);
        }
      }
      EXPECT_EQ(all, sound.samples) << std::hex << format << std::dec << " by " << piece;
      EXPECT_EQ(reader.read(left.data(), right.data(), piece), 0) << "stays at the end";
    }
  }
}

// Some of these cannot step back, and the decoder of one comes to other samples after it did.
TEST_F(SoundReaderFiles, GivesTheSameAgainFromTheFirstFrame) {
  for (const int format : {SF_FORMAT_WAV | SF_FORMAT_PCM_16, SF_FORMAT_WAV | SF_FORMAT_GSM610,
                           SF_FORMAT_WAV | SF_FORMAT_G721_32, SF_FORMAT_OGG | SF_FORMAT_VORBIS,
                           SF_FORMAT_FLAC | SF_FORMAT_PCM_24, SF_FORMAT_CAF | SF_FORMAT_ALAC_16,
                           SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III}) {
    Sound sound = noise(40000, 1, 3);
    sound.rate = format == (SF_FORMAT_WAV | SF_FORMAT_GSM610) ? 8000 : 48000;
    writeSound(in("a"), sound, format);
    SoundReader reader(in("a"));
    std::vector<double> left(50000);
    std::vector<double> right(left);
    const int frames = reader.read(left.data(), right.data(), 50000);
    const std::vector<double> first = left;
    for (const int stop : {50000, 0, 17, 20000}) {
      reader.rewind();
      std::fill(left.begin(), left.end(), 0.0);
      reader.read(left.data(), right.data(), stop);
      reader.rewind();
      EXPECT_EQ(reader.read(left.data(), right.data(), 50000), frames) << std::hex << format;
      EXPECT_EQ(left, first) << std::hex << format << std::dec << " after " << stop;
    }
  }
}

TEST_F(SoundReaderFiles, NoticesThatItsFileBecameAnother) {
  writeSound(in("a.wav"), noise(100, 1, 2), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  SoundReader reader(in("a.wav"));
  writeSound(in("a.wav"), noise(100, 2, 2), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  EXPECT_THROW(reader.rewind(), Failure);
}

TEST_F(SoundReaderFiles, GivesMonoOnBothSides) {
  const Sound sound = noise(100, 1, 2);
  for (const int format : {SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_FLOAT}) {
    writeSound(in("a.wav"), sound, SF_FORMAT_WAV | format);
    SoundReader reader(in("a.wav"));
    std::vector<double> left(100);
    std::vector<double> right(100);
    ASSERT_EQ(reader.read(left.data(), right.data(), 100), 100);
    EXPECT_EQ(left, sound.samples);
    EXPECT_EQ(right, sound.samples);
  }
}

TEST_F(SoundReaderFiles, ScalesIntegersWithoutARoundingError) {
  const Sound sound{48000, 1, {-1.0, 1.0 - 1.0 / 8388608, 1.0 / 8388608, 0.0}};
  writeSound(in("a.aiff"), sound, SF_FORMAT_AIFF | SF_FORMAT_PCM_24);
  SoundReader reader(in("a.aiff"));
  std::vector<double> left(4);
  std::vector<double> right(4);
  reader.read(left.data(), right.data(), 4);
  EXPECT_EQ(left, sound.samples);
  EXPECT_EQ(reader.format(), SampleFormat::pcm24);
}

TEST_F(SoundReaderFiles, SaysWhatIsWrongWithAFile) {
  EXPECT_THAT(refusalOf("missing.wav"), HasSubstr("missing.wav: no such file"));
  std::filesystem::create_directory(in("folder.wav"));
  EXPECT_THAT(refusalOf("folder.wav"), HasSubstr("is a folder"));
  writeText(in("empty.wav"), "");
  EXPECT_THAT(refusalOf("empty.wav"), HasSubstr("is empty"));
  writeText(in("text.wav"), "this is not sound, whatever its name says\n");
  EXPECT_THAT(refusalOf("text.wav"), HasSubstr("not a sound file"));
  writeText(in("below/x"), "");
  EXPECT_THAT(refusalOf("text.wav/a.wav"), HasSubstr("Not a directory"));
}

TEST_F(SoundReaderFiles, RefusesNoFramesAndTooManyChannels) {
  writeSound(in("none.wav"), Sound{44100, 2, {}}, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  EXPECT_THAT(refusalOf("none.wav"), HasSubstr("0 frames"));
  writeSound(in("surround.wav"), noise(10, 6, 3), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  EXPECT_THAT(refusalOf("surround.wav"), HasSubstr("6 channels"));
}

TEST_F(SoundReaderFiles, RefusesATruncatedFile) {
  writeSound(in("a.wav"), noise(1000, 2, 4), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  std::filesystem::resize_file(in("a.wav"), 44 + 4 * 600);  // header, and 600 frames of 4 bytes
  EXPECT_THAT(
      refusalOf("a.wav"),
      HasSubstr("a.wav: is cut short: its header names 4000 bytes of sound, 2400 are there"));
}
