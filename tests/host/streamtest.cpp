// Sound from the standard input to the standard output, through the built program.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <stdlib.h>
#include <unistd.h>

#include "host/sound/streamheader.h"
#include "tests/host/chunkfiles.h"
#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kFrames = 100000;

class Streams : public ProgramTest {
 protected:
  Streams() { writeSound(in("in.wav"), noise(kFrames, 2, 1), kWav16); }

  static constexpr int kWav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

  Outcome through(const std::string& bytes, std::vector<std::string> words) {
    writeText(root / "bytes", bytes);
    Surroundings fed;
    fed.standardInput = pipeFrom(root / "bytes");
    words.insert(words.begin(), {"-", "-o", "-"});
    return widen(words, fed);
  }

  // What a file gets of the same.
  std::string written(std::vector<std::string> words) {
    words.insert(words.begin(), {"in.wav", "-o", "file.wav", "-f"});
    EXPECT_EQ(widen(words).status, 0);
    return textOf(in("file.wav"));
  }

  static std::string withOpenSizes(std::string wav, const std::string& size) {
    return wav.replace(4, 4, size).replace(40, 4, size);
  }
};

}  // namespace

TEST_F(Streams, AreTheSameBytesAsTheFile) {
  for (const char* format : {"pcm16", "pcm24", "pcm32"}) {
    const std::string expected = written({"--preset", "3", "--format", format});
    const Outcome outcome = through(textOf(in("in.wav")), {"--preset", "3", "--format", format});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_TRUE(outcome.out == expected) << format;
    EXPECT_THAT(outcome.error, HasSubstr("standard input: stereo, 44100 Hz, 100000 frames"));
    EXPECT_THAT(outcome.error, HasSubstr("-> standard output: "));
  }
  for (const char* format : {"float", "double"}) {
    written({"--preset", "3", "--format", format, "--tail", "100ms"});
    writeText(in("out.wav"), through(textOf(in("in.wav")),
                                     {"--preset", "3", "--format", format, "--tail", "100ms"})
                                 .out);
    EXPECT_EQ(libFormatOf(in("out.wav")), libFormatOf(in("file.wav"))) << format;
    EXPECT_EQ(readSound(in("out.wav")).samples, readSound(in("file.wav")).samples) << format;
  }
}

TEST_F(Streams, SayNothingIfTheyAreToBeQuiet) {
  EXPECT_EQ(through(textOf(in("in.wav")), {"--process", "off", "-q"}).error, "");
}

