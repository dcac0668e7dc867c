// The command line, read and checked.
#include "host/options/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Arguments parsed(const std::vector<std::string>& words) {
  const ParsedArguments result = parseArguments(words);
  EXPECT_TRUE(result.arguments.has_value());
  return result.arguments.value_or(Arguments{});
}

std::string refusalOf(const std::vector<std::string>& words) {
  try {
    parseArguments(words);
  } catch (const UsageFailure& failure) {
    EXPECT_EQ(std::string(failure.what()).find('\n'), std::string::npos) << "one line";
    return failure.what();
  }
  return "accepted";
}

}  // namespace

TEST(Arguments, HaveUsualDefaults) {
  const Arguments arguments = parsed({"in.wav", "-o", "out.wav"});
  EXPECT_THAT(arguments.inputs, ElementsAre("in.wav"));
  EXPECT_EQ(arguments.output, "out.wav");
  EXPECT_FALSE(arguments.force);
  EXPECT_EQ(arguments.format, std::nullopt);
  EXPECT_EQ(arguments.gain, 1.0);
  EXPECT_FALSE(arguments.tail.automatic);
  EXPECT_EQ(arguments.tail.seconds, 0.0);
  EXPECT_EQ(arguments.blockSize, Arguments::kDefaultBlockSize);
  EXPECT_EQ(arguments.jobs, 1);
  EXPECT_EQ(arguments.precision, Precision::automatic);
  EXPECT_FALSE(arguments.quiet);
  EXPECT_EQ(arguments.state.preset, std::nullopt);
}

TEST(Arguments, TakeEveryOption) {
  const Arguments arguments = parsed(
      {"a.wav",   "b.wav",       "-o",       "out/",       "--force",      "--format",  "pcm24",
       "--gain",  "-3dB",        "--tail",   "1.5s",       "--plot",       "p/",        "-j",
       "4",       "-q",          "--preset", "mix 1",      "--bank",       "x.orb",     "--width",
       "75%",     "--base-freq", "265Hz",    "--emphasis", "0.3",          "--process", "on",
       "--phase", "off",         "--state",  "s",          "--save-state", "t",         "--plugin",
       "P.vst",   "--block",     "64",       "--double"});
  EXPECT_THAT(arguments.inputs, ElementsAre("a.wav", "b.wav"));
  EXPECT_TRUE(arguments.force);
  EXPECT_EQ(arguments.format, SampleFormat::pcm24);
  EXPECT_NEAR(arguments.gain, 0.70795, 1e-5);
  EXPECT_EQ(arguments.tail.seconds, 1.5);
  EXPECT_EQ(arguments.plot, "p/");
  EXPECT_EQ(arguments.jobs, 4);
  EXPECT_TRUE(arguments.quiet);
  EXPECT_EQ(arguments.state.preset, "mix 1");
  EXPECT_EQ(arguments.state.bank, "x.orb");
  EXPECT_THAT(arguments.state.values, ElementsAre(0.75F, 0.5F, 0.3F, 1.0F, 0.0F));
  EXPECT_EQ(arguments.state.state, "s");
  EXPECT_EQ(arguments.saveState, "t");
  EXPECT_EQ(arguments.plugin, "P.vst");
  EXPECT_EQ(arguments.blockSize, 64);
  EXPECT_EQ(arguments.precision, Precision::twice);
}

TEST(Arguments, TakeSettingsApartAndNoFileForASetting) {
  const Arguments arguments =
      parsed({"--set", "Gain=0.5", "in.wav", "--set", "1=a=b", "-o", "o.wav"});
  EXPECT_THAT(arguments.inputs, ElementsAre("in.wav"));
  ASSERT_EQ(arguments.state.settings.size(), 2U);
  EXPECT_EQ(arguments.state.settings[0].parameter, "Gain");
  EXPECT_EQ(arguments.state.settings[0].value, "0.5");
  EXPECT_EQ(arguments.state.settings[1].value, "a=b");
  for (const char* setting : {"Gain", "=0.5", "Gain="}) {
    EXPECT_THAT(refusalOf({"--set", setting, "a.wav", "-o", "b.wav"}), HasSubstr("NAME=VALUE"))
        << setting;
  }
}

