// Effects with other pins than two in and two out.
#include "host/convert/rightchannel.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include "tests/host/conversionfixture.h"

using Channels = Conversions;

TEST_F(Channels, GoThroughAnEffectOfTheirOwnWhereItTakesOne) {
  const Sound sound = noise(1000, 2, 4);
  writeSound(in("in.wav"), sound, kFloatWav);
  for (const char* block : {"1", "7", "1024"}) {
    const Sound out =
        result({"in.wav", "--plugin", plugin("onechannel"), "--block", block, "--set", "Gain=50%"});
    ASSERT_EQ(out.channels, 2);
    ASSERT_EQ(out.frames(), sound.frames());
    for (std::size_t frame = 0; frame < out.frames(); ++frame) {
      for (std::size_t channel = 0; channel < 2; ++channel) {
        const double before = frame == 0 ? 0.0 : sound.at(frame - 1, channel);
        ASSERT_EQ(out.at(frame, channel), before / 2) << frame << " in blocks of " << block;
      }
    }
  }
}

TEST_F(Channels, HaveTheSameOfAMonoFile) {
  const Sound sound = noise(1000, 1, 4);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--plugin", plugin("onechannel")});
  ASSERT_EQ(out.channels, 2);
  for (std::size_t frame = 1; frame < out.frames(); ++frame) {
    ASSERT_EQ(out.at(frame, 0), sound.at(frame - 1, 0)) << frame;
    ASSERT_EQ(out.at(frame, 1), sound.at(frame - 1, 0)) << frame;
  }
}

TEST_F(Channels, AreRefusedWhereTheyWouldComeApart) {
  writeSound(in("in.wav"), noise(1000, 2, 4), kFloatWav);
  Surroundings uneven;
  uneven.environment["WIDEN_TEST_UNEVEN"] = "1";
  // The state is tried on an effect before the file has its two.
  expectRefusal(widen({"in.wav", "-o", "out.wav", "--plugin", plugin("onechannel")}, uneven), 1,
                "64 frames late on the left and 0 on the right");
}

TEST_F(Channels, AreBothTheOnlyOutput) {
  const Sound sound = noise(1000, 2, 4);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--plugin", plugin("oneoutput")});
  ASSERT_EQ(out.channels, 2);
  for (std::size_t frame = 0; frame < out.frames(); ++frame) {
    ASSERT_EQ(out.at(frame, 0), sound.at(frame, 0)) << frame;
    ASSERT_EQ(out.at(frame, 1), sound.at(frame, 0)) << frame;
  }
}

TEST_F(Channels, AreTheFirstPairOfManyOutputs) {
  const Sound sound = noise(1000, 2, 4);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--plugin", plugin("manyoutputs")});
  for (std::size_t frame = 0; frame < out.frames(); ++frame) {
    ASSERT_EQ(out.at(frame, 0), sound.at(frame, 0)) << frame;
    ASSERT_EQ(out.at(frame, 1), sound.at(frame, 1) * 2) << frame;
  }
}
