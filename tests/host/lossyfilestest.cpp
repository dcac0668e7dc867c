// Files whose encoder loses something: Ogg Vorbis, Opus, MP3.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <ostream>

#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;

struct Lossy {
  const char* name;
  const char* extension;
  int libFormat;
};

void PrintTo(const Lossy& tested, std::ostream* out) {
  *out << tested.name;
}

class LossyFiles : public Conversions, public testing::WithParamInterface<Lossy> {
 protected:
  // 1 kHz and 3 kHz, other ones on each side; peak 0.5, of no round length
  static Sound tones(double gain = 1.0) {
    Sound sound;
    sound.rate = 48000;
    for (int frame = 0; frame < 30011; ++frame) {
      const double turn = 2.0 * std::numbers::pi * frame / sound.rate;
      sound.samples.push_back(gain * (0.3 * std::sin(1000 * turn) + 0.2 * std::sin(3000 * turn)));
      sound.samples.push_back(gain * 0.5 * std::sin(2000 * turn));
    }
    return sound;
  }

  std::string output(const std::string& stem = "out") const { return stem + GetParam().extension; }

  // Of the difference to the sound, in dB below it.
  static double distance(const Sound& one, const Sound& other) {
    double power = 0.0;
    double error = 0.0;
    for (std::size_t i = 0; i < one.samples.size(); ++i) {
      power += one.samples[i] * one.samples[i];
      error += std::pow(one.samples[i] - other.samples[i], 2);
    }
    return 10.0 * std::log10(power / error);
  }
};

}  // namespace

// One frame too late would be 22 degrees of the highest tone, and 11 dB below it at most.
TEST_P(LossyFiles, HoldEveryFrameInItsPlace) {
  writeSound(in("in.wav"), tones(), kFloatWav);
  const Sound back = result({"in.wav", "--process", "off"}, output());
  EXPECT_EQ(libFormatOf(in(output())), GetParam().libFormat);
  EXPECT_EQ(back.rate, 48000);
  ASSERT_EQ(back.frames(), tones().frames());
  EXPECT_GT(distance(tones(), back), 20.0);
}

TEST_P(LossyFiles, AreTheSameBytesWhateverTheBlocks) {
  writeSound(in("in.wav"), tones(), kFloatWav);
  for (const char* block : {"1024", "7"}) {
    const Outcome outcome = widen({"in.wav", "-o", output(block), "--block", block});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
  }
  EXPECT_TRUE(textOf(in(output("1024"))) == textOf(in(output("7"))));
}

TEST_P(LossyFiles, AreLargerAndCloserWithMoreQuality) {
  std::uintmax_t bytes = 0;
  double close = -100.0;
  for (const char* quality : {"0", "5.5", "10"}) {
    Sound sound = noise(20000, 2, 3);
    sound.rate = 48000;
    writeSound(in("in.wav"), sound, kFloatWav);
    const Sound back = result({"in.wav", "--process", "off", "--quality", quality}, output());
    const double closeness = distance(sound, back);
    EXPECT_GT(std::filesystem::file_size(in(output())), bytes) << quality;
    EXPECT_GT(closeness, close) << quality;
    bytes = std::filesystem::file_size(in(output()));
    close = closeness;
  }
}

// An encoder would take more than full scale, but whoever plays the file clips it.
TEST_P(LossyFiles, GetNothingBeyondFullScaleAndSaySo) {
  writeSound(in("in.wav"), tones(3.0), kFloatWav);
  const Outcome outcome = widen({"in.wav", "-o", output(), "--process", "off"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.error, HasSubstr("is beyond full scale"));
  EXPECT_THAT(outcome.error, HasSubstr("use --gain"));
  EXPECT_EQ(outcome.error.find("--format"), std::string::npos) << "it has none";
  Sound held = tones(3.0);
  for (double& sample : held.samples) sample = std::clamp(sample, -1.0, 1.0);
  EXPECT_GT(distance(held, readSound(in(output()))), 18.0);
}

INSTANTIATE_TEST_SUITE_P(EveryType, LossyFiles,
                         testing::Values(Lossy{"Vorbis", ".ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
                                         Lossy{"Opus", ".opus", SF_FORMAT_OGG | SF_FORMAT_OPUS},
                                         Lossy{"Mp3", ".mp3",
                                               SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(Conversions, RefuseARateThatAnEncoderHasNot) {
  writeSound(in("in.wav"), noise(100, 2, 1), kFloatWav);
  expectRefusal(widen({"in.wav", "-o", "out.opus"}), 1,
                "out.opus: cannot be written (Opus takes 8000, 12000, 16000, 24000 and 48000 Hz, "
                "not 44100)");
  EXPECT_FALSE(std::filesystem::exists(in("out.opus")));
}

TEST_F(Conversions, EncodeAFolderIntoTheTypeThatIsAsked) {
  writeSound(in("a.wav"), noise(100, 2, 1), kFloatWav);
  writeSound(in("b.flac"), noise(100, 2, 2), SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  EXPECT_EQ(widen({"a.wav", "b.flac", "-o", "out", "--type", "CAF", "--process", "off"}).error, "");
  EXPECT_EQ(libFormatOf(in("out") / "a.caf"), SF_FORMAT_CAF | SF_FORMAT_FLOAT);
  EXPECT_EQ(libFormatOf(in("out") / "b.caf"), SF_FORMAT_CAF | SF_FORMAT_PCM_16);
}

TEST_F(Conversions, RefuseTypesAndQualitiesThatAreNone) {
  expectRefusal(widen({"a.wav", "-o", "out/", "--type", "x/mp3"}), 2, "--type: \"x/mp3\" is not");
  for (const char* quality : {"11", "-1", "nan", "good", ""}) {
    expectRefusal(widen({"a.wav", "-o", "a.ogg", std::string("--quality=") + quality}), 2,
                  "--quality");
  }
}