TEST(Arguments, TellPresetAndBankFilesByTheirExtension) {
  const Arguments arguments = parsed({"--save-preset", "p.FXP", "--save-bank", "b.orb"});
  EXPECT_EQ(arguments.saved.preset, "p.FXP");
  EXPECT_EQ(arguments.saved.bank, "b.orb");
  EXPECT_EQ(parsed({"--save-preset", "p.orv"}).saved.preset, "p.orv");
  EXPECT_EQ(parsed({"--save-bank", "b.fxb"}).saved.bank, "b.fxb");
  EXPECT_THAT(refusalOf({"--save-preset", "p.fxb"}), HasSubstr("neither .orv nor .fxp"));
  EXPECT_THAT(refusalOf({"--save-bank", "b.orv"}), HasSubstr("neither .orb nor .fxb"));
  EXPECT_THAT(refusalOf({"--save-state", "s.fxp"}), HasSubstr("use --save-preset"));
  EXPECT_THAT(refusalOf({"--state", "s.fxb", "--info"}), HasSubstr("--bank"));
}

TEST(Arguments, TakeAnAutomaticTail) {
  EXPECT_TRUE(parsed({"a.wav", "-o", "b.wav", "--tail", "auto"}).tail.automatic);
}

// A script's own come first, those of who calls it after them.
TEST(Arguments, TakeTheLastOfRepeatedOptions) {
  const Arguments arguments =
      parsed({"a.wav",    "-o",        "b.wav",        "-o",     "c.wav", "--gain",  "-3",
              "--gain",   "-6",        "-j",           "4",      "-j",    "2",       "--width",
              "0.25",     "--width",   "75%",          "--tail", "auto",  "--tail",  "2s",
              "--format", "pcm16",     "--format",     "pcm24",  "-f",    "--force", "-q",
              "-q",       "--isolate", "--no-isolate", "--set",  "x=0",   "--set",   "y=1",
              "--preset", "1",         "--preset",     "2"});
  EXPECT_THAT(arguments.inputs, ElementsAre("a.wav"));
  EXPECT_EQ(arguments.output, "c.wav");
  EXPECT_NEAR(arguments.gain, 0.50119, 1e-5);
  EXPECT_EQ(arguments.jobs, 2);
  EXPECT_EQ(arguments.state.values[0], 0.75F);
  EXPECT_FALSE(arguments.tail.automatic);
  EXPECT_EQ(arguments.format, SampleFormat::pcm24);
  EXPECT_TRUE(arguments.force);
  EXPECT_EQ(arguments.isolate, false);
  EXPECT_EQ(parsed({"a", "-o", "b", "--no-isolate", "--isolate"}).isolate, true);
  EXPECT_EQ(arguments.state.preset, "2");
  EXPECT_EQ(arguments.state.settings.size(), 2U) << "they add up";
}

TEST(Arguments, TakeTheOptionsForManyFiles) {
  const Arguments usual = parsed({"a.wav", "-o", "b.wav"});
  EXPECT_EQ(usual.suffix, std::nullopt);
  EXPECT_EQ(usual.isolate, std::nullopt);
  EXPECT_FALSE(usual.skipExisting);
  EXPECT_FALSE(usual.dryRun);
  const Arguments all =
      parsed({"a.wav", "--suffix", "-wide", "--skip-existing", "--dry-run", "--isolate"});
  EXPECT_EQ(all.output, std::nullopt) << "they lie beside their inputs";
  EXPECT_EQ(all.suffix, "-wide");
  EXPECT_EQ(all.isolate, true);
  EXPECT_TRUE(all.skipExisting);
  EXPECT_TRUE(all.dryRun);
  EXPECT_THAT(refusalOf({"a.wav", "--suffix", ""}), HasSubstr("--suffix"));
  EXPECT_THAT(refusalOf({"a.wav", "--suffix", "x/y"}), HasSubstr("leave the / out"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--skip-existing", "-f"}),
              HasSubstr("leave one out"));
  EXPECT_THAT(refusalOf({"--save-state", "s", "--dry-run"}), HasSubstr("no sound file"));
}

TEST(Arguments, TakeFileNamesAfterTwoDashes) {
  EXPECT_THAT(parsed({"-o", "b.wav", "--", "-a.wav"}).inputs, ElementsAre("-a.wav"));
}

TEST(Arguments, RefuseWhatIsOutOfRange) {
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--width", "150%"}), HasSubstr("--width"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--base-freq", "5Hz"}), HasSubstr("--base-freq"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--emphasis", "-1%"}), HasSubstr("--emphasis"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--process", "perhaps"}), HasSubstr("--process"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--phase", "2"}), HasSubstr("--phase"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--block", "0"}), HasSubstr("--block"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--block", "9999999"}), HasSubstr("--block"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--block", "many"}), HasSubstr("--block"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "-j", "-2"}), HasSubstr("-2"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--gain", "90dB"}), HasSubstr("--gain"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--tail", "-1"}), HasSubstr("--tail"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--format", "mp3"}), HasSubstr("--format"));
}

