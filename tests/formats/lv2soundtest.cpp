// The LV2 plug-ins sound like the effect called by its record, bit by bit.
#include <gtest/gtest.h>

#include <limits>

#include "tests/formats/directrecord.h"
#include "tests/formats/lv2player.h"
#include "tests/formats/samebits.h"

namespace {

constexpr std::size_t kFrames = 20000;
// width, baseFreq, emphasis, process, phase; none is the first preset
const Lv2Values kSettings[] = {{0.75F, 0.25F, 0.25F, 1.0F, 0.0F},
                               {1.0F, 0.0F, 1.0F, 1.0F, 1.0F},
                               {0.33F, 0.777F, 0.5F, 1.0F, 0.0F},
                               {0.9F, 0.61F, 0.0F, 0.0F, 1.0F}};

}  // namespace

// What the ports say when run is called first is there from the first frame on: nothing glides.
TEST(Lv2Sound, IsTheRecordsForEverySettingAndRate) {
  for (const double rate : {44100.0, 48000.0, 96000.0}) {
    for (const Lv2Values& values : kSettings) {
      const auto in = makeSignal<float>(Signal::kNoise, kFrames);
      Lv2Player plugin(values, rate);
      plugin.activate();
      EXPECT_TRUE(sameBits(plugin.play(in, {64, 1, 500, 3000, 0}),
                           DirectRecord(values, static_cast<float>(rate)).play(in)))
          << rate;
    }
  }
}

TEST(Lv2Sound, IsTheSameInPlaceAndWithChannelsCrossed) {
  const Lv2Values& values = kSettings[0];
  const auto in = makeSignal<float>(Signal::kSine, kFrames);
  const Stereo<float> expected = DirectRecord(values).play(in);
  Stereo<float> inPlace = in;
  Lv2Player plugin(values);
  plugin.connectAudio(inPlace.left.data(), inPlace.right.data(), inPlace.left.data(),
                      inPlace.right.data());
  plugin.activate();
  plugin.run(kFrames);
  EXPECT_TRUE(sameBits(inPlace, expected));

  Stereo<float> crossed = in;
  Lv2Player other(values);
  other.connectAudio(crossed.left.data(), crossed.right.data(), crossed.right.data(),
                     crossed.left.data());
  other.activate();
  other.run(kFrames);
  EXPECT_TRUE(sameBits(crossed.right, expected.left));
  EXPECT_TRUE(sameBits(crossed.left, expected.right));
}

TEST(Lv2Sound, GlidesToAValueThatAPortTakesLater) {
  const auto in = makeSignal<float>(Signal::kNoise, kFrames);
  Lv2Player plugin(kSettings[0]);
  DirectRecord record(kSettings[0]);
  plugin.activate();
  EXPECT_TRUE(sameBits(plugin.play(in), record.play(in)));
  plugin.controls = kSettings[2];
  record.set(kSettings[2]);
  EXPECT_TRUE(sameBits(plugin.play(in, {64, 700}), record.play(in)));
}

// Hosts bypass by it.
TEST(Lv2Sound, IsTheInputWhileProcessIsOff) {
  const auto in = makeSignal<float>(Signal::kNoise, kFrames);
  Lv2Player plugin({0.75F, 0.25F, 0.25F, 1.0F, 0.0F});
  plugin.activate();
  plugin.play(in);
  plugin.controls[3] = 0.0F;
  EXPECT_TRUE(sameBits(plugin.play(in), in));
}

TEST(Lv2Sound, OfOneChannelIsThatOfTheSameOnBoth) {
  for (const Lv2Values& values : kSettings) {
    auto in = makeSignal<float>(Signal::kNoise, kFrames);
    in.right = in.left;
    Lv2Player plugin(values, 44100.0, kLv2Mono);
    plugin.activate();
    EXPECT_TRUE(sameBits(plugin.play(in, {333}), DirectRecord(values).play(in)));
  }
}

TEST(Lv2Sound, BeginsAnewAfterItWasSwitchedOff) {
  const auto in = makeSignal<float>(Signal::kNoise, kFrames);
  Lv2Player plugin(kSettings[0]);
  plugin.activate();
  const Stereo<float> first = plugin.play(in);
  plugin.deactivate();
  plugin.activate();
  EXPECT_TRUE(sameBits(plugin.play(in), first));
}

