// What became of sound files, for scripts.
#include "host/cli/filejson.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>

#include "tests/host/documentfixture.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

constexpr int kWav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
constexpr int kWavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

double decibels(double magnitude) {
  return 20.0 * std::log10(magnitude);
}

// Calculated from the files alone, as the manual says what the figures are.
struct Expected {
  double peak = 0.0;
  double mid = 0.0;
  double side = 0.0;
  double correlation = 0.0;
};

Expected expectedOf(const Sound& sound) {
  Expected all;
  double left = 0.0;
  double right = 0.0;
  double both = 0.0;
  for (std::size_t frame = 0; frame < sound.frames(); ++frame) {
    const double l = sound.at(frame, 0);
    const double r = sound.at(frame, 1);
    all.peak = std::max({all.peak, std::abs(l), std::abs(r)});
    all.mid += (l + r) * (l + r) / 4.0;
    all.side += (l - r) * (l - r) / 4.0;
    left += l * l;
    right += r * r;
    both += l * r;
  }
  const auto count = static_cast<double>(sound.frames());
  all.mid = std::sqrt(2.0 * all.mid / count);  // a sine of amplitude 1 is 1
  all.side = std::sqrt(2.0 * all.side / count);
  all.correlation = both / std::sqrt(left * right);
  return all;
}

double foldErrorOf(const Sound& before, const Sound& after, double gain) {
  double largest = 0.0;
  for (std::size_t frame = 0; frame < after.frames(); ++frame) {
    const double mid = (before.at(frame, 0) + before.at(frame, 1)) / 2.0;
    const double fold = (after.at(frame, 0) + after.at(frame, 1)) / 2.0;
    largest = std::max(largest, std::abs(fold - gain * mid));
  }
  return largest;
}

class FileDocuments : public DocumentTest {
 protected:
  static constexpr double kExact = 0.0006;  // the document has three decimals

  static void expectFigures(const Json& file, const Sound& sound) {
    const Expected expected = expectedOf(sound);
    EXPECT_NEAR(file.at("peak_dbfs"), decibels(expected.peak), kExact);
    EXPECT_NEAR(file.at("mid_dbfs"), decibels(expected.mid), kExact);
    EXPECT_NEAR(file.at("side_dbfs"), decibels(expected.side), kExact);
    EXPECT_NEAR(file.at("correlation"), expected.correlation, kExact);
    EXPECT_EQ(file.at("frames"), sound.frames());
  }
};

}  // namespace

TEST_F(FileDocuments, HoldTheFiguresOfTheWrittenFile) {
  const Sound input = noise(30000, 2, 1);
  writeSound(in("in.wav"), input, kWavFloat);
  const Json file =
      document({"in.wav", "-o", "out.flac", "--width", "80%", "--gain", "-12dB"}).at("files").at(0);
  EXPECT_EQ(file.at("input"), Json({{"file", "in.wav"},
                                    {"type", "WAV"},
                                    {"encoding", "float"},
                                    {"channels", 2},
                                    {"sample_rate", 44100},
                                    {"frames", 30000},
                                    {"seconds", 0.680272}}));
  const Json& output = file.at("output");
  EXPECT_EQ(output.at("file"), "out.flac");
  EXPECT_EQ(output.at("type"), "FLAC");
  EXPECT_EQ(output.at("encoding"), "24-bit");
  const Sound written = readSound(in("out.flac"));
  expectFigures(output, written);
  EXPECT_EQ(file.at("gain_db"), -12.0);
  // Rounding to 24 bits, and the effect's in single precision, break the fold by so little.
  const double error = foldErrorOf(input, written, std::pow(10.0, -12.0 / 20.0));
  EXPECT_NEAR(file.at("fold_error_dbfs"), decibels(error), kExact);
  EXPECT_EQ(file.at("warnings"), Json::array());
}

// A file that exceeds full scale is not what the effect put out.
TEST_F(FileDocuments, SpeakOfTheFileAsItIsClipped) {
  const Sound input = noise(30000, 2, 2);
  writeSound(in("in.wav"), input, kWav16);
  const Json file =
      document({"in.wav", "-o", "out.wav", "--width", "90%", "--gain", "3dB"}).at("files").at(0);
  const Sound written = readSound(in("out.wav"));
  expectFigures(file.at("output"), written);
  EXPECT_EQ(file.at("output").at("peak_dbfs"), 0.0);
  EXPECT_GT(file.at("peak_before_clipping_dbfs"), 3.0);
  const double error = foldErrorOf(input, written, std::pow(10.0, 3.0 / 20.0));
  EXPECT_GT(error, 0.1) << "or the test shows nothing";
  EXPECT_NEAR(file.at("fold_error_dbfs"), decibels(error), kExact);
  EXPECT_GT(file.at("clipped_samples"), 1000);
  ASSERT_EQ(file.at("warnings").size(), 1U);
  const std::string warning = file.at("warnings").at(0);
  EXPECT_THAT(said, HasSubstr("widen: " + warning + "\n")) << "the same as in words";
}

TEST_F(FileDocuments, AgreeWithTheAnalysisOfTheWrittenFile) {
  writeSound(in("in.wav"), noise(50000, 1, 3), kWav16);
  for (const char* output : {"a.wav", "b.flac", "c.aiff"}) {
    const Json written =
        document({"in.wav", "-o", output, "--width", "70%"}).at("files").at(0).at("output");
    const Json analysed = document({"--analyse", output}).at("files").at(0).at("input");
    EXPECT_EQ(written, analysed);
    EXPECT_TRUE(written.at("loudness_lufs").is_number());
    EXPECT_GE(written.at("true_peak_dbtp"), written.at("peak_dbfs"));
  }
}

TEST_F(FileDocuments, CallAnExactFoldAndSilenceNull) {
  Sound silence;
  silence.samples.resize(60000);
  writeSound(in("in.wav"), silence, kWav16);
  const Json file = document({"in.wav", "-o", "out.wav"}).at("files").at(0);
  EXPECT_EQ(file.at("fold_error_dbfs"), nullptr);
  for (const char* name :
       {"peak_dbfs", "true_peak_dbtp", "loudness_lufs", "mid_dbfs", "side_dbfs"}) {
    EXPECT_EQ(file.at("output").at(name), nullptr) << name;
  }
}

TEST_F(FileDocuments, TellHowTheEffectWasSet) {
  writeSound(in("in.wav"), noise(100, 1, 4), kWav16);
  const Json effect =
      document({"in.wav", "-o", "out.wav", "--preset", "guitar 1", "--emphasis", "0.3"})
          .at("files")
          .at(0)
          .at("effect");
  EXPECT_EQ(effect.at("name"), "Orv Trelvan");
  EXPECT_EQ(effect.at("preset"), Json({{"number", 12}, {"name", "guitar 1"}}));
  EXPECT_EQ(
      effect.at("parameters").at(2),
      Json({{"index", 2}, {"name", "emphasis"}, {"value", 0.3}, {"text", "30.0"}, {"unit", "%"}}));
}

TEST_F(FileDocuments, MatchThePicturesLevelsWhenBothAreAsked) {
  writeSound(in("in.wav"), noise(20000, 2, 9), kWav16);
  const Json alone = document({"in.wav", "-o", "a.wav", "--width", "50%"}).at("files").at(0);
  const Json both =
      document({"in.wav", "-o", "b.wav", "--width", "50%", "--plot", "b.png"}).at("files").at(0);
  EXPECT_EQ(both.at("picture"), "b.png");
  EXPECT_FALSE(alone.contains("picture"));
  EXPECT_EQ(both.at("fold_error_dbfs"), alone.at("fold_error_dbfs"));
}
