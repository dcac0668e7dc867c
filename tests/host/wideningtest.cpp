// What a plain run does to the image, and what it says of one that became narrower or too loud.
#include "host/convert/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <regex>

#include "effect/parameters.h"
#include "host/vst/pluginplaces.h"
#include "tests/host/conversionfixture.h"
#include "tests/support/imageblocks.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class Widenings : public Conversions {
 protected:
  // What a user has stored as the preset that the effect begins with.
  void storeDefault(float width) const {
    ACombProgram preset;
    preset.rename("mine");
    preset.width = width;
    std::string hex;
    for (const unsigned char byte : presetimage::writePreset(preset, kTrelvanID, {})) {
      constexpr const char* kDigits = "0123456789abcdef";
      hex += {kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
    std::filesystem::create_directories(root / "config" / "orv");
    writeText(root / "config" / "orv" / "trelvan.conf",
              "[Preferences]\nDefaultPreset=bytes:" + hex + "\n");
  }

  // The width that a warning advises, or 0.
  static double advisedWidth(const std::string& warning) {
    std::smatch found;
    if (!std::regex_search(warning, found, std::regex("--width ([0-9.]+)%"))) return 0.0;
    return std::stod(found[1]);
  }

  static std::string percent(double width) { return std::to_string(width) + "%"; }
};

}  // namespace

TEST_F(Widenings, TakeAPresetThatWidensWhereNothingIsSaid) {
  writeSound(in("in.wav"), noise(5000, 2, 1), kFloatWav);
  const Sound out = result({"in.wav"});
  EXPECT_EQ(out.samples, result({"in.wav", "--preset", "mix 2"}, "named.wav").samples);
  EXPECT_NE(out.at(4000, 0), out.at(4000, 1)) << "it is wide";
  EXPECT_THAT(widen({"in.wav", "-o", "said.wav"}).out,
              HasSubstr("preset 2 \"mix 2\" (chosen since none was named): width 50.0 %"));
  EXPECT_THAT(widen({"in.wav", "-o", "said.wav", "-f", "--preset", "2"}).out,
              Not(HasSubstr("chosen")));
}

TEST_F(Widenings, ComeOnTopOfThePresetThatWasChosen) {
  writeSound(in("in.wav"), noise(5000, 1, 2), kFloatWav);
  for (const auto& [option, value] :
       {std::pair("--base-freq", "300Hz"), std::pair("--phase", "on"),
        std::pair("--set", "emphasis=0.5"), std::pair("--automate", "moves")}) {
    writeText(in("moves"), "0 emphasis 50%\n");
    EXPECT_EQ(result({"in.wav", option, value}).samples,
              result({"in.wav", "--preset", "mix 2", option, value}, "named.wav").samples)
        << option;
  }
}

TEST_F(Widenings, LeaveTheFirstPresetWhereTheWidthIsSet) {
  writeSound(in("in.wav"), noise(5000, 1, 3), kFloatWav);
  const Sound expected = result({"in.wav", "--preset", "init", "--width", "40%"}, "named.wav");
  EXPECT_EQ(result({"in.wav", "--width", "40%"}).samples, expected.samples);
  EXPECT_EQ(result({"in.wav", "--set", "Width=40%"}).samples, expected.samples);
  EXPECT_EQ(result({"in.wav", "--set", "0=0.4"}).samples, expected.samples);
  writeText(in("moves"), "0 width 40%\n");
  EXPECT_EQ(result({"in.wav", "--automate", "moves"}).samples, expected.samples);
  const Sound mono = result({"in.wav", "--preset", "init"});
  for (std::size_t frame = 0; frame < mono.frames(); ++frame)
    ASSERT_EQ(mono.at(frame, 0), mono.at(frame, 1)) << "what is named is taken";
}

TEST_F(Widenings, BeginAsTheUsersOwnDefaultSays) {
  if (binarySuffix().empty()) GTEST_SKIP() << "preferences are in no file here";
  writeSound(in("in.wav"), noise(5000, 1, 4), kFloatWav);
  storeDefault(0.875F);
  const Outcome outcome = widen({"in.wav", "-o", "out.wav", "--format", "double"});
  EXPECT_THAT(outcome.out, HasSubstr("preset 0 \"mine\": width 87.5 %"));
  storeDefault(0.0F);
  EXPECT_THAT(widen({"in.wav", "-o", "out.wav", "-f"}).out, HasSubstr("\"mix 2\" (chosen"));
}

TEST_F(Widenings, SaveTheStateThatTheFileGot) {
  writeSound(in("in.wav"), noise(100, 1, 5), kFloatWav);
  result({"in.wav", "--save-state", "s"});
  EXPECT_THAT(widen({"--state", "s", "--list-presets"}).out, HasSubstr("*  2  mix 2"));
  EXPECT_THAT(widen({"--list-presets"}).out, HasSubstr("*  0  init"))
      << "an effect that is only asked begins as in a host";
}

