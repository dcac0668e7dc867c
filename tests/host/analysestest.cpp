// --analyse: the figures of files that are only looked at.
#include "host/cli/analyses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <numbers>

#include "host/cli/json.h"
#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

constexpr int kWav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

class Analyses : public ProgramTest {
 protected:
  // A second of a sine of 1 kHz; 0.5 left, as much or its half to the right.
  Analyses() {
    Sound sine;
    for (int frame = 0; frame < 44100; ++frame) {
      const double sample = 0.5 * std::sin(2.0 * std::numbers::pi * 1000.0 * frame / 44100.0);
      sine.samples.push_back(sample);
      sine.samples.push_back(0.5 * sample);
    }
    writeSound(in("sine.flac"), sine, SF_FORMAT_FLAC | SF_FORMAT_PCM_24);
    sine.channels = 1;
    std::erase_if(sine.samples, [odd = true](double) mutable { return odd = !odd; });
    writeSound(in("mono.wav"), sine, kWav16);
  }
};

}  // namespace

// Mid 0.375, side 0.125 in amplitude. The left channel alone is a sine of -6.0 dBFS with half the
// energy of two: -9.0 LUFS; the right one adds a quarter of that: +1.0 dB.
TEST_F(Analyses, TellLevelsAndLoudness) {
  const Outcome outcome = widen({"--analyse", "sine.flac"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(outcome.out,
            "sine.flac: stereo, 44100 Hz, 44100 frames (0:01.000), 24-bit FLAC\n"
            "  peak -6.0 dBFS, true peak -6.0 dBTP, loudness -8.1 LUFS\n"
            "  mid -8.5 dBFS, side -18.1 dBFS, correlation 1.00\n");
}

TEST_F(Analyses, CountAMonoFileOnce) {
  const Outcome outcome = widen({"--analyse", "mono.wav"});
  EXPECT_EQ(outcome.out,
            "mono.wav: mono, 44100 Hz, 44100 frames (0:01.000), 16-bit WAV\n"
            "  peak -6.0 dBFS, true peak -6.0 dBTP, loudness -9.0 LUFS\n"
            "  mid -6.0 dBFS, side -inf dBFS, correlation 1.00\n");
}

TEST_F(Analyses, WriteNothing) {
  const std::vector<std::string> before = names();
  EXPECT_EQ(widen({"--analyse", "sine.flac", "mono.wav", "-j", "2"}).status, 0);
  EXPECT_EQ(names(), before);
}

TEST_F(Analyses, AreShownInOrderAndEvenWhereItIsQuiet) {
  const Outcome outcome = widen({"--analyse", "-q", "mono.wav", "sine.flac", "-j", "2"});
  EXPECT_EQ(outcome.out.find("mono.wav: "), 0U);
  EXPECT_THAT(outcome.out, HasSubstr("\nsine.flac: "));
  EXPECT_THAT(outcome.out, testing::Not(HasSubstr("files:"))) << "nobody asked for the summary";
  EXPECT_THAT(widen({"--analyse", "mono.wav", "sine.flac"}).out, HasSubstr("2 files: 2 done\n"));
}

TEST_F(Analyses, GoOnAfterAFileThatCannotBeRead) {
  writeText(in("text.wav"), "no sound");
  const Outcome outcome = widen({"--analyse", "text.wav", "mono.wav"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, HasSubstr("widen: text.wav: not a sound file"));
  EXPECT_THAT(outcome.out, HasSubstr("mono.wav: mono"));
  EXPECT_THAT(outcome.out, HasSubstr("2 files: 1 done, 1 failed\n"));
}

TEST_F(Analyses, TakeFoldersWithAllTheirSounds) {
  std::filesystem::create_directories(in("a/b"));
  std::filesystem::create_directory(in("empty"));
  std::filesystem::rename(in("mono.wav"), in("a/mono.wav"));
  std::filesystem::rename(in("sine.flac"), in("a/b/sine.flac"));
  const Outcome outcome = widen({"--analyse", "a"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_THAT(outcome.out, HasSubstr("a/mono.wav: mono"));
  EXPECT_THAT(outcome.out, HasSubstr("a/b/sine.flac: stereo"));
  const Outcome none = widen({"--analyse", "empty", "--json"});
  EXPECT_EQ(none.status, 1);
  const Json errors = Json::parse(none.out).at("errors");
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_THAT(errors.at(0).get<std::string>(), HasSubstr("empty"));
}

TEST_F(Analyses, MeasureWhatCanBeReadOfADamagedFileWhereThatIsAsked) {
  const std::string whole = textOf(in("mono.wav"));
  writeText(in("mono.wav"), whole.substr(0, 44 + 2 * 22050));
  EXPECT_EQ(widen({"--analyse", "mono.wav"}).status, 1);
  const Outcome outcome = widen({"--analyse", "mono.wav", "--salvage", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.error, HasSubstr("measured 22050 frames (0:00.500)"));
  const Json file = Json::parse(outcome.out).at("files").at(0);
  EXPECT_EQ(file.at("input").at("frames"), 22050);
  EXPECT_EQ(file.at("warnings").size(), 1U);
}

TEST_F(Analyses, TakeTheStandardInput) {
  Surroundings piped;
  piped.standardInput = pipeFrom(in("mono.wav"));
  const Outcome outcome = widen({"--analyse", "-"}, piped);
  EXPECT_THAT(outcome.out, HasSubstr("standard input: mono, 44100 Hz, 44100 frames"))
      << outcome.error;
}

// One frame of 4001 more has opposite channels: fewer places show none of that, nor a sign.
TEST_F(Analyses, ShowNoSignWhereNothingIsLeftOfANumber) {
  Sound sound{44100, 2, {}};
  for (int frame = 0; frame < 4001; ++frame)
    sound.samples.insert(sound.samples.end(), {0.5, frame % 2 == 0 ? -0.5 : 0.5});
  writeSound(in("near.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  EXPECT_THAT(widen({"--analyse", "near.wav"}).out, HasSubstr(", correlation 0.00\n"));
  EXPECT_THAT(widen({"--analyse", "--json", "near.wav"}).out, HasSubstr("\"correlation\": 0.0"));
}

// 0xFFFFFFFF bytes: what a writer into a pipe names.
TEST_F(Analyses, CallAWavOfUnknownLengthAWav) {
  std::string bytes = textOf(in("mono.wav"));
  bytes.replace(40, 4, "\xFF\xFF\xFF\xFF");
  writeText(in("open.wav"), bytes);
  Surroundings piped;
  piped.standardInput = pipeFrom(in("open.wav"));
  const Json open = Json::parse(widen({"--analyse", "--json", "-"}, piped).out);
  const Json whole = Json::parse(widen({"--analyse", "--json", "mono.wav"}).out);
  Json expected = whole.at("files").at(0).at("input");
  expected["file"] = "-";
  EXPECT_EQ(open.at("files").at(0).at("input"), expected);
}

TEST_F(Analyses, RefuseASoundThatHoldsWhatIsNoNumber) {
  Sound sound = noise(100, 1, 1);
  sound.samples[50] = std::nan("");
  writeSound(in("nan.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
  expectRefusal(widen({"--analyse", "nan.wav"}), 1,
                "nan.wav: holds a value that is not a number at 0:00.001");
}

TEST_F(Analyses, RefuseWhatTheyWouldIgnore) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"-o", "out.wav"},
                                             {"--plot", "p.png"},
                                             {"--preset", "3"},
                                             {"--gain", "3"},
                                             {"--plugin", "x"},
                                             {"--info"},
                                             {"--editor"},
                                             {"--save-state", "s"}}) {
    std::vector<std::string> all = {"--analyse", "mono.wav"};
    all.insert(all.end(), words.begin(), words.end());
    expectRefusal(widen(all), 2, "--analyse goes without ");
  }
  expectRefusal(widen({"--analyse"}), 2, "no sound file named");
}
