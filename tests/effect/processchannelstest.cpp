// Which buffers are read and written, in every way a host may connect them, against the reference
// and by itself.
#include <gtest/gtest.h>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"
#include "tests/support/guardedmemory.h"

namespace {

constexpr int kNone = Layout::kNone;

constexpr Layout kLayouts[] = {
    kStereo,
    {"right input null", 0, kNone, 2, 3},
    {"right input is the left", 0, 0, 2, 3},
    {"right input not connected", 0, 1, 2, 3, false},
    {"arranged as 1 in 2 out", 0, 1, 2, 3, true, true, 1},
    {"arranged as 4 in 2 out", 0, 1, 2, 3, true, true, 4},
    {"right output null", 0, 1, 2, kNone},
    {"right output is the left", 0, 1, 2, 2},
    {"right output not connected", 0, 1, 2, 3, true, false},
    {"mono in and out", 0, kNone, 2, kNone, false, false, 1},
    {"in place", 0, 1, 0, 1},
    {"in place, crossed", 0, 1, 1, 0},
    {"left output is the right input", 0, 1, 1, 3},
    {"right output is the left input", 0, 1, 2, 0},
    {"in place, one output", 0, 1, 0, 0},
    {"in place, one output that is the right input", 0, 1, 1, 1},
    {"mono in place", 0, 0, 0, 3},
    {"mono in place, one output", 0, 0, 0, 0},
    {"mono in place, right pins null", 0, kNone, 0, kNone},
    {"mono in place, right pins not connected", 0, 1, 0, 1, false, false},
};

// What "right input null", "the left", "not connected" and "arranged as 1 in 2 out" have in common.
constexpr Layout kMono[] = {kLayouts[1], kLayouts[2], kLayouts[3], kLayouts[4]};

template <typename Sample>
class ProcessChannels : public testing::Test {};
TYPED_TEST_SUITE(ProcessChannels, Precisions, PrecisionNames);

}  // namespace

TYPED_TEST(ProcessChannels, EqualTheReferenceInEveryLayout) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 3000);
  for (const float on : {1.0F, 0.0F}) {
    for (const Layout& layout : kLayouts) {
      ProcessPair pair;
      pair.setPreset(22);
      pair.setParameter(3, on);
      pair.resume();
      ASSERT_TRUE(pair.all(signal, {64, 1, 0, 509}, layout)) << "process " << on;
    }
  }
}

TYPED_TEST(ProcessChannels, EqualTheReferenceWhileTheLayoutChanges) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 400);
  ProcessPair pair;
  pair.setPreset(14);
  for (int turn = 0; turn < 300; ++turn) {
    if (turn % 11 == 0) pair.setParameter(3, turn % 2 == 0 ? 1.0F : 0.0F);
    ASSERT_TRUE(
        pair.all(signal, {100}, kLayouts[static_cast<std::size_t>(turn * 7) % std::size(kLayouts)]))
        << turn;
  }
}

TYPED_TEST(ProcessChannels, TakeTheInputSampleAsMidWhenMono) {
  // The sides of plus and minus cancel in the sum of the outputs, and these values leave
  // every bit exact.
  Stereo<TypeParam> signal{std::vector<TypeParam>(500), std::vector<TypeParam>(500)};
  Noise noise(9);
  for (std::size_t i = 0; i < signal.left.size(); ++i) {
    signal.left[i] = static_cast<TypeParam>(std::round(noise.next() * 1024.0) / 1024.0);
    signal.right[i] = TypeParam(0.125);  // never to be heard
  }
  for (const Layout& layout : kMono) {
    Pins pins{layout.rightInConnected, layout.rightOutConnected};
    Trelvan plugin(processHost);
    plugin.getAeffect()->user = &pins;
    VstSpeakerArrangement arranged[2] = {};
    arranged[0].numChannels = layout.arrangedIns;
    arranged[1].numChannels = 2;
    plugin.setSpeakerArrangement(&arranged[0], &arranged[1]);
    plugin.setParameter(0, 0.5F);
    plugin.setParameter(1, 1.0F);
    plugin.resume();
    TypeParam* right[] = {signal.left.data(), signal.right.data(), nullptr};
    TypeParam* ins[] = {signal.left.data(), right[layout.inR == kNone ? 2 : layout.inR]};
    std::vector<TypeParam> outL(500), outR(500);
    TypeParam* outs[] = {outL.data(), outR.data()};
    processBlock(plugin, ins, outs, 500);
    for (std::size_t i = 0; i < 500; ++i) {
      ASSERT_EQ((outL[i] + outR[i]) / 2, signal.left[i]) << layout.name << ", frame " << i;
    }
  }
}

