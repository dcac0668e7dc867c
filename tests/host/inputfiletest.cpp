// An input opened for reading: pipes of every kind, through the built program.
#include "host/sound/inputfile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class InputFiles : public ProgramTest {
 protected:
  Outcome widenStandardInput(const std::string& from, std::vector<std::string> words,
                             const std::string& folderForPipes = "",
                             const std::string& name = "/dev/stdin") {
    Surroundings fed;
    fed.standardInput = pipeFrom(in(from));
    if (!folderForPipes.empty()) fed.environment["TMPDIR"] = folderForPipes;
    words.insert(words.begin(), name);
    return widen(words, fed);
  }

  // A named pipe, and a process that puts the file's bytes into it when somebody reads.
  void makeFifo(const std::string& name, const std::string& from) const {
    ASSERT_EQ(mkfifo(in(name).c_str(), 0600), 0);
    const std::string bytes = textOf(in(from));
    if (fork() != 0) return;
    alarm(30);  // s
    const int end = open(in(name).c_str(), O_WRONLY);
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t count = write(end, bytes.data() + done, bytes.size() - done);
      if (count <= 0) _exit(1);
      done += static_cast<std::size_t>(count);
    }
    _exit(0);
  }
};

// Longer than a pipe holds (64 kB) in every type.
constexpr std::size_t kFrames = 200000;

}  // namespace

