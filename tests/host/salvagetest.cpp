// What is kept of damaged sound files where that is asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include "host/sound/soundreader.h"
#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kFrames = 60000;
constexpr int kFlac = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;

class Salvaging : public ProgramTest {
 protected:
  Outcome salvaged(const std::string& name) {
    return widen({name, "-o", "out.wav", "-f", "--process", "off", "--salvage"});
  }
};

}  // namespace

TEST_F(Salvaging, KeepsWhatACutFileHas) {
  const Sound sound = noise(1000, 2, 1);
  writeSound(in("a.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  std::filesystem::resize_file(in("a.wav"), 44 + 4 * 600);  // header, and 600 frames of 4 bytes
  const Outcome outcome = salvaged("a.wav");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error,
            "widen: a.wav: is cut short: its header names 4000 bytes of sound, 2400 are there; "
            "kept 600 frames (0:00.014)\n");
  EXPECT_EQ(readSound(in("out.wav")).samples,
            std::vector<double>(sound.samples.begin(), sound.samples.begin() + 1200));
  EXPECT_THAT(names(), ElementsAre("a.wav", "out.wav"));
}

TEST_F(Salvaging, SaysNothingOfAWholeFile) {
  writeSound(in("a.flac"), noise(kFrames, 2, 1), kFlac);
  const Outcome outcome = salvaged("a.flac");
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(readSound(in("out.wav")).samples, noise(kFrames, 2, 1).samples);
}

// A block of a FLAC stands alone: 4096 frames, unless an encoder was told otherwise.
TEST_F(Salvaging, LosesOneBlockOfAFlacToAFlippedBitAndKeepsTheOthersInTheirPlaces) {
  const Sound sound = noise(kFrames, 2, 3);
  writeSound(in("whole.flac"), sound, kFlac);
  const std::string whole = textOf(in("whole.flac"));
  constexpr std::size_t kBlock = 2 * 4096;  // samples
  for (const double place : {0.2, 0.5, 0.9}) {
    std::string damaged = whole;
    damaged[static_cast<std::size_t>(place * static_cast<double>(whole.size()))] ^= 4;
    writeText(in("a.flac"), damaged);
    const Outcome outcome = salvaged("a.flac");
    EXPECT_EQ(outcome.status, 0) << place;
    EXPECT_EQ(outcome.error,
              "widen: a.flac: is damaged: only 55904 of 60000 frames can be read; 4096 within are "
              "silent; kept 60000 frames (0:01.361)\n");
    const Sound out = readSound(in("out.wav"));
    ASSERT_EQ(out.samples.size(), sound.samples.size());
    std::size_t block = 0;  // the damaged one's first sample
    while (std::equal(out.samples.begin(),
                      out.samples.begin() + static_cast<std::ptrdiff_t>(block + kBlock),
                      sound.samples.begin()))
      block += kBlock;
    std::vector<double> expected = sound.samples;
    std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(block), kBlock, 0.0);
    EXPECT_EQ(out.samples, expected) << place;
  }
}

TEST_F(Salvaging, KeepsTheBeginningOfACutFlac) {
  const Sound sound = noise(kFrames, 2, 3);
  writeSound(in("a.flac"), sound, kFlac);
  std::filesystem::resize_file(in("a.flac"), std::filesystem::file_size(in("a.flac")) / 2);
  const Outcome outcome = salvaged("a.flac");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.error, HasSubstr("a.flac: is damaged: only "));
  const Sound out = readSound(in("out.wav"));
  EXPECT_GT(out.frames(), kFrames / 3);
  EXPECT_LT(out.frames(), kFrames / 2 + 4096);
  EXPECT_THAT(outcome.error, HasSubstr("; kept " + std::to_string(out.frames()) + " frames"));
  EXPECT_TRUE(std::equal(out.samples.begin(), out.samples.end(), sound.samples.begin()));
}

TEST_F(Salvaging, EndsWhereverTheDamageIs) {
  const Sound sound = noise(kFrames, 2, 3);
  const std::pair<const char*, int> types[] = {{"a.flac", kFlac},
                                               {"a.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
                                               {"a.caf", SF_FORMAT_CAF | SF_FORMAT_PCM_16},
                                               {"a.wav", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM}};
  for (const auto& [name, format] : types) {
    writeSound(in("whole"), sound, format);
    const std::string whole = textOf(in("whole"));
    for (std::size_t file = 0; file < 16; ++file) {
      std::string damaged = whole.substr(0, whole.size() - file * 1000);
      for (std::size_t bit = file; bit < 5; ++bit)
        damaged[(bit + 1) * damaged.size() / 7] ^= static_cast<char>(1 << bit);
      writeText(in(name), damaged);
      const Outcome outcome = salvaged(name);
      if (outcome.status != 0) {
        expectRefusal(outcome, 1, name);  // where the header is hit
        continue;
      }
      EXPECT_LE(readSound(in("out.wav")).frames(), kFrames + 4096) << name << file;
      std::filesystem::remove(in("out.wav"));
    }
  }
}

// Two passes come to the same, the damage included.
TEST_F(Salvaging, GivesTheSameAgainFromTheBeginning) {
  writeSound(in("a.flac"), noise(kFrames, 1, 3), kFlac);
  std::string bytes = textOf(in("a.flac"));
  bytes[bytes.size() / 2] ^= 1;
  writeText(in("a.flac"), bytes);
  SoundReader reader(in("a.flac"), {true});
  const auto readAll = [&reader] {
    std::vector<double> left(kFrames + 1);
    std::vector<double> right(kFrames + 1);
    left.resize(static_cast<std::size_t>(
        reader.read(left.data(), right.data(), static_cast<int>(left.size()))));
    return left;
  };
  const auto first = readAll();
  EXPECT_EQ(first.size(), kFrames);
  EXPECT_NE(reader.damage(), "");
  reader.rewind();
  EXPECT_EQ(readAll(), first);
  EXPECT_EQ(reader.certainFrames(), std::nullopt);
}
