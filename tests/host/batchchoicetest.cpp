// Which files of a batch are converted, and what the results are called.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

class BatchChoices : public ProgramTest {
 protected:
  void put(const std::string& name, int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16) const {
    std::filesystem::create_directories(in(name).parent_path());
    writeSound(in(name), noise(2000, 1, 1), format);
  }
  bool isSound(const std::string& name) const {
    return std::filesystem::exists(in(name)) && readSound(in(name)).frames() == 2000;
  }
};

}  // namespace

TEST_F(BatchChoices, ConvertAFolderWithAllThatIsInIt) {
  put("takes/a.wav");
  put("takes/day 1/a.wav");
  put("takes/day 1/b.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  writeText(in("takes/notes.txt"), "loud");
  const Outcome outcome = widen({"takes", "-o", "out", "-j", "2", "--process", "off"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_EQ(outcome.error, "");
  for (const char* name : {"out/a.wav", "out/day 1/a.wav", "out/day 1/b.flac"})
    EXPECT_TRUE(isSound(name)) << name;
}

TEST_F(BatchChoices, RemoveFoldersThatNothingCameInto) {
  put("takes/a.wav");
  std::filesystem::create_directories(in("takes/deep/deeper"));
  writeText(in("takes/deep/deeper/bad.wav"), "no sound");
  EXPECT_EQ(widen({"takes", "-o", "out"}).status, 1);
  EXPECT_TRUE(isSound("out/a.wav"));
  EXPECT_FALSE(std::filesystem::exists(in("out/deep")));
}

TEST_F(BatchChoices, TellEqualStemsApart) {
  put("x/a.wav");
  put("y/a.wav");
  ASSERT_EQ(widen({"x/a.wav", "y/a.wav", "-o", "out", "--plot", "p"}).status, 0);
  for (const char* name : {"out/x/a.wav", "out/y/a.wav"}) EXPECT_TRUE(isSound(name)) << name;
  EXPECT_TRUE(std::filesystem::exists(in("p/y/a.png")));
}

TEST_F(BatchChoices, SkipWhatIsAlreadyThere) {
  put("a.wav");
  put("b.wav");
  std::filesystem::create_directory(in("out"));
  writeText(in("out/a.wav"), "precious");
  const Outcome outcome =
      widen({"a.wav", "b.wav", "-o", "out", "--skip-existing", "--process", "off"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_EQ(outcome.error, "");
  EXPECT_THAT(outcome.out, testing::StartsWith("a.wav: skipped, out/a.wav is already there\n"));
  EXPECT_EQ(textOf(in("out/a.wav")), "precious");
  EXPECT_TRUE(isSound("out/b.wav"));
  EXPECT_EQ(widen({"a.wav", "b.wav", "-o", "out", "--skip-existing", "-q"}).out, "");
}

TEST_F(BatchChoices, PutResultsBesideTheirInputsAgainAndAgain) {
  put("takes/a.wav");
  put("takes/deep/b.wav");
  for (int run = 0; run < 3; ++run) {
    const Outcome outcome = widen({"takes", "--suffix", "-wide", "--skip-existing"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
  }
  EXPECT_TRUE(isSound("takes/a-wide.wav"));
  EXPECT_TRUE(isSound("takes/deep/b-wide.wav"));
  EXPECT_FALSE(std::filesystem::exists(in("takes/a-wide-wide.wav")));
}

TEST_F(BatchChoices, GoOnAfterFilesAndFoldersThatCannotBeDone) {
  put("a.wav");
  put("b.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  put("z.wav");
  std::filesystem::create_directory(in("empty"));
  const Outcome outcome = widen({"a.wav", "missing.wav", "b.flac", "empty", "z.wav", "-o", "out",
                                 "--format", "float", "--process", "off"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, HasSubstr("missing.wav: no such file"));
  EXPECT_THAT(outcome.error, HasSubstr("out/b.flac: FLAC cannot hold float samples"));
  EXPECT_THAT(outcome.error, HasSubstr("empty: a folder without sound files"));
  EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 3);
  EXPECT_TRUE(isSound("out/a.wav"));
  EXPECT_TRUE(isSound("out/z.wav"));
}