// Left is written first and right second, so a single output buffer holds the right channel.
TYPED_TEST(ProcessChannels, LeaveTheRightChannelInASingleOutput) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 500);
  for (const float on : {1.0F, 0.0F}) {
    for (const int way : {0, 1, 2}) {
      Pins pins;
      Stereo<TypeParam> in = signal;
      TypeParam* ins[] = {in.left.data(), in.right.data()};
      std::vector<TypeParam> left(500), right(500), single(500), untouched(500, TypeParam(7));
      const auto render = [&](TypeParam* outL, TypeParam* outR) {
        Trelvan plugin(processHost);
        plugin.getAeffect()->user = &pins;
        plugin.setPresetNo(14);
        plugin.setParameter(3, on);
        plugin.resume();
        TypeParam* outs[] = {outL, outR};
        processBlock(plugin, ins, outs, 500);
      };
      render(left.data(), right.data());
      pins.rightOutConnected = way != 2;
      TypeParam* const ways[] = {single.data(), nullptr, untouched.data()};
      render(single.data(), ways[way]);
      EXPECT_NE(left, right);
      EXPECT_EQ(single, right) << "process " << on << ", way " << way;
      EXPECT_EQ(untouched, std::vector<TypeParam>(500, TypeParam(7)));
    }
  }
}

// Hosts that know of one channel hand over an array of one pointer.
TYPED_TEST(ProcessChannels, ReadNoSecondPointerWhereThereIsNoSecondChannel) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 500);
  using Pointers = std::vector<TypeParam*>;
  for (const bool arranged : {true, false}) {  // as 1 in 2 out, or both right pins not connected
    Stereo<TypeParam> in = signal;
    Stereo<TypeParam> out = silence<TypeParam>(500);
    GuardedMemory inputEnd(sizeof(TypeParam*)), outputEnd(sizeof(TypeParam*));
    TypeParam** ins = inputEnd.holding(Pointers{in.left.data()}, 1);
    Pointers both{out.left.data(), out.right.data()};
    TypeParam** outs = arranged ? both.data() : outputEnd.holding(both, 1);
    Pins pins{arranged, arranged};
    Trelvan plugin(processHost);
    plugin.getAeffect()->user = &pins;
    if (arranged) {
      VstSpeakerArrangement mono{}, stereo{};
      mono.numChannels = 1;
      stereo.numChannels = 2;
      ASSERT_TRUE(plugin.setSpeakerArrangement(&mono, &stereo));
    }
    plugin.setParameter(0, 0.0F);  // no side: every output is the input
    plugin.resume();
    processBlock(plugin, ins, outs, 500);
    EXPECT_EQ(out.left, signal.left) << "arranged " << arranged;
    EXPECT_EQ(out.right, arranged ? signal.left : silence<TypeParam>(500).right);
  }
}

// A host that cannot have 2 in 1 out plays on with two inputs and no second output.
TYPED_TEST(ProcessChannels, LeaveTheRightChannelInTheOneOutputOfARefusedArrangement) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 500);
  using Pointers = std::vector<TypeParam*>;
  for (const bool toldByItsPin : {true, false}) {  // or by a null pointer
    Stereo<TypeParam> in = signal;
    Stereo<TypeParam> out = silence<TypeParam>(500);
    Pins pins{true, !toldByItsPin};
    Trelvan plugin(processHost);
    plugin.getAeffect()->user = &pins;
    VstSpeakerArrangement mono{}, stereo{};
    mono.numChannels = 1;
    stereo.numChannels = 2;
    EXPECT_FALSE(plugin.setSpeakerArrangement(&stereo, &mono));
    plugin.setPresetNo(14);  // full width
    plugin.resume();
    Player expected;
    expected.setPresetNo(14);
    expected.resume();
    Pointers ins{in.left.data(), in.right.data()};
    const Pointers both{out.left.data(), nullptr};
    GuardedMemory end(sizeof(TypeParam*) * 2);
    TypeParam** outs = end.holding(both, toldByItsPin ? 1 : 2);
    processBlock(plugin, ins.data(), outs, 500);
    EXPECT_EQ(out.left, play(expected, signal).right) << toldByItsPin;
  }
}

TYPED_TEST(ProcessChannels, TouchNoArrayInABlockOfNoFrames) {
  TypeParam** const none = nullptr;
  for (const float on : {1.0F, 0.0F}) {
    Player plugin;
    Player untouched;
    for (Player* player : {&plugin, &untouched}) {
      player->setParameter(3, on);
      play(*player, steady(TypeParam(0.5), 1000));
    }
    processBlock(plugin, none, none, 0);
    EXPECT_EQ(plugin.getWidthMeter(), untouched.getWidthMeter());
    const auto signal = makeSignal<TypeParam>(Signal::kNoise, 1000);
    EXPECT_EQ(play(plugin, signal).left, play(untouched, signal).left) << "process " << on;
  }
}
