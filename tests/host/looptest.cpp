// A sound file in memory that is read round and round.
#include "host/play/loop.h"

#include <gmock/gmock.h>
#include <sndfile.h>

#include <cmath>

#include "host/base/failure.h"
#include "tests/host/foldertest.h"
#include "tests/host/sounds.h"

namespace {

class LoopTest : public FolderTest {
 protected:
  std::filesystem::path file(const Sound& sound, int format = SF_FORMAT_WAV | SF_FORMAT_PCM_24) {
    writeSound(in("sound.wav"), sound, format);
    return in("sound.wav");
  }
};

}  // namespace

TEST_F(LoopTest, GoesRoundInBlocksOfAnySize) {
  const Sound sound = noise(1000, 2, 3);
  Loop loop(file(sound));
  EXPECT_EQ(loop.frames(), 1000U);
  EXPECT_EQ(loop.channels(), 2);
  EXPECT_EQ(loop.sampleRate(), 44100);
  std::size_t at = 0;
  // Up to the end, over it, whole rounds in one block, nothing.
  for (const std::size_t count : {1U, 999U, 7U, 0U, 993U, 500U, 3700U, 1000U, 2300U}) {
    std::vector<double> left(count);
    std::vector<double> right(count);
    loop.read(left.data(), right.data(), static_cast<int>(count));
    for (std::size_t i = 0; i < count; ++i, ++at) {
      ASSERT_EQ(left[i], sound.at(at % 1000, 0)) << at;
      ASSERT_EQ(right[i], sound.at(at % 1000, 1)) << at;
    }
  }
}

TEST_F(LoopTest, HasMonoOnBothSides) {
  Sound sound = noise(50, 1, 4);
  sound.rate = 96000;
  Loop loop(file(sound));
  EXPECT_EQ(loop.channels(), 1);
  EXPECT_EQ(loop.sampleRate(), 96000);
  std::vector<double> left(120);
  std::vector<double> right(120);
  loop.read(left.data(), right.data(), 120);
  EXPECT_EQ(left, right);
  for (std::size_t i = 0; i < 120; ++i) ASSERT_EQ(left[i], sound.at(i % 50, 0)) << i;
}

TEST_F(LoopTest, HasAllOfALongFile) {
  const Sound sound = noise(40001, 2, 8);  // more than is read at once, more than once
  Loop loop(file(sound));
  ASSERT_EQ(loop.frames(), 40001U);
  std::vector<double> left(40001);
  std::vector<double> right(40001);
  loop.read(left.data(), right.data(), 40001);
  for (std::size_t i = 0; i < 40001; ++i) {
    ASSERT_EQ(left[i], sound.at(i, 0)) << i;
    ASSERT_EQ(right[i], sound.at(i, 1)) << i;
  }
}

TEST_F(LoopTest, RefusesWhatIsNoNumberAndWhatIsNotThere) {
  Sound sound = noise(20000, 2, 9);
  sound.samples[2 * 17640] = INFINITY;  // 0.4 s
  const auto refusal = [](const std::filesystem::path& from) {
    try {
      Loop loop(from);
    } catch (const Failure& failure) {
      return std::string(failure.what());
    }
    return std::string("none");
  };
  EXPECT_THAT(refusal(file(sound, SF_FORMAT_WAV | SF_FORMAT_DOUBLE)),
              testing::HasSubstr("holds a value that is not a number at 0:00.400"));
  EXPECT_THAT(refusal(in("gone.wav")), testing::HasSubstr("no such file"));
}