// 2^31 and 2^32 less a header, as different programs leave it; and none.
TEST_F(Streams, TakeAWavOfUnknownLengthAndLeaveTheirsOpen) {
  const std::string expected = written({"--preset", "3"});
  for (const std::string size : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F", "\x24\xF0\xFF\x7F"}) {
    const Outcome outcome = through(withOpenSizes(textOf(in("in.wav")), size), {"--preset", "3"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(outcome.out.substr(40, 4), "\xFF\xFF\xFF\xFF");
    EXPECT_TRUE(outcome.out.substr(44) == expected.substr(44));
  }
  const Outcome again = through(
      through(withOpenSizes(textOf(in("in.wav")), "\xFF\xFF\xFF\xFF"), {"--process", "off", "-q"})
          .out,
      {"--process", "off", "-q"});
  EXPECT_EQ(again.error, "") << "it reads what it writes";
  EXPECT_TRUE(again.out.substr(44) == textOf(in("in.wav")).substr(44));
  const Outcome tail = through(textOf(in("in.wav")), {"--preset", "3", "--tail", "auto"});
  EXPECT_EQ(tail.out.substr(40, 4), "\xFF\xFF\xFF\xFF") << "nobody knows how long it is";
}

TEST_F(Streams, MayBeSamplesAlone) {
  const std::string expected = written({"--preset", "3"});
  const Outcome outcome = through(textOf(in("in.wav")), {"--preset", "3", "--raw"});
  EXPECT_TRUE(outcome.out == expected.substr(44));
  EXPECT_THAT(outcome.error, HasSubstr("16-bit raw"));
}

TEST_F(Streams, TakeTypesThatAreReadWithStepsBackAndTwoPasses) {
  writeSound(in("in.flac"), noise(kFrames, 2, 1), SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  EXPECT_TRUE(through(textOf(in("in.flac")), {"--preset", "3"}).out == written({"--preset", "3"}));
  const std::vector<std::string> twice = {"--preset", "3", "--normalize", "-1dB"};
  EXPECT_TRUE(through(textOf(in("in.wav")), twice).out == written(twice));
}

// Who listens hears it at once.
TEST_F(Streams, GoOnWhileTheInputComes) {
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe(ends), 0);
  fcntl(ends[1], F_SETFD, FD_CLOEXEC);
  const std::string all = withOpenSizes(textOf(in("in.wav")), "\xFF\xFF\xFF\xFF");
  constexpr std::size_t kFirst = 44 + 4 * 8192;  // bytes
  Surroundings fed;
  fed.standardInput = ends[0];
  const int process = startProgram(folder, {"-", "-o", "-", "--preset", "3"}, fed);
  close(ends[0]);
  ASSERT_EQ(write(ends[1], all.data(), kFirst), static_cast<ssize_t>(kFirst));
  const auto sizeNow = [this] {
    std::error_code error;
    const auto size = std::filesystem::file_size(root / "out", error);
    return error ? 0 : size;
  };
  for (int i = 0; i < 1000 && sizeNow() < kFirst - 4 * 1024; ++i) usleep(10000);
  EXPECT_GE(sizeNow(), kFirst - 4 * 1024) << "but for a block";
  std::size_t done = kFirst;
  while (done < all.size()) {
    const ssize_t count = write(ends[1], all.data() + done, all.size() - done);
    ASSERT_GT(count, 0);
    done += static_cast<std::size_t>(count);
  }
  close(ends[1]);
  const Outcome outcome = waitForProgram(process, folder);
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_TRUE(outcome.out.substr(44) == written({"--preset", "3"}).substr(44));
}

TEST_F(Streams, HoldNothingThatAnEffectPrints) {
  const Outcome outcome =
      through(textOf(in("in.wav")), {"--plugin", plugin("prints"), "--block", "50000"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_TRUE(outcome.out == textOf(in("in.wav")));
  EXPECT_THAT(outcome.error, HasSubstr("50000 frames\n"));
}

TEST_F(Streams, SayWhenTheInputWasCut) {
  const Outcome cut = through(textOf(in("in.wav")).substr(0, 44 + 4 * 600), {"--preset", "3"});
  EXPECT_EQ(cut.status, 1);
  EXPECT_EQ(cut.error,
            "widen: standard input: is cut short: its header names 400000 bytes of sound, 2400 are "
            "there\n");
  const Outcome kept = through(textOf(in("in.wav")).substr(0, 44 + 4 * 600),
                               {"--process", "off", "--salvage", "-q"});
  EXPECT_EQ(kept.status, 0);
  EXPECT_THAT(kept.error, HasSubstr("; kept 600 frames"));
  EXPECT_TRUE(kept.out.substr(44) == textOf(in("in.wav")).substr(44, 2400));
}

// What a writer leaves that failed after its header.
TEST_F(Streams, RefuseAnInputWithoutSoundAsAFileIs) {
  const std::string header = textOf(in("in.wav")).substr(0, 44);
  const std::string open = withOpenSizes(header, "\xFF\xFF\xFF\xFF");
  for (const auto& [bytes, option] :
       {std::pair(open, "-q"), std::pair(open, "--salvage"), std::pair(header, "--salvage")}) {
    const Outcome outcome = through(bytes, {"--preset", "3", option});
    expectRefusal(outcome, 1, "standard input: holds no sound (0 frames)");
    EXPECT_EQ(outcome.out, "");
  }
}

// Into a file and into what is none; which program made the input is no loss.
TEST_F(Streams, NameWhatDoesNotGoWithTheSound) {
  const std::string made = "INFOISFT" + little(4, 4) + "Some";
  const std::string titled = made + "INAM" + little(4, 4) + "Lied";
  for (const auto& [list, lost] :
       {std::pair(titled, "widen: standard output: a stream cannot keep title, chunk iXML\n"),
        std::pair(made, "widen: standard output: a stream cannot keep chunk iXML\n")}) {
    writeText(in("told.wav"), wavWith({{"LIST", list}}, {{"iXML", "<a/>"}}));
    const std::vector<std::string> words = {"told.wav", "-o", "-", "--process", "off", "-q"};
    EXPECT_EQ(widen(words).error, lost);
    Surroundings nowhere;
    nowhere.standardOutput = "/dev/null";
    EXPECT_EQ(widen(words, nowhere).error, lost);
  }
}

TEST_F(Streams, RefuseWhatDoesNotGoWithThem) {
  writeSound(in("b.wav"), noise(10, 2, 1), kWav16);
  const auto before = names();
  const auto refuses = [&](const std::vector<std::string>& words, const std::string& text) {
    expectRefusal(widen(words), 2, text);
  };
  refuses({"in.wav", "b.wav", "-o", "-"}, "takes one sound");
  refuses({".", "-o", "-"}, "takes one sound");
  refuses({"-", "in.wav", "-o", "x/"}, "goes without other inputs");
  refuses({"-", "-o", "."}, "has no name");
  refuses({"-", "-o", "x/"}, "has no name");
  refuses({"-", "--suffix", "x"}, "has no name");
  refuses({"in.wav", "-o", "-", "--suffix", "x"}, "leave --suffix out");
  refuses({"in.wav", "-o", "-", "--json"}, "--json and -o - both want the standard output");
  refuses({"in.wav", "-o", "-", "--plot", "p.txt"}, "name it .png");
  refuses({"in.wav", "-o", "out.wav", "--raw"}, "add -o -");
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0) {
    Surroundings shown;
    shown.standardOutput = ptsname(terminal);
    expectRefusal(widen({"in.wav", "-o", "-"}, shown), 2, "the standard output is a terminal");
  }
  close(terminal);
  EXPECT_EQ(names(), before);
}

TEST_F(Streams, SayWhenNobodyTakesTheSound) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "needs the device that is always full";
  Surroundings full;
  full.standardOutput = "/dev/full";
  expectRefusal(widen({"in.wav", "-o", "-", "--preset", "3", "-q"}, full), 1,
                "standard output: cannot be written (No space left on device)");
}

// Header sizes by hand: 4 + (8 + 16) + 8 in front of 16-bit samples, 12 more with floating point.
TEST(StreamHeaders, NameTheSizesWhereTheyAreKnownAndFit) {
  const auto at = [](const std::string& header, std::size_t place) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i > 0; --i)
      value = value << 8 | static_cast<unsigned char>(header[place + i - 1]);
    return value;
  };
  const std::string known = wavStreamHeader(SampleFormat::pcm16, 44100, 10);
  ASSERT_EQ(known.size(), 44U);
  EXPECT_EQ(at(known, 4), 36U + 40U);
  EXPECT_EQ(at(known, 40), 40U);
  const std::string floating = wavStreamHeader(SampleFormat::float32, 44100, 10);
  ASSERT_EQ(floating.size(), 56U);
  EXPECT_EQ(at(floating, 44), 10U) << "frames";
  EXPECT_EQ(at(floating, 52), 80U);
  for (const auto& frames : {std::optional<std::int64_t>(), std::optional<std::int64_t>(1LL << 30)})
    EXPECT_EQ(at(wavStreamHeader(SampleFormat::pcm16, 44100, frames), 40), 0xFFFFFFFFU);
}
