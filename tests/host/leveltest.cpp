// The level of what is written: a gain that follows from the peak.
#include "host/convert/level.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>

#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class Levels : public Conversions {
 protected:
  static double peakOf(const Sound& sound) {
    double peak = 0.0;
    for (const double sample : sound.samples) peak = std::max(peak, std::abs(sample));
    return peak;
  }
};

}  // namespace

// Twice the side at 100 %, so that loud noise comes to more than full scale.
TEST_F(Levels, AreLoweredAsFarAsNoSampleIsBeyondFullScale) {
  writeSound(in("in.wav"), noise(20000, 1, 1), kFloatWav);
  const std::vector<std::string> words = {"in.wav", "--preset", "guitar 3", "--format", "double"};
  const Sound plain = result(words, "plain.wav");
  const double peak = peakOf(plain);
  ASSERT_GT(peak, 1.5);
  std::vector<std::string> lowered = words;
  lowered.insert(lowered.end(), {"--gain", "auto"});
  const Sound out = result(lowered);
  for (std::size_t i = 0; i < out.samples.size(); ++i)
    ASSERT_NEAR(out.samples[i], plain.samples[i] / peak, 1e-15) << i;
  EXPECT_LE(peakOf(out), 1.0);
}

// 16 bits reach from -32768 to 32767: at a gain of 2 the highest sample would be a step too high,
// and be held back alone.
TEST_F(Levels, ReachTheLastStepOfIntegersAndNoFurther) {
  writeSound(in("in.wav"), Sound{44100, 1, {0.5, 0.375, -0.25}}, kFloatWav);
  result({"in.wav", "--process", "off", "--format", "pcm16", "--normalize", "0dB"});
  const auto stepsAt = [&](std::size_t frame) {
    return readIntegers(in("out.wav"))[2 * frame] >> 16;
  };
  EXPECT_EQ(stepsAt(0), 32767);
  EXPECT_EQ(stepsAt(1), 24575) << "24575.25; at a gain of 2 it would be 24576";
  writeSound(in("in.wav"), Sound{44100, 1, {0.25, 0.375, -0.5}}, kFloatWav);
  result({"in.wav", "--process", "off", "--format", "pcm16", "--normalize", "0dB"});
  EXPECT_EQ(stepsAt(2), -32768);
  EXPECT_EQ(stepsAt(1), 24576);
  writeSound(in("in.wav"), Sound{44100, 1, {1.0, 0.75}}, kFloatWav);
  result({"in.wav", "--process", "off", "--format", "pcm16", "--gain", "auto"});
  EXPECT_EQ(stepsAt(0), 32767);
  EXPECT_EQ(stepsAt(1), 24575);
}

// Else the noise would be cut off at one end, and the mean of what is loudest be below it.
TEST_F(Levels, LeaveRoomForDither) {
  constexpr std::size_t kMany = 100000;  // frames
  for (const double level : {0.5, -0.5}) {
    writeSound(in("in.wav"), Sound{44100, 1, std::vector<double>(kMany, level)}, kFloatWav);
    result({"in.wav", "--process", "off", "--format", "pcm16", "--dither", "--normalize", "0dB"});
    double sum = 0.0;
    for (const std::int32_t sample : readIntegers(in("out.wav"))) sum += sample / 65536.0;
    EXPECT_NEAR(sum / (2.0 * kMany), level > 0.0 ? 32766.0 : -32767.0, 0.01);
  }
}

