// Converts all files of a run, several at a time if asked.
#include "host/cli/batch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Batches : public ProgramTest {
 protected:
  std::vector<std::string> makeFiles(int count) const {
    std::vector<std::string> files;
    for (int i = 0; i < count; ++i) {
      files.push_back("file" + std::to_string(i) + ".wav");
      Sound sound = noise(3000U * static_cast<std::size_t>(count - i), 1 + i % 2,
                          static_cast<unsigned>(i + 1));
      sound.rate = i % 3 == 0 ? 44100 : 48000;
      writeSound(in(files.back()), sound, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    }
    return files;
  }

  Outcome convert(std::vector<std::string> words, const std::vector<std::string>& more) {
    words.insert(words.end(), more.begin(), more.end());
    return widen(words);
  }
};

}  // namespace

TEST_F(Batches, GiveTheSameFilesSeriallyAndInParallel) {
  const auto files = makeFiles(9);
  const Outcome serial = convert(files, {"-o", "serial", "--preset", "room 1", "--tail", "auto"});
  const Outcome parallel =
      convert(files, {"-o", "parallel", "--preset", "room 1", "--tail", "auto", "-j", "4"});
  EXPECT_EQ(serial.status, 0) << serial.error;
  EXPECT_EQ(parallel.status, 0) << parallel.error;
  for (const std::string& file : files) {
    EXPECT_EQ(textOf(in("serial") / file), textOf(in("parallel") / file)) << file;
    EXPECT_FALSE(textOf(in("serial") / file).empty());
  }
}

TEST_F(Batches, ReportInTheOrderOfTheInputs) {
  const auto files = makeFiles(8);
  const Outcome outcome = convert(files, {"-o", "out", "-j", "0"});
  std::size_t last = 0;
  for (const std::string& file : files) {
    const std::size_t at = outcome.out.find(file + ": ");
    ASSERT_NE(at, std::string::npos) << file;
    EXPECT_GE(at, last);
    last = at;
  }
}

TEST_F(Batches, GoOnAfterAFileThatFails) {
  auto files = makeFiles(3);
  writeText(in("bad.wav"), "no sound");
  files.insert(files.begin() + 1, "bad.wav");
  const Outcome outcome = convert(files, {"-o", "out", "-j", "2"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.error, HasSubstr("widen: bad.wav: not a sound file"));
  const std::string said = butForNarrowing(outcome);
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
  for (const char* file : {"file0.wav", "file1.wav", "file2.wav"}) {
    EXPECT_TRUE(std::filesystem::exists(in("out") / file)) << file;
  }
  EXPECT_FALSE(std::filesystem::exists(in("out") / "bad.wav"));
}

TEST_F(Batches, MakeTheFolderAndRemoveItAgainWhenNothingCameOfIt) {
  writeText(in("bad.wav"), "no sound");
  writeText(in("worse.wav"), "no sound either");
  EXPECT_EQ(widen({"bad.wav", "worse.wav", "-o", "out"}).status, 1);
  EXPECT_THAT(names(), ElementsAre("bad.wav", "worse.wav"));
  EXPECT_THAT(widen({"bad.wav", "worse.wav", "-o", "no/such/out"}).error,
              HasSubstr("cannot be made"));
}

TEST_F(Batches, DrawAPictureForEveryFile) {
  const auto files = makeFiles(2);
  EXPECT_EQ(convert(files, {"-o", "out", "--plot", "pictures", "-j", "2"}).status, 0);
  for (const char* name : {"file0.png", "file1.png"}) {
    EXPECT_TRUE(textOf(in("pictures") / name).starts_with("\x89PNG")) << name;
  }
}

TEST_F(Batches, SayOnceWhatIsWrongWithTheEffectsState) {
  const auto files = makeFiles(3);
  expectRefusal(convert(files, {"-o", "out", "--preset", "nonsense", "-j", "3"}), 1,
                "no preset \"nonsense\"");
  EXPECT_FALSE(std::filesystem::exists(in("out")));
}
