// Takes one sound file through an effect: the built program's results against calculations of the
// test's own.
#include "host/convert/conversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>

#include "host/base/wholefile.h"
#include "tests/host/conversionfixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

}  // namespace

TEST_F(Conversions, FoldToMidWhenTheWidthIsZero) {
  const Sound sound = noise(5000, 2, 1);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--width", "0%"});
  ASSERT_EQ(out.frames(), sound.frames());
  EXPECT_EQ(out.channels, 2);
  for (std::size_t frame = 0; frame < out.frames(); ++frame) {
    const double mid = (sound.at(frame, 0) + sound.at(frame, 1)) / 2;
    ASSERT_EQ(out.at(frame, 0), mid) << frame;
    ASSERT_EQ(out.at(frame, 1), mid) << frame;
  }
}

TEST_F(Conversions, GiveBackTheInputBitForBitWhenProcessIsOff) {
  const std::pair<const char*, int> formats[] = {
      {"f.wav", kFloatWav},
      {"d.wav", SF_FORMAT_WAV | SF_FORMAT_DOUBLE},
      {"16.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
      {"24.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_24},
      {"16.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
      {"8.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_U8},
  };
  for (const auto& [name, format] : formats) {
    const Sound sound = noise(3000, 2, 2);
    writeSound(in(name), sound, format);
    const std::string output = std::string("out-") + name;
    const Sound out = result({name, "--process", "off", "--width", "80%"}, output);
    EXPECT_EQ(out.samples, readSound(in(name)).samples) << name;
    EXPECT_EQ(libFormatOf(in(output)), format) << name;
  }
}

// mid passes at once; the side is mid one period of the base frequency later, less the emphasis of
// the frame before, times twice the squared width. 1000 Hz at 44100 Hz are 44.1 frames; the read
// offset from the line's other end is a whole number, so that it is 45 frames back.
TEST_F(Conversions, WidenAnImpulseAsTheFormulaSays) {
  writeSound(in("in.wav"), impulse(200, 1, 10), kFloatWav);
  const Sound out =
      result({"in.wav", "--width", "50%", "--base-freq", "1000Hz", "--emphasis", "0.25"});
  ASSERT_EQ(out.frames(), 200U);
  std::vector<double> side(200);
  side[10 + 45] = 0.5 * 0.5;
  side[10 + 46] = -0.25 * 0.5 * 0.5;
  for (std::size_t frame = 0; frame < 200; ++frame) {
    const double mid = frame == 10 ? 0.5 : 0.0;
    EXPECT_NEAR(out.at(frame, 0), mid + side[frame], 1e-7) << frame;
    EXPECT_NEAR(out.at(frame, 1), mid - side[frame], 1e-7) << frame;
  }
}

TEST_F(Conversions, SwapTheSidesWhenPhaseIsOn) {
  writeSound(in("in.wav"), noise(3000, 1, 3), kFloatWav);
  const Sound off = result({"in.wav", "--width", "70%", "--phase", "off"}, "off.wav");
  const Sound on = result({"in.wav", "--width", "70%", "--phase", "on"}, "on.wav");
  for (std::size_t frame = 0; frame < off.frames(); ++frame) {
    ASSERT_EQ(off.at(frame, 0), on.at(frame, 1)) << frame;
    ASSERT_EQ(off.at(frame, 1), on.at(frame, 0)) << frame;
  }
}

// Left and right are each rounded once, to 24 bits of their own size.
TEST_F(Conversions, FoldBackToTheOriginalWithinOneRounding) {
  const Sound sound = noise(20000, 2, 4);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--preset", "room 3", "--width", "63.7%"});
  double widest = 0.0;
  for (std::size_t frame = 0; frame < out.frames(); ++frame) {
    const double left = out.at(frame, 0);
    const double right = out.at(frame, 1);
    const double mid = (sound.at(frame, 0) + sound.at(frame, 1)) / 2;
    const double rounding = std::ldexp(std::max(std::abs(left), std::abs(right)), -24);
    ASSERT_LE(std::abs((left + right) / 2 - mid), rounding) << frame;
    widest = std::max(widest, std::abs(left - right));
  }
  EXPECT_GT(widest, 0.1) << "and it is wide";
}

TEST_F(Conversions, DoNotDependOnTheBlocks) {
  writeSound(in("in.wav"), noise(9001, 2, 5), kFloatWav);
  const Sound one =
      result({"in.wav", "--preset", "guitar 3", "--block", "1", "--tail", "100ms"}, "1.wav");
  for (const char* block : {"4096", "1000", "1048576"}) {
    const Sound other =
        result({"in.wav", "--preset", "guitar 3", "--block", block, "--tail", "100ms"});
    EXPECT_EQ(other.samples, one.samples) << block;
    EXPECT_EQ(textOf(in("out.wav")), textOf(in("1.wav"))) << block;
  }
}

TEST_F(Conversions, WidenMonoAsTheSameSignalOnBothSides) {
  Sound mono = noise(4000, 1, 6);
  Sound both{44100, 2, {}};
  for (const double sample : mono.samples) both.samples.insert(both.samples.end(), 2, sample);
  writeSound(in("mono.wav"), mono, kFloatWav);
  writeSound(in("both.wav"), both, kFloatWav);
  const Sound fromMono = result({"mono.wav", "--preset", "1"}, "a.wav");
  EXPECT_EQ(fromMono.channels, 2);
  EXPECT_EQ(fromMono.samples, result({"both.wav", "--preset", "1"}, "b.wav").samples);
}

TEST_F(Conversions, ProcessInDoublePrecision) {
  writeSound(in("in.wav"), noise(4000, 2, 7), SF_FORMAT_WAV | SF_FORMAT_DOUBLE);
  const Sound single = result({"in.wav", "--preset", "room 3", "--single"}, "single.wav");
  const Sound precise = result({"in.wav", "--preset", "room 3", "--double"}, "double.wav");
  double most = 0.0;
  for (std::size_t i = 0; i < single.samples.size(); ++i) {
    most = std::max(most, std::abs(single.samples[i] - precise.samples[i]));
  }
  EXPECT_GT(most, 0.0) << "there is a difference";
  EXPECT_LT(most, 1e-6) << "in the last places";
}

TEST_F(Conversions, ApplyTheGainAfterTheEffect) {
  const Sound sound = noise(1000, 2, 9);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--process", "off", "--gain", "6dB"});
  const double factor = std::pow(10.0, 6.0 / 20.0);
  for (std::size_t i = 0; i < out.samples.size(); ++i) {
    ASSERT_EQ(out.samples[i], static_cast<double>(static_cast<float>(sound.samples[i] * factor)))
        << i;
  }
}

TEST_F(Conversions, WriteTheFormatThatIsAsked) {
  writeSound(in("in.wav"), noise(100, 1, 10), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const std::tuple<const char*, const char*, int> cases[] = {
      {"pcm16", "a.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16},
      {"pcm24", "a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
      {"pcm32", "a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_32},
      {"float", "a.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT},
      {"double", "a.aif", SF_FORMAT_AIFF | SF_FORMAT_DOUBLE},
  };
  for (const auto& [format, name, expected] : cases) {
    result({"in.wav", "--format", format}, name);
    EXPECT_EQ(libFormatOf(in(name)), expected) << format;
  }
  writeSound(in("f.wav"), noise(100, 1, 10), kFloatWav);
  result({"f.wav"}, "f.flac");
  EXPECT_EQ(libFormatOf(in("f.flac")), SF_FORMAT_FLAC | SF_FORMAT_PCM_24)
      << "the most that FLAC can hold";
}

TEST_F(Conversions, KeepTheSampleRate) {
  Sound sound = noise(960, 2, 11);
  sound.rate = 96000;
  writeSound(in("in.wav"), sound, kFloatWav);
  EXPECT_EQ(result({"in.wav"}).rate, 96000);
}

TEST_F(Conversions, WarnWhenIntegersAreClippedAndAdviseAGain) {
  Sound loud{44100, 1, std::vector<double>(1000, 0.75)};
  writeSound(in("in.wav"), loud, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  // 0.75 times 2 is 1.5, which is +3.5 dBFS.
  const Outcome outcome =
      widen({"in.wav", "-o", "out.wav", "--process", "off", "--gain", "6.0206dB"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
  EXPECT_THAT(outcome.error,
              HasSubstr("out.wav: peak +3.5 dBFS is beyond full scale, 2000 samples clipped"));
  EXPECT_THAT(outcome.error, HasSubstr("clipping breaks the mono fold by -6.0 dBFS"))
      << "1.5 is held at 1";
  EXPECT_THAT(outcome.out, HasSubstr("peak 0.0 dBFS")) << "of the file";
  EXPECT_THAT(outcome.error, HasSubstr("--gain 2.4dB"))
      << "0.75 is -2.5 dBFS: so much room there is";
  EXPECT_THAT(outcome.error, HasSubstr("--format float"));
  for (const std::int32_t sample : readIntegers(in("out.wav"))) ASSERT_EQ(sample, 32767 * 65536);
  const Outcome advised =
      widen({"in.wav", "-o", "out.wav", "-f", "--process", "off", "--gain", "2.4dB"});
  EXPECT_EQ(advised.error, "") << "the advice holds";
  const Outcome floating =
      widen({"in.wav", "-o", "f.wav", "--process", "off", "--gain", "6dB", "--format", "float"});
  EXPECT_EQ(floating.error, "") << "nothing is lost there";
}

TEST_F(Conversions, NameFilesWithoutTheirControlCharacters) {
  const std::string name = "a\x1B[31m\n.wav";
  writeSound(in(name), noise(10, 2, 12), kFloatWav);
  const Outcome outcome = widen({name, "-o", "out\x07.wav", "--preset", "1"});
  EXPECT_THAT(outcome.out, testing::StartsWith("a?[31m?.wav: stereo"));
  EXPECT_THAT(outcome.out, HasSubstr("-> out?.wav"));
  const Outcome refused = widen({name, "-o", "out\x07.wav", "--preset", "1"});
  EXPECT_THAT(refused.error, HasSubstr("out?.wav: is already there"));
}

TEST_F(Conversions, PictureTheFileAsItIsWritten) {
  writeSound(in("in.wav"), Sound{44100, 1, std::vector<double>(1000, 0.75)}, kFloatWav);
  const auto pictureAt = [&](const std::string& name, const std::string& format) {
    const Outcome outcome = widen({"in.wav", "-o", name + ".wav", "--process", "off", "--gain",
                                   "6dB", "--format", format, "--plot", name});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    return readWholeFile(in(name));
  };
  EXPECT_NE(pictureAt("clipped.png", "pcm16"), pictureAt("loud.png", "float"))
      << "what is clipped in one file is not in the other";
}

// 0.61 stands for 20 + 980 x 0.3721 = 384.658 Hz.
TEST_F(Conversions, ReportWhatTheyDid) {
  writeSound(in("in.wav"), impulse(44100, 1, 0), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const Outcome outcome =
      widen({"in.wav", "-o", "out.flac", "--preset", "mix 2", "--tail", "1s", "--process", "off"});
  EXPECT_EQ(outcome.out,
            "in.wav: mono, 44100 Hz, 44100 frames (0:01.000), preset 2 \"mix 2\": width 50.0 %, "
            "baseFreq 384.7 Hz, "
            "emphasis 12.0 %, process Off, phase Off\n"
            "  -> out.flac: 16-bit FLAC, 88200 frames (0:02.000), peak -6.0 dBFS\n");
}

TEST_F(Conversions, SaveAndRestoreStates) {
  writeSound(in("in.wav"), noise(1000, 1, 12), kFloatWav);
  const Sound first =
      result({"in.wav", "--preset", "bas 3", "--phase", "on", "--save-state", "s"}, "a.wav");
  const Sound second = result({"in.wav", "--state", "s"}, "b.wav");
  EXPECT_EQ(first.samples, second.samples);
  EXPECT_THAT(widen({"--state", "s", "--list-presets"}).out, HasSubstr("* 17  bas 3"));
  const Outcome alone = widen({"--preset", "bas 3", "--phase", "on", "--save-state", "t"});
  EXPECT_EQ(alone.status, 0) << alone.error;
  EXPECT_EQ(textOf(in("s")), textOf(in("t"))) << "without a sound it is the same state";
}

TEST_F(Conversions, DrawThePicture) {
  writeSound(in("in.wav"), noise(30000, 2, 13), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const Outcome outcome = widen({"in.wav", "-o", "out.wav", "--preset", "3", "--plot", "p.png"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_THAT(outcome.out, HasSubstr("picture p.png"));
  EXPECT_TRUE(textOf(in("p.png")).starts_with("\x89PNG"));
  EXPECT_THAT(names(), ElementsAre("in.wav", "out.wav", "p.png"));
}

// An encoder that writes into a pipe leaves the number of frames at 0, and the sound may come to
// any length: the output is begun as the type that holds it, which shows in its header afterwards.
TEST_F(Conversions, AreReadyForAnyLengthWhereTheInputNamesNone) {
  const Sound sound = noise(3000, 2, 15);
  writeSound(in("in.flac"), sound, SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
  std::string bytes = textOf(in("in.flac"));
  bytes.replace(22, 4, std::string(4, 0));  // the low 32 bits of the number of frames
  writeText(in("in.flac"), bytes);
  EXPECT_EQ(result({"in.flac", "--process", "off"}).samples, sound.samples);
  EXPECT_EQ(libFormatOf(in("out.wav")), SF_FORMAT_WAVEX | SF_FORMAT_PCM_16);
  EXPECT_EQ(result({"in.flac", "--process", "off"}, "out.aiff").samples, sound.samples);
}

// 48 MB of samples: if any of it stayed in memory, the longer file would show.
TEST_F(Conversions, StreamLongFiles) {
  writeSound(in("short.wav"), noise(1000, 2, 14), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const Outcome brief = widen({"short.wav", "-o", "a.wav", "--preset", "1"});
  // Written in pieces: the memory of this process counts, for the program starts as its copy.
  SF_INFO info{0, 44100, 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
  SNDFILE* file = sf_open(in("long.wav").c_str(), SFM_WRITE, &info);
  ASSERT_NE(file, nullptr);
  const std::vector<short> piece(240000);
  for (int i = 0; i < 100; ++i)
    sf_write_short(file, piece.data(), static_cast<sf_count_t>(piece.size()));
  sf_close(file);
  const Outcome lengthy = widen({"long.wav", "-o", "b.wav", "--preset", "1"});
  ASSERT_EQ(lengthy.status, 0) << lengthy.error;
  EXPECT_EQ(std::filesystem::file_size(in("b.wav")), 44U + 48000000U);
  EXPECT_LT(lengthy.mostMemory - brief.mostMemory, 8 * 1024) << "kB";
}