TEST(Lv2BadInput, RatesThatAreNoneMakeNoInstance) {
  const LV2_Descriptor& descriptor = *lv2_descriptor(kLv2Stereo);
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (const double rate :
       {0.0, -44100.0, kInfinite, -kInfinite, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(descriptor.instantiate(&descriptor, rate, "", nullptr), nullptr) << rate;
  }
}

TEST(Lv2BadInput, WithoutFeaturesItPlays) {
  const LV2_Descriptor& descriptor = *lv2_descriptor(kLv2Stereo);
  const LV2_Handle handle = descriptor.instantiate(&descriptor, 48000.0, nullptr, nullptr);
  ASSERT_NE(handle, nullptr);
  float sound[] = {0.5F, 0.25F};
  for (std::uint32_t port = 0; port < 4; ++port) descriptor.connect_port(handle, port, sound);
  descriptor.activate(handle);
  descriptor.run(handle, 2);  // control ports may stay unconnected: the effect keeps its values
  descriptor.cleanup(handle);
}

TEST(Lv2BadInput, AMissingAudioPortLeavesSilence) {
  for (const std::uint32_t missing : {0U, 1U, 2U, 3U}) {
    auto in = makeSignal<float>(Signal::kNoise, 64);
    Stereo<float> out{std::vector<float>(64, 9.0F), std::vector<float>(64, 9.0F)};
    Lv2Player plugin(kSettings[0]);
    plugin.connectAudio(in.left.data(), in.right.data(), out.left.data(), out.right.data());
    plugin.connect(missing, nullptr);
    plugin.activate();
    plugin.run(64);
    const std::vector<float> silence(64);
    const std::vector<float> untouched(64, 9.0F);
    EXPECT_EQ(out.left, missing == 2 ? untouched : silence) << missing;
    EXPECT_EQ(out.right, missing == 3 ? untouched : silence) << missing;
  }
}

TEST(Lv2BadInput, WhatWasNotSwitchedOnIsSilent) {
  Lv2Player plugin(kSettings[0]);
  const auto in = makeSignal<float>(Signal::kNoise, 64);
  const Stereo<float> silence{std::vector<float>(64), std::vector<float>(64)};
  EXPECT_TRUE(sameBits(plugin.play(in), silence));
}

TEST(Lv2BadInput, PortsThatAreNotThereAreLeftOut) {
  Lv2Player plugin(kSettings[0]);
  float nowhere = 0.0F;
  for (const std::uint32_t port : {9U, 10U, 1000U, 0xffffffffU}) plugin.connect(port, &nowhere);
  const auto in = makeSignal<float>(Signal::kNoise, 64);
  plugin.activate();
  EXPECT_TRUE(sameBits(plugin.play(in), DirectRecord(kSettings[0]).play(in)));
}

TEST(Lv2BadInput, ValuesOutsideAreTheNearestAndNoNumberIsNone) {
  const auto in = makeSignal<float>(Signal::kNoise, kFrames);
  Lv2Player plugin({0.75F, 0.25F, 0.25F, 1.0F, 0.0F});
  DirectRecord record({0.75F, 0.25F, 0.25F, 1.0F, 0.0F});
  plugin.activate();
  plugin.play(in);
  record.play(in);
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  plugin.controls = {7.0F, -1e30F, kNone, kNone, std::numeric_limits<float>::infinity()};
  record.set({1.0F, 0.0F, 0.25F, 1.0F, 1.0F});
  EXPECT_TRUE(sameBits(plugin.play(in), record.play(in)));
}

TEST(Lv2Descriptors, AreTwo) {
  EXPECT_STREQ(lv2_descriptor(0)->URI, "urn:orv:trelvan");
  EXPECT_STREQ(lv2_descriptor(1)->URI, "urn:orv:trelvan:mono");
  EXPECT_EQ(lv2_descriptor(2), nullptr);
  EXPECT_EQ(lv2_descriptor(0)->extension_data("urn:something:else"), nullptr);
}
