// Parameters that move in the course of a sound: where they change, and what is heard of it.
#include "host/convert/automation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/host/conversionfixture.h"

namespace {

using testing::HasSubstr;

struct Change {
  std::int64_t frame;
  int parameter;
  float value;
  bool operator==(const Change&) const = default;
};

// All changes of so many frames in blocks of this size, at 1000 Hz.
std::vector<Change> changesOf(const std::vector<AutomationLane>& lanes, int frames, int block) {
  Automation automation(lanes, 1000);
  std::vector<Change> changes;
  for (std::int64_t position = 0; position < frames;) {
    const int wanted =
        std::min(block - static_cast<int>(position % block), frames - static_cast<int>(position));
    const int part = automation.advance(position, wanted, [&](int parameter, float value) {
      changes.push_back({position, parameter, value});
    });
    EXPECT_GT(part, 0);
    EXPECT_LE(part, wanted);
    position += part;
  }
  return changes;
}

// A gain that begins with 1, leaps to 0.25 at frame 882, goes up to 0.75 at 1764 and stays, and
// falls to 0.125 at 2205. On the way up it changes at every 32nd frame of the sound.
const std::string kMoves =
    "0.02 Gain 0.25\n0.04 Gain 0.75\n"
    "0.05 Gain 0.75\n0.05 Gain 0.125\n";

float gainAt(std::size_t frame) {
  if (frame < 882) return 1.0F;
  if (frame >= 2205) return 0.125F;
  if (frame >= 1764) return 0.75F;
  const std::size_t step = std::max<std::size_t>(882, frame / 32 * 32);
  return static_cast<float>(0.25 + 0.5 * static_cast<double>(step - 882) / 882.0);
}

}  // namespace

TEST(Automation, LeavesAParameterAloneUntilItsFirstPointAndAfterItsLast) {
  const std::vector<AutomationLane> lanes = {{3, {{0.1, 0.5F}}}};
  EXPECT_EQ(changesOf(lanes, 1000, 64), (std::vector<Change>{{100, 3, 0.5F}}));
}

TEST(Automation, LeapsWhereTwoPointsHaveOneTime) {
  const std::vector<AutomationLane> lanes = {
      {0, {{0.0, 0.25F}, {0.5, 0.25F}, {0.5, 0.9F}, {0.5, 0.75F}}}};
  EXPECT_EQ(changesOf(lanes, 1000, 64), (std::vector<Change>{{0, 0, 0.25F}, {500, 0, 0.75F}}));
}

TEST(Automation, GoesInStepsOfTheSoundNotOfTheBlocks) {
  const std::vector<AutomationLane> lanes = {{0, {{0.1, 0.0F}, {0.2, 1.0F}}}, {1, {{0.15, 1.0F}}}};
  const std::vector<Change> expected = {{100, 0, 0.0F}, {128, 0, 0.28F}, {150, 1, 1.0F},
                                        {160, 0, 0.6F}, {192, 0, 0.92F}, {200, 0, 1.0F}};
  for (const int block : {1, 7, 32, 50, 64, 1024}) {
    EXPECT_EQ(changesOf(lanes, 300, block), expected) << block;
  }
}

TEST(Automation, TakesPointsOfOneFrameTogether) {
  const std::vector<AutomationLane> lanes = {{0, {{0.1, 0.5F}, {0.1002, 0.75F}, {0.9, 0.75F}}}};
  EXPECT_EQ(changesOf(lanes, 300, 64), (std::vector<Change>{{100, 0, 0.75F}}));
}

