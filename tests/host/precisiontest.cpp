// In which precision the effect processes.
#include "host/convert/pass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;

class Precisions : public Conversions {
 protected:
  // What comes of it as doubles shows the precision of the effect.
  std::vector<double> samplesWith(const std::string& input, const std::string& precision,
                                  const std::string& format) {
    std::vector<std::string> words = {input, "--preset", "room 3", "--gain", "-12dB"};
    if (!precision.empty()) words.push_back(precision);
    if (!format.empty()) words.insert(words.end(), {"--format", format});
    return result(words).samples;
  }
};

}  // namespace

TEST_F(Precisions, AreDoubleWhereTheFileHoldsMoreThanSingle) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"32.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_32, ""},
      {"64.wav", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, ""},
      {"32.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_32, "double"},
      {"f.wav", kFloatWav, "double"},
      {"16.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, "pcm32"},
  };
  for (const auto& [name, libFormat, format] : cases) {
    writeSound(in(name), noise(4000, 2, 1), libFormat);
    const auto usual = samplesWith(name, "", format);
    EXPECT_EQ(usual, samplesWith(name, "--double", format)) << name;
    EXPECT_NE(usual, samplesWith(name, "--single", format)) << name;
  }
}

TEST_F(Precisions, AreSingleWhereThatHoldsTheFile) {
  const std::pair<const char*, int> cases[] = {
      {"16.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
      {"24.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24},
      {"16.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
      {"f.wav", kFloatWav},
  };
  for (const auto& [name, libFormat] : cases) {
    writeSound(in(name), noise(4000, 2, 2), libFormat);
    EXPECT_EQ(samplesWith(name, "", ""), samplesWith(name, "--single", "")) << name;
    EXPECT_THAT(widen({name, "-o", "out.wav", "-f"}).out,
                testing::Not(HasSubstr("double precision")))
        << name;
  }
}

// Samples with more bits than single precision has come back whole.
TEST_F(Precisions, LoseNoBitOfAFileThatIsNotWidened) {
  Sound sound = noise(3000, 2, 3);
  for (std::size_t i = 0; i < sound.samples.size(); ++i)
    sound.samples[i] = sound.samples[i] / 2.0 + static_cast<double>(i % 97) / 2147483648.0;
  for (const int format : {SF_FORMAT_PCM_32, SF_FORMAT_DOUBLE}) {
    writeSound(in("in.wav"), sound, SF_FORMAT_WAV | format);
    const Outcome outcome = widen({"in.wav", "-o", "out.wav", "-f", "--process", "off"});
    EXPECT_THAT(outcome.out, HasSubstr("processed in double precision"));
    EXPECT_EQ(readIntegers(in("out.wav")), readIntegers(in("in.wav")));
    EXPECT_EQ(readSound(in("out.wav")).samples, readSound(in("in.wav")).samples);
  }
}

TEST_F(Precisions, AreSingleForAnEffectThatHasNoOther) {
  writeSound(in("in.wav"), noise(1000, 2, 4), SF_FORMAT_WAV | SF_FORMAT_DOUBLE);
  EXPECT_EQ(result({"in.wav", "--plugin", plugin("echo")}).samples,
            readSound(in("in.wav")).samples);
  expectRefusal(widen({"in.wav", "-o", "out.wav", "-f", "--plugin", plugin("echo"), "--double"}), 1,
                "cannot process in double precision");
}

TEST_F(Precisions, AreOneOfTheTwo) {
  writeSound(in("in.wav"), noise(10, 2, 4), kFloatWav);
  expectRefusal(widen({"in.wav", "-o", "out.wav", "--single", "--double"}), 2,
                "--single and --double exclude each other");
}