TEST(Arguments, RefuseWhatIsIncomplete) {
  EXPECT_THAT(refusalOf({}), HasSubstr("no sound file"));
  EXPECT_THAT(refusalOf({"-o", "b.wav"}), HasSubstr("no sound file"));
  EXPECT_THAT(refusalOf({"a.wav"}), HasSubstr("-o OUT"));
  EXPECT_THAT(refusalOf({"a.wav", "-o"}), HasSubstr("--output"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", ""}), HasSubstr("--output"));
  EXPECT_THAT(refusalOf({"a.wav", "-o", "b.wav", "--louder"}), HasSubstr("--louder"));
}

TEST(Arguments, AskQuestionsWithoutFiles) {
  EXPECT_TRUE(parsed({"--info"}).info);
  EXPECT_TRUE(parsed({"--list-params", "--preset", "3"}).listParameters);
  EXPECT_TRUE(parsed({"--list-presets"}).listPresets);
  EXPECT_THAT(refusalOf({"--info", "a.wav"}), HasSubstr("take no sound files"));
  EXPECT_EQ(parsed({"--save-state", "s"}).saveState, "s") << "a state can be saved without a sound";
}

TEST(Arguments, TakeOneFileToPlayToTheWindow) {
  EXPECT_TRUE(parsed({"--editor"}).editor);
  EXPECT_THAT(parsed({"--editor", "a.wav", "--save-state", "s"}).inputs, ElementsAre("a.wav"));
  EXPECT_THAT(refusalOf({"--editor", "a.wav", "b.wav"}), HasSubstr("plays one sound file"));
  EXPECT_THAT(refusalOf({"--editor", "a.wav", "-o", "b.wav"}), HasSubstr("leave -o out"));
  EXPECT_THAT(refusalOf({"--editor", "-o", "b.wav"}), HasSubstr("leave -o out"));
}

TEST(Arguments, RefuseOptionsThatWouldBeIgnored) {
  const std::vector<std::vector<std::string>> forWriting = {
      {"--plot", "p.png"}, {"--tail", "2s"}, {"-j", "4"}, {"--format", "float"}};
  const std::vector<std::vector<std::string>> runs = {{"--editor"},       {"--editor", "a.wav"},
                                                      {"--info"},         {"--list-params"},
                                                      {"--list-presets"}, {"--save-state", "s"}};
  for (const auto& run : runs) {
    EXPECT_NO_THROW(parsed(run)) << run.front();
    for (const auto& option : forWriting) {
      auto words = run;
      words.insert(words.end(), option.begin(), option.end());
      EXPECT_THAT(refusalOf(words), HasSubstr("no sound is written here")) << option.front();
    }
  }
  EXPECT_EQ(parsed({"--editor", "a.wav", "--gain", "-6dB", "--block", "64", "--double", "-q", "-f",
                    "--preset", "3", "--save-state", "s"})
                .blockSize,
            64)
      << "these are not";
  for (const char* run : {"--editor", "--info"})
    EXPECT_THAT(refusalOf({run, "--gain", "-6dB"}), HasSubstr("--gain")) << run;
}

TEST(Arguments, ReturnHelpAndVersionAsTexts) {
  const ParsedArguments help = parseArguments({"--help"});
  EXPECT_FALSE(help.arguments);
  for (const char* option :
       {"--output",  "--preset", "--bank",   "--width",        "--base-freq",   "--emphasis",
        "--process", "--phase",  "--set",    "--state",        "--save-state",  "--block",
        "--double",  "--tail",   "--plugin", "--list-presets", "--list-params", "--info",
        "--plot",    "--jobs",   "--quiet",  "--version",      "--help",        "--force",
        "--gain",    "--format"}) {
    EXPECT_THAT(help.text, HasSubstr(option));
  }
  EXPECT_THAT(help.text, HasSubstr("0.5 is 265 Hz")) << "what a bare number means";
  EXPECT_EQ(parseArguments({"-h"}).text, help.text);
  EXPECT_THAT(parseArguments({"--version"}).text, HasSubstr("widen 1."));
}
