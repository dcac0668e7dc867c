// The program as a whole: every kind of bad input gets one clear line, an exit status, and leaves
// no file behind.
#include "host/cli/widen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

class Program : public ProgramTest {
 protected:
  Program() { writeSound(in("in.wav"), noise(5000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16); }

  // Refused, and the folder is as it was.
  void refuses(const std::vector<std::string>& words, int status, const std::string& text,
               const Surroundings& surroundings = {}) {
    const auto before = names();
    expectRefusal(widen(words, surroundings), status, text);
    EXPECT_EQ(names(), before) << text;
  }
};

}  // namespace

TEST_F(Program, RefusesInputsThatAreNoSound) {
  refuses({"missing.wav", "-o", "out.wav"}, 1, "missing.wav: no such file");
  writeText(in("text.wav"), "Dear diary,\n");
  refuses({"text.wav", "-o", "out.wav"}, 1, "text.wav: not a sound file");
  writeText(in("empty.wav"), "");
  refuses({"empty.wav", "-o", "out.wav"}, 1, "empty.wav: is empty");
  writeSound(in("none.wav"), Sound{44100, 2, {}}, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  refuses({"none.wav", "-o", "out.wav"}, 1, "none.wav: holds no sound (0 frames)");
  writeSound(in("surround.wav"), noise(10, 6, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  refuses({"surround.wav", "-o", "out.wav"}, 1, "surround.wav: has 6 channels");
  std::filesystem::create_directory(in("folder"));
  refuses({"folder", "-o", "out"}, 1, "folder: a folder without sound files");
  refuses({"folder", "-o", "out.wav"}, 2, "out.wav: several files go into a folder");
}

TEST_F(Program, RefusesInputsThatHoldNoNumbers) {
  Sound sound = noise(5000, 2, 1);
  // The left channel 0.1 s in.
  sound.samples[8820] = std::nan("");
  writeSound(in("nan.wav"), sound, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
  refuses({"nan.wav", "-o", "out.wav"}, 1,
          "nan.wav: holds a value that is not a number at 0:00.100");
}

TEST_F(Program, RefusesInputsThatWereCut) {
  const std::pair<const char*, int> types[] = {{"cut.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
                                               {"cut.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_24},
                                               {"cut.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
                                               {"cut.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS}};
  for (const auto& [name, format] : types) {
    writeSound(in(name), noise(100000, 2, 1), format);
    std::filesystem::resize_file(in(name), std::filesystem::file_size(in(name)) * 2 / 3);
    refuses({name, "-o", "out.wav", "--plot", "p.png"}, 1, name);
    refuses({name, "-o", "out.flac", "--tail", "auto"}, 1, name);
  }
}

// Wherever the bit is: the result is whole and the same, or there is none.
TEST_F(Program, NeverTakesADamagedFlacForAShorterOne) {
  constexpr std::size_t kFiles = 80;
  const Sound sound = noise(60000, 2, 3);
  writeSound(in("whole.flac"), sound, SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  const std::string whole = textOf(in("whole.flac"));
  const auto before = names();
  std::size_t refused = 0;
  for (std::size_t file = 0; file < kFiles; ++file) {
    std::string damaged = whole;
    damaged[file * whole.size() / kFiles] ^= static_cast<char>(1 << file % 8);
    writeText(in("whole.flac"), damaged);
    const Outcome outcome = widen({"whole.flac", "-o", "out.wav", "--process", "off"});
    if (outcome.status == 0) {
      EXPECT_EQ(outcome.error, "") << file;
      EXPECT_EQ(readSound(in("out.wav")).samples, sound.samples) << file;
      std::filesystem::remove(in("out.wav"));
      continue;
    }
    expectRefusal(outcome, 1, "whole.flac: ");
    EXPECT_EQ(names(), before) << file;
    ++refused;
  }
  EXPECT_GT(refused, 70U) << "all but what is in no frame";
}

TEST_F(Program, RefusesTargetsThatCannotBeWritten) {
  refuses({"in.wav", "-o", "no/such/folder/out.wav"}, 1,
          "no/such/folder/out.wav: cannot be written");
  refuses({"in.wav", "-o", "in.wav/out.wav"}, 1, "in.wav/out.wav: cannot be written");
  std::filesystem::create_directory(in("out.wav"));
  refuses({"in.wav", "-o", "out.wav", "--plot", "no/p.png"}, 1, "no/p.png: cannot be written");
  EXPECT_TRUE(std::filesystem::is_empty(in("out.wav")))
      << "the sound is not kept without its picture";
  refuses({"in.wav", "-o", "out.au"}, 2, "out.au: unknown kind of output");
  refuses({"in.wav", "-o", "out.flac", "--format", "double"}, 2, "FLAC cannot hold double samples");
}

TEST_F(Program, RefusesAFolderWithoutTheRightToWrite) {
  if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
  std::filesystem::create_directory(in("closed"));
  chmod(in("closed").c_str(), 0500);
  refuses({"in.wav", "-o", "closed/out.wav"}, 1,
          "closed/out.wav: cannot be written (Permission denied)");
}

TEST_F(Program, SaysWhenTheDiskIsFull) {
  writeSound(in("long.wav"), noise(200000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  for (const char* output : {"out.wav", "out.flac", "out.aiff"}) {
    refuses({"long.wav", "-o", output, "--preset", "3"}, 1,
            std::string(output) + ": cannot be written", {{}, 100000});
  }
}

// Short files are written in the end only, or by what an encoder still holds then.
TEST_F(Program, SaysWhenTheDiskIsFullAtTheVeryEnd) {
  for (const std::string output : {"out.wav", "out.flac", "out.aiff"}) {
    ASSERT_EQ(widen({"in.wav", "-o", output, "--preset", "3"}).status, 0);
    const auto size = static_cast<long>(std::filesystem::file_size(in(output)));
    const std::string whole = textOf(in(output));
    std::filesystem::remove(in(output));
    // Not so few bytes that the error stream's file could not take the line.
    for (const long limit : {200L, 1000L, size / 2, size - 1}) {
      refuses({"in.wav", "-o", output, "--preset", "3"}, 1,
              output + ": cannot be written (File too large)", {{}, limit});
    }
    EXPECT_EQ(widen({"in.wav", "-o", output, "--preset", "3"}, {{}, size}).status, 0)
        << "it just fits";
    EXPECT_EQ(textOf(in(output)), whole);
    std::filesystem::remove(in(output));
  }
}

TEST_F(Program, SaysWhenTheDiskIsFullForThePictureAndTheState) {
  // 444 bytes when widened
  writeSound(in("short.wav"), noise(100, 1, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  refuses({"short.wav", "-o", "out.wav", "--plot", "p.png"}, 1,
          "p.png: cannot be written (File too large)", {{}, 5000});
  refuses({"--save-state", "s"}, 1, "s: cannot be written (File too large)", {{}, 1000});
  refuses({"short.wav", "-o", "out.wav", "--save-state", "s"}, 1,
          "s: cannot be written (File too large)", {{}, 1000});
}

TEST_F(Program, SaysWhenItsOutputGoesNowhere) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "needs the device that is always full";
  Surroundings full;
  full.standardOutput = "/dev/full";
  const std::string text = "the standard output cannot be written (No space left on device)";
  for (const char* question :
       {"--list-presets", "--list-params", "--info", "--help", "--version"}) {
    refuses({question}, 1, text, full);
  }
  expectRefusal(widen({"in.wav", "-o", "out.wav", "--process", "off"}, full), 1, text);
  EXPECT_EQ(readSound(in("out.wav")).frames(), 5000U)
      << "the sound is there, only the report was lost";
  expectRefusal(widen({"in.wav", "in.wav", "missing.wav", "-o", "x"}, full), 2, "for both");
  EXPECT_EQ(widen({"in.wav", "-o", "quiet.wav", "-q", "--process", "off"}, full).error, "")
      << "where nothing is said, nothing is lost";
  Surroundings closed;
  closed.standardOutput = "closed";
  refuses({"--list-presets"}, 1, "the standard output cannot be written", closed);
  expectRefusal(widen({"in.wav", "-o", "closed.wav", "--process", "off"}, closed), 1,
                "the standard output cannot be written");
  EXPECT_EQ(textOf(in("closed.wav")), textOf(in("quiet.wav")))
      << "the report did not get into the file";
}

TEST_F(Program, RefusesToDestroyItsInput) {
  refuses({"in.wav", "-o", "in.wav", "--force"}, 2, "in.wav: is an input");
  refuses({"in.wav", "-o", "./in.wav", "--force"}, 2, "./in.wav: is an input");
  refuses({"in.wav", "-o", ".", "--force"}, 2, "is an input");
}

TEST_F(Program, RefusesAnInputThatIsNamedInTwoWays) {
  refuses({"in.wav", "./in.wav", "--suffix", "-wide", "-f"}, 2, "would be written for both");
}

TEST_F(Program, RefusesToWriteAStateOverASoundOrAnother) {
  const std::string before = textOf(in("in.wav"));
  refuses({"in.wav", "-o", "out.wav", "--save-state", "in.wav", "-f"}, 2, "in.wav: is an input");
  refuses({"in.wav", "-o", "-", "--save-state", "in.wav", "-f"}, 2, "in.wav: is an input");
  refuses({"in.wav", "--editor", "--save-state", "./in.wav", "-f"}, 2, "in.wav: is an input");
  EXPECT_EQ(textOf(in("in.wav")), before);
  refuses({"in.wav", "-o", "out.wav", "--save-state", "out.wav", "-f"}, 2,
          "out.wav: would be written for both in.wav and --save-state");
  refuses({"--save-state", "all.orb", "--save-bank", "./all.orb", "-f"}, 2,
          "./all.orb: would be written for both --save-state and --save-bank");
}

TEST_F(Program, ReplacesAnOutputOnlyByForce) {
  writeText(in("out.wav"), "precious");
  refuses({"in.wav", "-o", "out.wav"}, 1, "out.wav: is already there (--force replaces it)");
  EXPECT_EQ(textOf(in("out.wav")), "precious");
  EXPECT_EQ(widen({"in.wav", "-o", "out.wav", "--force"}).status, 0);
  EXPECT_EQ(readSound(in("out.wav")).frames(), 5000U);
  refuses({"in.wav", "-o", "new.wav", "--plot", "out.png", "--save-state", "out.wav"}, 1,
          "out.wav: is already there");
}

TEST_F(Program, RefusesUnknownPresetsAndValuesOutOfRange) {
  refuses({"in.wav", "-o", "out.wav", "--preset", "guitar three"}, 1,
          "no preset \"guitar three\" (did you mean");
  refuses({"in.wav", "-o", "out.wav", "--preset", "32"}, 1,
          "no preset 32; they are numbered 0 to 31");
  refuses({"in.wav", "-o", "out.wav", "--preset", "missing.orv"}, 1, "missing.orv: no such file");
  refuses({"in.wav", "-o", "out.wav", "--bank", "in.wav"}, 1, "in.wav: not a file of this plug-in");
  refuses({"in.wav", "-o", "out.wav", "--state", "in.wav"}, 1, "in.wav: no Trelvan state");
  refuses({"in.wav", "-o", "out.wav", "--width", "175%"}, 2, "--width: \"175%\"");
  refuses({"in.wav", "-o", "out.wav", "--base-freq", "5kHz"}, 2, "--base-freq: \"5kHz\"");
  refuses({"in.wav", "-o", "out.wav", "--emphasis", "-0.5"}, 2, "--emphasis: \"-0.5\"");
  refuses({"in.wav", "-o", "out.wav", "--set", "width=2"}, 2, "--set width");
  refuses({"in.wav", "-o", "out.wav", "--set", "depth=0.5"}, 1, "no parameter \"depth\"");
  refuses({"in.wav", "-o", "out.wav", "--block", "0"}, 2, "--block");
}

TEST_F(Program, RefusesWrongUsage) {
  refuses({}, 2, "no sound file named");
  refuses({"in.wav"}, 2, "no output named");
  refuses({"in.wav", "-o", "out.wav", "--sideways"}, 2, "--sideways");
  refuses({"in.wav", "in.wav", "-o", "out"}, 2, "for both");
}

TEST_F(Program, RefusesPluginsThatAnswerNonsense) {
  const std::pair<const char*, const char*> cases[] = {
      {"nulleffect", "no effect was made"},
      {"wrongmagic", "not a VST effect"},
      {"noentry", "exports neither VSTPluginMain nor main"},
      {"borrowedmain", "exports neither VSTPluginMain nor main"},
      {"absurdchannels", "1000000 outputs"},
      {"negativecounts", "-3 parameters"},
      {"negativelatency", "-64 frames of latency"},
      {"noreplacing", "no processReplacing"},
      {"nooutput", "gives no sound out"},
      {"noinput", "takes no sound in"},
      {"oneinput", "takes mono only"},
      {"nanoutput", "put out a value that is not a number at 0:00.023"},
  };
  for (const auto& [name, text] : cases) {
    refuses({"in.wav", "-o", "out.wav", "--plugin", plugin(name)}, 1, text);
  }
  refuses({"in.wav", "-o", "out.wav", "--plugin", "missing.vst"}, 1,
          "missing.vst: no such plug-in");
  refuses({"in.wav", "-o", "out.wav", "--plugin", "in.wav"}, 1, "in.wav: cannot be loaded");
  refuses({"in.wav", "-o", "out.wav", "--plugin", plugin("latency"), "--double"}, 1,
          "double precision");
  refuses({"in.wav", "-o", "out.wav", "--plugin", plugin("badchunk"), "--save-state", "s"}, 1,
          "-7 bytes", {{{"WIDEN_TEST_CHUNK", "negative"}}, 0});
}

TEST_F(Program, WidensMonoWithAnEffectThatTakesMonoOnly) {
  writeSound(in("mono.wav"), noise(100, 1, 2), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
  EXPECT_EQ(widen({"mono.wav", "-o", "out.wav", "--plugin", plugin("oneinput")}).status, 0);
  const Sound out = readSound(in("out.wav"));
  EXPECT_EQ(out.at(50, 1), readSound(in("mono.wav")).at(50, 0));
}

TEST_F(Program, RunsOtherEffects) {
  EXPECT_EQ(
      widen({"in.wav", "-o", "out.wav", "--plugin", plugin("programs"), "--preset", "Half"}).status,
      0);
  const Sound in16 = readSound(in("in.wav"));
  const Sound out = readSound(in("out.wav"));
  for (std::size_t i = 0; i < 1000; ++i)
    ASSERT_NEAR(out.samples[i], in16.samples[i] / 2, 0.5 / 32768) << i;
}

TEST_F(Program, SavesPresetsAndBanks) {
  EXPECT_EQ(widen({"--width", "30%", "--save-preset", "p.fxp", "--save-bank", "b.orb"}).status, 0);
  EXPECT_THAT(widen({"--preset", "p.fxp", "--list-params"}).out, HasSubstr("0.300000"));
  EXPECT_THAT(widen({"--bank", "b.orb", "--list-params"}).out, HasSubstr("0.300000"));
  refuses({"in.wav", "-o", "out.wav", "--save-preset", "new.fxp", "--save-bank", "b.orb"}, 1,
          "b.orb: is already there");
  EXPECT_EQ(widen({"--save-bank", "b.orb", "--force"}).status, 0);
}

TEST_F(Program, FindsThePluginBesideItself) {
  EXPECT_THAT(widen({"--info"}).out, HasSubstr("Orv Trelvan"));
  EXPECT_EQ(widen({"--info"}).out, widen({"--info", "--plugin", WIDEN_TRELVAN}).out);
}

TEST_F(Program, AnswersQuestions) {
  EXPECT_THAT(widen({"--list-presets"}).out, HasSubstr("  14  guitar 3\n"));
  EXPECT_THAT(widen({"--list-params", "--width", "30%"}).out, HasSubstr("0.300000  30.0 %"));
  EXPECT_EQ(widen({"--help"}).status, 0);
  EXPECT_THAT(widen({"-h"}).out, HasSubstr("Usage: widen"));
  EXPECT_THAT(widen({"--version"}).out, HasSubstr("widen "));
  EXPECT_EQ(widen({"--version"}).status, 0);
}

TEST_F(Program, TakesFilesFromElsewhereByTheirPath) {
  std::filesystem::create_directories(in("deep/er"));
  std::filesystem::rename(in("in.wav"), in("deep/er/in.wav"));
  EXPECT_EQ(widen({"deep/er/in.wav", "-o", "deep/"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(in("deep/in.wav")));
}