TEST_F(Conversions, MoveParametersAtTheirFrame) {
  const Sound sound = noise(5000, 2, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  writeText(in("moves.txt"), kMoves);
  for (const char* block : {"1", "7", "1000", "65536"}) {
    const Sound out = result(
        {"in.wav", "--plugin", plugin("programs"), "--automate", "moves.txt", "--block", block});
    for (std::size_t frame = 0; frame < out.frames(); ++frame) {
      const float expected = static_cast<float>(sound.at(frame, 0)) * gainAt(frame);
      ASSERT_EQ(static_cast<float>(out.at(frame, 0)), expected)
          << frame << " in blocks of " << block;
    }
  }
}

TEST_F(Conversions, MoveParametersOnBothSidesOfDualMono) {
  const Sound sound = noise(5000, 2, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  writeText(in("moves.txt"), kMoves);
  const Sound out = result({"in.wav", "--plugin", plugin("onechannel"), "--automate", "moves.txt"});
  for (std::size_t frame = 1; frame < out.frames(); ++frame) {
    for (std::size_t channel = 0; channel < 2; ++channel) {
      const float expected = static_cast<float>(sound.at(frame - 1, channel)) * gainAt(frame);
      ASSERT_EQ(static_cast<float>(out.at(frame, channel)), expected) << frame;
    }
  }
}

// The effect is switched on with what is named for the beginning, and does not glide there.
TEST_F(Conversions, BeginWithTheValuesOfTheirBeginning) {
  writeSound(in("in.wav"), noise(5000, 1, 8), kFloatWav);
  writeText(in("moves.txt"), "0 width 60%\n0 baseFreq 300Hz\n");
  const Sound moved = result({"in.wav", "--preset", "guitar 3", "--automate", "moves.txt"});
  const Sound set = result(
      {"in.wav", "--preset", "guitar 3", "--width", "60%", "--base-freq", "300Hz"}, "set.wav");
  EXPECT_EQ(moved.samples, set.samples);
}

TEST_F(Conversions, MoveTrelvanAlikeForEveryBlockSize) {
  writeSound(in("in.wav"), noise(30000, 1, 8), kFloatWav);
  writeText(in("moves.txt"),
            "0.1 width 100%\n0.5 width 0%\n0.2 baseFreq 40Hz\n0.3 baseFreq 900Hz\n0.6 phase on\n");
  const auto moved = [this](const char* block) {
    return result({"in.wav", "--preset", "guitar 3", "--automate", "moves.txt", "--tail", "0.5s",
                   "--block", block})
        .samples;
  };
  const auto expected = moved("1024");
  EXPECT_NE(expected, result({"in.wav", "--preset", "guitar 3", "--tail", "0.5s"}).samples);
  for (const char* block : {"1", "33", "100000"}) EXPECT_EQ(moved(block), expected) << block;
}

// "echo" repeats everything after 30000 frames: what is switched off before is not heard then.
TEST_F(Conversions, MoveParametersInTheTail) {
  const Sound sound = noise(1000, 1, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  writeText(in("moves.txt"), "0.70 Gain 0.5\n");  // frame 30870
  Surroundings withGain;
  withGain.environment["WIDEN_TEST_GAIN"] = "1";
  for (const std::string tail : {"1s", "auto"}) {
    const Outcome outcome = widen({"in.wav", "-o", tail + ".wav", "--plugin", plugin("echo"),
                                   "--automate", "moves.txt", "--tail", tail},
                                  withGain);
    ASSERT_EQ(outcome.status, 0) << outcome.error;
    const Sound out = readSound(in(tail + ".wav"));
    ASSERT_GE(out.frames(), 31000U) << tail;
    EXPECT_EQ(out.at(30869, 0), sound.at(869, 0) / 2) << tail;
    EXPECT_EQ(out.at(30870, 0), sound.at(870, 0) / 4) << tail;
  }
}

TEST_F(Conversions, AreNotBegunWithAFileThatCannotMoveThem) {
  writeSound(in("in.wav"), noise(1000, 1, 8), kFloatWav);
  writeText(in("moves.txt"), "0 width 60%\n1 depth 1\n");
  expectRefusal(widen({"in.wav", "-o", "out.wav", "--automate", "moves.txt"}), 1,
                "moves.txt, line 2: there is no parameter \"depth\"");
  expectRefusal(widen({"in.wav", "-o", "out.wav", "--automate", "none.txt"}), 1,
                "none.txt: no such file");
  expectRefusal(widen({"--info", "--automate", "moves.txt"}), 2, "leave --automate out");
  EXPECT_EQ(names(), (std::vector<std::string>{"in.wav", "moves.txt"}));
}