TEST_F(Widenings, WarnWhenTheImageBecomesNarrower) {
  writeSound(in("in.wav"), noise(20000, 2, 6), kFloatWav);
  const Outcome outcome = widen({"in.wav", "-o", "out.wav", "--preset", "room 2"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
  EXPECT_THAT(outcome.error, HasSubstr("out.wav: is narrower than the input: side to mid -"));
  const double width = advisedWidth(outcome.error);
  ASSERT_GT(width, 50.0) << outcome.error;
  const auto narrows = [&](double tried) {
    return !widen(
                {"in.wav", "-o", "out.wav", "-f", "--preset", "room 2", "--width", percent(tried)})
                .error.empty();
  };
  EXPECT_FALSE(narrows(width)) << "the advice holds";
  EXPECT_TRUE(narrows(width * 0.98)) << "and is no more than it needs";
  EXPECT_THAT(widen({"in.wav", "-o", "out.wav", "-f", "--width", "0"}).error,
              HasSubstr("side to mid nothing (mono), before "));
}

TEST_F(Widenings, DoNotWarnWhereNothingIsLost) {
  writeSound(in("mono.wav"), noise(5000, 1, 7), kFloatWav);
  Sound both{44100, 2, {}};
  for (const double sample : noise(5000, 1, 7).samples) {
    both.samples.push_back(sample);
    both.samples.push_back(sample * 0.9);
  }
  writeSound(in("near.wav"), both, kFloatWav);
  writeSound(in("wide.wav"), noise(5000, 2, 7), kFloatWav);
  EXPECT_EQ(widen({"mono.wav", "-o", "a.wav", "--width", "0"}).error, "") << "mono has no width";
  EXPECT_EQ(widen({"near.wav", "-o", "b.wav", "--preset", "1"}).error, "");
  EXPECT_EQ(widen({"wide.wav", "-o", "c.wav", "--process", "off", "--gain", "-9dB"}).error, "");
  writeSound(in("none.wav"), Sound{44100, 2, std::vector<double>(2000)}, kFloatWav);
  EXPECT_EQ(widen({"none.wav", "-o", "d.wav"}).error, "");
}

TEST_F(Widenings, NameTheLargestWidthThatDoesNotClip) {
  Sound sound = noise(20000, 1, 8);
  for (double& sample : sound.samples) sample *= 0.875;
  writeSound(in("in.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const auto warningWith = [&](const std::vector<std::string>& more) {
    std::vector<std::string> all = {"in.wav", "-o", "out.wav", "-f"};
    all.insert(all.end(), more.begin(), more.end());
    return widen(all).error;
  };
  // With what clips, and what goes with the advised width.
  const std::vector<std::pair<std::vector<std::string>, std::vector<std::string>>> cases = {
      {{"--preset", "guitar 3"}, {"--preset", "guitar 3"}},
      {{"--base-freq", "500Hz", "--width", "90%"}, {"--base-freq", "500Hz"}},
      {{}, {"--preset", "mix 2"}}};
  for (const auto& [clips, kept] : cases) {
    const std::string warning = warningWith(clips);
    EXPECT_THAT(warning, HasSubstr("samples clipped"));
    EXPECT_EQ(warning.find("--preset \"mix 2\" --width ") != std::string::npos, clips.empty())
        << warning;
    const double width = advisedWidth(warning);
    ASSERT_GT(width, 0.0) << warning;
    std::vector<std::string> advised = kept;
    advised.insert(advised.end(), {"--width", percent(width)});
    EXPECT_EQ(warningWith(advised), "") << warning;
    advised.back() = percent(width + 0.2);
    EXPECT_THAT(warningWith(advised), HasSubstr("clipped")) << "it is the largest";
  }
}

// The effect makes its side out of the mid: of opposite channels nothing is left.
TEST_F(Widenings, SayThatASoundWithoutAMidIsLost) {
  Sound opposite{44100, 2, {}};
  for (const double sample : noise(1000, 1, 10).samples)
    opposite.samples.insert(opposite.samples.end(), {sample, -sample});
  writeSound(in("in.wav"), opposite, kFloatWav);
  EXPECT_EQ(
      widen({"in.wav", "-o", "out.wav"}).error,
      "widen: out.wav: is silent: left and right of the input are opposite, so that it has no "
      "mid\n");
}

// Floating-point sound in the scale of integers is 90 dB above full scale.
TEST_F(Widenings, AdviseNoGainThatIsRefused) {
  Sound loud = noise(1000, 2, 9);
  for (double& sample : loud.samples) sample *= 32768.0;
  writeSound(in("in.wav"), loud, kFloatWav);
  const std::vector<std::string> clips = {"in.wav",   "-o", "out.wav",  "-f",
                                          "--preset", "1",  "--format", "pcm16"};
  EXPECT_THAT(widen(clips).error, HasSubstr("; use --gain auto or --format float\n"));
  std::vector<std::string> advised = clips;
  advised.insert(advised.end(), {"--gain", "auto"});
  EXPECT_THAT(widen(advised).error, Not(HasSubstr("clipped")));
}

TEST_F(Widenings, NameNoWidthWhereNoneHelps) {
  writeText(in("moves"), "0 width 90%\n");
  writeSound(in("mid.wav"), Sound{44100, 1, std::vector<double>(1000, 0.75)},
             SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  // A mid of 0.25 and a side of 0.625, which come to full scale at 1.6 times that side.
  Sound wide{44100, 2, {}};
  for (int frame = 0; frame < 1000; ++frame)
    wide.samples.insert(wide.samples.end(), {0.875, -0.375});
  writeSound(in("wide.wav"), wide, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const std::vector<std::vector<std::string>> cases = {
      {"mid.wav", "--preset", "init"},
      {"wide.wav", "--preset", "1", "--process", "off"},
      {"wide.wav", "--preset", "1", "--automate", "moves"},
      {"wide.wav", "--plugin", plugin("echo")}};
  for (auto words : cases) {
    words.insert(words.end(), {"-o", "out.wav", "-f", "--gain", "6dB"});
    const std::string warning = widen(words).error;
    EXPECT_THAT(warning, HasSubstr("clipped")) << words[2];
    EXPECT_THAT(warning, Not(HasSubstr("--width"))) << words[2];
  }
}
