// The audio thread's rule: processing and what else hosts call there asks for no memory and takes
// no lock.
#include <gtest/gtest.h>

#include <memory>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"
#include "tests/effect/realtimewatch.h"

namespace {

template <typename Sample>
class Realtime : public testing::Test {};
TYPED_TEST_SUITE(Realtime, Precisions, PrecisionNames);

}  // namespace

TEST(RealtimeWatch, SeesOperatorNew) {
  RealtimeWatch watch;
  std::unique_ptr<int> volatile number(new int(1));
  EXPECT_GE(watch.allocations(), 1U);
}

TEST(RealtimeWatch, CountsNothingWhereNothingIsAsked) {
  RealtimeWatch watch;
  EXPECT_EQ(watch.allocations(), 0U);
  EXPECT_EQ(watch.locks(), 0U);
}

TYPED_TEST(Realtime, ProcessingAllocatesAndLocksNothing) {
  Player plugin({.emphasis = 0.5F});
  auto in = makeSignal<TypeParam>(Signal::kNoise, 5000);
  auto out = silence<TypeParam>(5000);
  TypeParam* ins[] = {in.left.data(), in.right.data()};
  TypeParam* outs[] = {out.left.data(), out.right.data()};
  RealtimeWatch watch;
  for (const float process : {1.0F, 0.0F}) {
    plugin.setParameter(3, process);
    for (const int frames : {0, 1, 64, 5000}) processBlock(plugin, ins, outs, frames);
    outs[1] = outs[1] == nullptr ? out.right.data() : nullptr;
    ins[1] = ins[0];
    processBlock(plugin, ins, outs, 100);
  }
  EXPECT_EQ(watch.allocations(), 0U);
  EXPECT_EQ(watch.locks(), 0U);
}

// Through the record, as hosts do it on their audio thread.
TEST(RealtimeCalls, ParametersAllocateAndLockNothing) {
  Player plugin;
  AEffect* effect = plugin.getAeffect();
  float sum = 0.0F;
  RealtimeWatch watch;
  for (int index = 0; index < 7; ++index) {
    effect->setParameter(effect, index, 0.75F);
    sum += effect->getParameter(effect, index);
    effect->dispatcher(effect, effCanBeAutomated, index, 0, nullptr, 0.0F);
  }
  EXPECT_EQ(watch.allocations(), 0U);
  EXPECT_EQ(watch.locks(), 0U);
  EXPECT_EQ(sum, 6 * 0.75F);  // index 5 holds nothing
}

// Some hosts switch off and on between two blocks on the audio thread.
TEST(RealtimeCalls, SwitchingOnAndOffAllocatesAndLocksNothing) {
  Player plugin;
  AEffect* effect = plugin.getAeffect();
  RealtimeWatch watch;
  for (const VstIntPtr on : {0, 1, 1, 0})
    effect->dispatcher(effect, effMainsChanged, 0, on, nullptr, 0.0F);
  effect->dispatcher(effect, effSetSampleRate, 0, 0, nullptr, 96000.0F);
  effect->dispatcher(effect, effSetBlockSize, 0, 512, nullptr, 0.0F);
  EXPECT_EQ(watch.allocations(), 0U);
  EXPECT_EQ(watch.locks(), 0U);
}
