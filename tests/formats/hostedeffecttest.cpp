// The effect behind its record, as adapters drive it: what it says of itself, its life, and what
// its host hears.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "formats/record/hostedeffect.h"
#include "tests/formats/samebits.h"
#include "tests/support/temporaryfolder.h"

namespace {

class Heard final : public HostedEffectListener {
 public:
  void parameterEdited(int index, float value) override { edited.emplace_back(index, value); }
  void editBegun(int index) override { begun.push_back(index); }
  void editEnded(int index) override { ended.push_back(index); }
  void displayOutdated() override { ++outdated; }

  std::vector<std::pair<int, float>> edited;
  std::vector<int> begun, ended;
  int outdated = 0;
};

class Hosted : public testing::Test {
 protected:
  Heard heard;
  std::unique_ptr<HostedEffect> effect = HostedEffect::make(heard, 48000.0, 2);
};

}  // namespace

TEST_F(Hosted, SaysWhatItIsWithoutTheRecordsBlanks) {
  ASSERT_TRUE(effect);
  EXPECT_EQ(effect->text(effGetEffectName), "Orv Trelvan");
  EXPECT_EQ(effect->version(), 1990);
  EXPECT_EQ(effect->parameterCount(), 5);
  EXPECT_EQ(effect->text(effGetParamName, 1), "baseFreq");
  EXPECT_EQ(effect->text(effGetParamLabel, 1), "Hz");
  EXPECT_EQ(effect->text(effGetParamLabel, 3), "");  // nothing but blanks
  EXPECT_FALSE(effect->isSwitch(2));
  EXPECT_TRUE(effect->isSwitch(3));
  EXPECT_FALSE(effect->isSwitch(99));
}

TEST_F(Hosted, TakesOneInputOrTwo) {
  EXPECT_TRUE(HostedEffect::make(heard, 48000.0, 1));
  EXPECT_FALSE(HostedEffect::make(heard, 48000.0, 3));
}

TEST_F(Hosted, IsHeardOnlyOnceItIsMade) {
  EXPECT_EQ(heard.outdated, 0);
  const auto chunk = effect->chunk();
  EXPECT_TRUE(effect->takeChunk(std::vector(chunk.begin(), chunk.end())));
  EXPECT_GT(heard.outdated, 0);
  EXPECT_EQ(heard.begun, heard.ended);
  EXPECT_TRUE(heard.edited.empty());
  const int before = heard.outdated;
  effect.reset();
  EXPECT_EQ(heard.outdated, before);
}

// A chunk of the other byte order is turned where it stands: the caller's stays as it was.
TEST_F(Hosted, LeavesTheCallersChunkAsItIs) {
  const auto own = effect->chunk();
  std::vector<unsigned char> turned(own.begin(), own.end());
  std::reverse(turned.begin(), turned.begin() + 4);      // the tag
  std::reverse(turned.begin() + 4, turned.begin() + 8);  // the effect's number
  const std::vector<unsigned char> before = turned;
  effect->takeChunk(turned);
  EXPECT_EQ(turned, before);
  EXPECT_FALSE(effect->takeChunk({}));
}

// Without a display none opens, and the size is that of one that were opened now.
TEST_F(Hosted, GivesTheWindowTheScaleThatItIsOpenedWith) {
  const ScopedVariable display("DISPLAY", nullptr);
  const ScopedVariable desktop("GDK_SCALE", "3");
  EXPECT_FALSE(effect->openWindow(nullptr, 2.0F));
  EXPECT_EQ(effect->windowSize().width, 604);  // twice its 302 pixels
  EXPECT_EQ(effect->windowSize().height, 502);
  EXPECT_FALSE(effect->openWindow(nullptr));
  EXPECT_EQ(effect->windowSize().width, 906);
}

TEST_F(Hosted, StartsAgainOnlyWhereItIsStarted) {
  effect->startAgain();
  EXPECT_FALSE(effect->isStarted());
  effect->start();
  effect->startAgain();
  EXPECT_TRUE(effect->isStarted());
  effect->stop();
  EXPECT_FALSE(effect->isStarted());
}

// Nothing that was heard before is left in the delay, and a value set meanwhile is there at once.
TEST_F(Hosted, ForgetsWhatWasHeardWhenItStartsAgain) {
  const auto play = [this] {
    auto in = makeSignal<float>(Signal::kNoise, 4096);
    Stereo<float> out = in;
    float* ins[] = {in.left.data(), in.right.data()};
    float* outs[] = {out.left.data(), out.right.data()};
    effect->process(ins, outs, 4096);
    return out;
  };
  effect->setParameter(0, 0.75F);
  effect->start();
  const Stereo<float> first = play();
  EXPECT_FALSE(sameBits(play(), first));
  effect->setParameter(0, 0.1F);
  play();
  effect->setParameter(0, 0.75F);
  effect->startAgain();
  EXPECT_TRUE(sameBits(play(), first));
}
