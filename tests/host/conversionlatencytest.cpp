// Where an output begins and ends: an effect's latency, its tail, and what it may
// not change meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "host/convert/conversion.h"
#include "host/convert/rendering.h"
#include "tests/host/conversionfixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

}  // namespace

TEST_F(Conversions, TakeTheLatencyOfAnEffectAway) {
  const Sound sound = noise(2000, 2, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  for (const char* block : {"1", "64", "4096"}) {
    EXPECT_EQ(result({"in.wav", "--plugin", plugin("latency"), "--block", block}).samples,
              sound.samples)
        << block;
  }
}

// Many effects do so: they know it when the first block comes.
TEST_F(Conversions, TakeALatencyAwayThatComesUpWhileProcessing) {
  const Sound sound = noise(20000, 2, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  const std::map<std::string, std::string> plans[] = {
      {{"WIDEN_TEST_LATENCY", "0:480"}},
      {{"WIDEN_TEST_LATENCY", "0:480"}, {"WIDEN_TEST_SILENT", "1"}},
      {{"WIDEN_TEST_LATENCY", "0:480"}, {"WIDEN_TEST_FIRST", "5000"}},
      {{"WIDEN_TEST_LATENCY", "0:30000"}},
      {{"WIDEN_TEST_LATENCY", "0:0 8192:480"}},
      {{"WIDEN_TEST_LATENCY", "0:64 5000:480 9000:4000 9001:4001"}},
      {{"WIDEN_TEST_LATENCY", "0:64 19999:480"}},
  };
  for (const auto& plan : plans) {
    for (const char* block : {"1", "64", "1024", "4096", "1048576"}) {
      for (const char* tail : {"0s", "auto"}) {
        const Outcome outcome = widen({"in.wav", "-o", "out.wav", "-f", "--plugin",
                                       plugin("lateness"), "--block", block, "--tail", tail},
                                      {plan});
        EXPECT_EQ(outcome.error, "");
        EXPECT_EQ(readSound(in("out.wav")).samples, sound.samples)
            << plan.begin()->second << " " << block << " " << tail;
      }
    }
  }
  const Outcome ringing =
      widen({"in.wav", "-o", "out.wav", "-f", "--plugin", plugin("lateness"), "--tail", "10ms"},
            {{{"WIDEN_TEST_LATENCY", "0:480"}}});
  EXPECT_EQ(readSound(in("out.wav")).frames(), 20000U + 441U) << ringing.error;
}

// From frame 8192 on it is late by 64 instead of 480: 416 frames, from 8192 - 480 on, have no sound
// of theirs.
TEST_F(Conversions, LineUpAfterALatencyThatIsLowered) {
  const Sound sound = noise(20000, 2, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  std::vector<double> expected = sound.samples;
  std::fill_n(expected.begin() + 2 * (8192 - 480), 2 * (480 - 64), 0.0);
  for (const char* block : {"1", "64", "4096"}) {
    const Outcome outcome =
        widen({"in.wav", "-o", "out.wav", "-f", "--plugin", plugin("lateness"), "--block", block},
              {{{"WIDEN_TEST_LATENCY", "0:480 8192:64"}}});
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(readSound(in("out.wav")).samples, expected) << block;
  }
}

TEST_F(Conversions, RefuseAnEffectThatChangesItsShapeWhileProcessing) {
  writeSound(in("in.wav"), noise(5000, 2, 8), kFloatWav);
  const std::pair<const char*, const char*> cases[] = {
      {"2000:i3", "changed from 2 inputs and 2 outputs to 3 inputs and 2 outputs"},
      {"2000:o64", "changed from 2 inputs and 2 outputs to 2 inputs and 64 outputs"},
      {"0:i1", "to 1 inputs and 2 outputs"},
      {"2000:o0", "to 2 inputs and 0 outputs"},
      {"2000:o-1", "names -1 outputs, which cannot be"},
      {"2000:-5", "names -5 frames of latency, which cannot be"},
      {"2000:2000000000", "names 2000000000 frames of latency, which cannot be"},
  };
  for (const auto& [plan, text] : cases) {
    for (const char* silent : {"", "1"}) {
      std::map<std::string, std::string> environment = {{"WIDEN_TEST_LATENCY", plan}};
      if (*silent != 0) environment["WIDEN_TEST_SILENT"] = silent;
      expectRefusal(
          widen({"in.wav", "-o", "out.wav", "--plugin", plugin("lateness")}, {environment}), 1,
          text);
      EXPECT_THAT(names(), ElementsAre("in.wav"));
    }
  }
}

TEST_F(Conversions, RunEffectsWithTheEntryPointsOlderName) {
  const Sound sound = noise(2000, 2, 8);
  writeSound(in("in.wav"), sound, kFloatWav);
  const Sound out = result({"in.wav", "--plugin", plugin("oldmain")});
  ASSERT_EQ(out.frames(), sound.frames());
  for (std::size_t i = 0; i < sound.samples.size(); ++i)
    ASSERT_EQ(out.samples[i], sound.samples[i] / 2) << i;
}

TEST_F(Conversions, LetTheDelayLineRingOut) {
  writeSound(in("in.wav"), impulse(100, 1, 99), kFloatWav);
  const std::vector<std::string> setting = {"in.wav", "--width",    "50%", "--base-freq",
                                            "1000Hz", "--emphasis", "0.25"};
  EXPECT_EQ(result(setting).frames(), 100U) << "no longer than the input without --tail";
  auto withTail = setting;
  withTail.insert(withTail.end(), {"--tail", "auto"});
  const Sound out = result(withTail);
  ASSERT_EQ(out.frames(), 99U + 46U + 1U) << "the side's last frame is 46 frames after the impulse";
  EXPECT_NEAR(out.at(99 + 45, 0), 0.25, 1e-7);
  withTail.back() = "250ms";
  EXPECT_EQ(result(withTail).frames(), 100U + 11025U);
}

TEST_F(Conversions, FindTheEndOfALateEcho) {
  writeSound(in("in.wav"), impulse(500, 2, 450), kFloatWav);
  const Sound out = result({"in.wav", "--plugin", plugin("echo"), "--tail", "auto"});
  ASSERT_EQ(out.frames(), 450U + 30000U + 1U);
  EXPECT_EQ(out.at(30450, 0), 0.25);
}

TEST_F(Conversions, EndATailThatNeverEnds) {
  writeSound(in("in.wav"), impulse(500, 2, 0), kFloatWav);
  EXPECT_EQ(result({"in.wav", "--plugin", plugin("neversilent"), "--tail", "auto"}).frames(),
            500U + 30U * 44100U);
}

// The largest rate that a header can name: the silence after the sound is kept in memory until it
// is known to be the end.
TEST_F(Conversions, KeepNoMoreSilenceThanASoundOfAUsualRateHas) {
  Sound sound = impulse(100, 1, 50);
  writeSound(in("usual.wav"), sound, kFloatWav);
  sound.rate = 2147483647;
  writeSound(in("absurd.wav"), sound, kFloatWav);
  const Outcome usual = widen({"usual.wav", "-o", "a.wav", "--tail", "auto"});
  const Outcome absurd = widen({"absurd.wav", "-o", "b.wav", "--tail", "auto"});
  EXPECT_EQ(absurd.status, 0) << absurd.error;
  EXPECT_EQ(absurd.error, "");
  EXPECT_LT(absurd.mostMemory - usual.mostMemory, 100 * 1024) << "kB";
  constexpr std::int64_t kThirtySeconds = 30 * 768000;
  EXPECT_EQ(Rendering::mostTailFrames({true, 0.0}, 2147483647), kThirtySeconds);
  EXPECT_EQ(Rendering::mostTailFrames({true, 0.0}, 44100), 30 * 44100);
  EXPECT_EQ(Rendering::mostTailFrames({false, 2.0}, 2147483647), 2LL * 2147483647)
      << "what was asked for in seconds";
}