TEST_F(Levels, StayWhereTheyFit) {
  Sound sound = noise(3000, 2, 2);
  sound.samples[100] = -1.0;
  writeSound(in("in.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const Outcome outcome = widen({"in.wav", "-o", "out.wav", "--process", "off", "--gain", "auto"});
  EXPECT_EQ(textOf(in("out.wav")), textOf(in("in.wav"))) << "not a bit is changed";
  writeSound(in("soft.wav"), impulse(100, 1, 5), kFloatWav);
  EXPECT_EQ(result({"soft.wav", "--process", "off", "--gain", "auto"}).at(5, 0), 0.5)
      << "and nothing is made louder";
  EXPECT_THAT(outcome.out, Not(HasSubstr("gain")));
}

TEST_F(Levels, ComeToThePeakThatIsAsked) {
  Sound sound = noise(3000, 2, 3);
  for (double& sample : sound.samples) sample /= 16.0;
  writeSound(in("soft.wav"), sound, kFloatWav);
  for (const std::string level : {"-1dB", "-20", "0 dBFS", "-59.9"}) {
    const double expected = std::pow(10.0, std::stod(level) / 20.0);
    const Sound out =
        result({"soft.wav", "--normalize", level, "--format", "double", "--preset", "mix 1"});
    EXPECT_NEAR(peakOf(out), expected, expected * 1e-15) << level;
  }
  EXPECT_THAT(
      widen({"soft.wav", "-o", "out.wav", "-f", "--normalize", "-1dB", "--process", "off"}).out,
      testing::ContainsRegex("gain \\+23.[0-9] dB, peak -1.0 dBFS"));
}

TEST_F(Levels, LeaveSilenceAsItIs) {
  writeSound(in("in.wav"), Sound{44100, 2, std::vector<double>(2000)}, kFloatWav);
  for (const char* option : {"--normalize=-1dB", "--gain=auto"}) {
    EXPECT_EQ(result({"in.wav", option}).samples, std::vector<double>(2000)) << option;
  }
}

// What comes out after the sound counts, and an effect that is late.
TEST_F(Levels, CountTheTailAndTheLatency) {
  writeSound(in("in.wav"), impulse(100, 1, 99), kFloatWav);
  const Sound out =
      result({"in.wav", "--plugin", plugin("echo"), "--normalize", "0dB", "--tail", "1s"});
  EXPECT_EQ(out.at(99, 0), 1.0);
  EXPECT_EQ(out.at(99 + 30000, 0), 0.5);
  EXPECT_EQ(result({"in.wav", "--plugin", plugin("latency"), "--normalize", "0dB"}).at(99, 0), 1.0);
}

TEST_F(Levels, AreTheSameForPipesAndForEveryBlock) {
  writeSound(in("in.wav"), noise(90000, 1, 4), SF_FORMAT_WAV | SF_FORMAT_PCM_24);
  result({"in.wav", "--preset", "3", "--gain", "auto"}, "file.wav");
  Surroundings fed;
  fed.standardInput = pipeFrom(in("in.wav"));
  const Outcome piped =
      widen({"/dev/stdin", "-o", "pipe.wav", "--preset", "3", "--gain", "auto"}, fed);
  EXPECT_EQ(piped.status, 0) << piped.error;
  EXPECT_EQ(textOf(in("pipe.wav")), textOf(in("file.wav")));
  result({"in.wav", "--preset", "3", "--gain", "auto", "--block", "77"}, "blocks.wav");
  EXPECT_EQ(textOf(in("blocks.wav")), textOf(in("file.wav")));
}

TEST_F(Levels, AreForEachFileItsOwn) {
  Sound soft = noise(1000, 1, 5);
  for (double& sample : soft.samples) sample /= 4.0;
  writeSound(in("a.wav"), noise(1000, 1, 5), kFloatWav);
  writeSound(in("b.wav"), soft, kFloatWav);
  ASSERT_EQ(widen({"a.wav", "b.wav", "-o", "out", "--normalize", "-6dB"}).status, 0);
  EXPECT_EQ(readSound(in("out/a.wav")).samples, readSound(in("out/b.wav")).samples);
}

TEST_F(Levels, ShowTheirFoldAtTheGainThatWasFound) {
  writeSound(in("in.wav"), noise(3000, 1, 6), kFloatWav);
  const auto picture = [&](const std::string& name, const std::string& option) {
    const Outcome outcome =
        widen({"in.wav", "-o", name + ".wav", "--process", "off", option, "--plot", name + ".png"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    return textOf(in(name + ".png"));
  };
  writeSound(in("half.wav"), Sound{44100, 1, std::vector<double>(3000, 0.5)}, kFloatWav);
  std::filesystem::rename(in("half.wav"), in("in.wav"));
  EXPECT_EQ(picture("normal", "--normalize=0dB"), picture("gain", "--gain=6.020599913279624dB"))
      << "twice 0.5 either way";
}

TEST_F(Levels, AreSetInOneWay) {
  writeSound(in("in.wav"), noise(10, 1, 1), kFloatWav);
  expectRefusal(widen({"in.wav", "-o", "o.wav", "--gain", "auto", "--normalize", "-1"}), 2,
                "--gain and --normalize both set the level");
  for (const char* level : {"1dB", "-61", "loud", "-3%", ""}) {
    expectRefusal(widen({"in.wav", "-o", "o.wav", "--normalize", level}), 2, "--normalize");
  }
  expectRefusal(widen({"--editor", "in.wav", "--gain", "auto"}), 2, "--gain auto");
}