TEST_F(InputFiles, ReadStandardInputAsTheFileThatFeedsIt) {
  const std::pair<const char*, int> types[] = {{"a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
                                               {"a.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_24},
                                               {"a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
                                               {"a.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
                                               {"a.caf", SF_FORMAT_CAF | SF_FORMAT_FLOAT}};
  for (const auto& [name, format] : types) {
    writeSound(in(name), noise(kFrames, 2, 1), format);
    ASSERT_EQ(widen({name, "-o", "expected.wav", "-f", "--gain", "-12dB"}).status, 0) << name;
    const Outcome outcome = widenStandardInput(name, {"-o", "out.wav", "-f", "--gain", "-12dB"});
    EXPECT_EQ(outcome.status, 0) << name << outcome.error;
    EXPECT_EQ(butForNarrowing(outcome), "") << name;
    EXPECT_THAT(outcome.out, HasSubstr("/dev/stdin: stereo, 44100 Hz, 200000 frames")) << name;
    EXPECT_EQ(textOf(in("out.wav")), textOf(in("expected.wav"))) << name;
  }
}

TEST_F(InputFiles, ReadStandardInputUnderItsShortName) {
  writeSound(in("a.wav"), noise(kFrames, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  ASSERT_EQ(widen({"a.wav", "-o", "expected.wav", "--plot", "p.png"}).status, 0);
  const Outcome piped = widenStandardInput("a.wav", {"-o", "out.wav"}, "", "-");
  EXPECT_EQ(piped.status, 0) << piped.error;
  EXPECT_THAT(piped.out, HasSubstr("standard input: stereo, 44100 Hz, 200000 frames"));
  EXPECT_EQ(textOf(in("out.wav")), textOf(in("expected.wav")));
  Surroundings redirected;
  redirected.standardInput = open(in("a.wav").c_str(), O_RDONLY);
  ASSERT_EQ(widen({"-", "-o", "file.wav"}, redirected).status, 0) << "a file, not a pipe";
  close(redirected.standardInput);
  EXPECT_EQ(textOf(in("file.wav")), textOf(in("expected.wav")));
  std::filesystem::rename(in("a.wav"), in("-"));
  EXPECT_EQ(widen({"./-", "-o", "dash.wav"}).status, 0);
  EXPECT_EQ(textOf(in("dash.wav")), textOf(in("expected.wav")));
}

TEST_F(InputFiles, RefuseStandardInputsThatBringNothing) {
  writeText(in("empty"), "");
  expectRefusal(widenStandardInput("empty", {"-o", "out.wav"}, "", "-"), 1,
                "standard input: is empty");
  Surroundings terminal;
  terminal.standardInput = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal.standardInput < 0) GTEST_SKIP() << "needs a terminal";
  expectRefusal(widen({"-", "-o", "out.wav"}, terminal), 1, "the standard input is a terminal");
  close(terminal.standardInput);
  EXPECT_THAT(names(), ElementsAre("empty"));
}

TEST_F(InputFiles, ReadNamedPipesAmongFiles) {
  writeSound(in("a.wav"), noise(kFrames, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  writeSound(in("b.flac"), noise(kFrames, 1, 2), SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  makeFifo("first", "a.wav");
  makeFifo("second", "b.flac");
  ASSERT_EQ(widen({"a.wav", "b.flac", "-o", "expected", "--process", "off"}).status, 0);
  const Outcome outcome =
      widen({"first", "a.wav", "second", "-o", "out", "--plot", "pictures", "--process", "off"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(textOf(in("out/first.wav")), textOf(in("expected/a.wav")));
  EXPECT_EQ(textOf(in("out/a.wav")), textOf(in("expected/a.wav")));
  EXPECT_EQ(readIntegers(in("out/second.wav")), readIntegers(in("expected/b.flac")));
  while (wait(nullptr) > 0) continue;
}

// The size that a writer into a pipe leaves in the header.
TEST_F(InputFiles, ReadAStreamOfUnknownLength) {
  writeSound(in("a.wav"), noise(kFrames, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  ASSERT_EQ(widen({"a.wav", "-o", "expected.wav", "--process", "off"}).status, 0);
  std::string bytes = textOf(in("a.wav"));
  bytes.replace(4, 4, "\xFF\xFF\xFF\xFF");
  bytes.replace(40, 4, "\xFF\xFF\xFF\xFF");
  writeText(in("open.wav"), bytes);
  EXPECT_EQ(widenStandardInput("open.wav", {"-o", "out.wav", "--process", "off"}).error, "");
  EXPECT_EQ(textOf(in("out.wav")), textOf(in("expected.wav")));
}

TEST_F(InputFiles, RefusePipesThatBringNoWholeSound) {
  writeSound(in("a.wav"), noise(1000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  writeText(in("cut.wav"), textOf(in("a.wav")).substr(0, 2444));
  writeText(in("empty"), "");
  writeText(in("text"), "Dear diary,\n");
  const auto before = names();
  expectRefusal(widenStandardInput("cut.wav", {"-o", "out.wav"}), 1,
                "/dev/stdin: is cut short: its header names 4000 bytes of sound, 2400 are there");
  expectRefusal(widenStandardInput("empty", {"-o", "out.wav"}), 1, "/dev/stdin: is empty");
  expectRefusal(widenStandardInput("text", {"-o", "out.wav"}), 1, "/dev/stdin: not a sound file");
  expectRefusal(widenStandardInput("a.wav", {"-o", "out.wav"}, in("missing").string()), 1,
                "/dev/stdin: cannot be kept while it is read (");
  EXPECT_EQ(names(), before);
}

TEST_F(InputFiles, KeepNoMemoryAndNoFileOfWhatAPipeBrings) {
  writeSound(in("short.wav"), noise(1000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const Outcome brief = widenStandardInput("short.wav", {"-o", "a.wav"});
  // Written and fed in pieces: the memory of this process counts, for the program starts as its
  // copy. 20 MB.
  SF_INFO info{0, 44100, 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
  SNDFILE* file = sf_open(in("long.wav").c_str(), SFM_WRITE, &info);
  ASSERT_NE(file, nullptr);
  const std::vector<short> piece(100000);
  for (int i = 0; i < 100; ++i)
    sf_write_short(file, piece.data(), static_cast<sf_count_t>(piece.size()));
  sf_close(file);
  std::filesystem::create_directory(in("kept"));
  Surroundings fed{{{"TMPDIR", in("kept").string()}}};
  ASSERT_EQ(mkfifo(in("fifo").c_str(), 0600), 0);
  const std::string command =
      "cat '" + in("long.wav").string() + "' > '" + in("fifo").string() + "' &";
  ASSERT_EQ(std::system(command.c_str()), 0);
  const Outcome lengthy = widen({"fifo", "-o", "b.wav"}, fed);
  ASSERT_EQ(lengthy.status, 0) << lengthy.error;
  EXPECT_EQ(std::filesystem::file_size(in("b.wav")), 44U + 20000000U);
  EXPECT_LT(lengthy.mostMemory - brief.mostMemory, 8 * 1024) << "kB";
  EXPECT_TRUE(std::filesystem::is_empty(in("kept")));
}
