// What a host hears from the module: delay, width, mono inputs and bypass, in both precisions.
#include <gtest/gtest.h>

#include "tests/module/instance.h"

namespace {

constexpr std::size_t kFrames = 4000;

template <typename Sample>
struct Sound {
  std::vector<Sample> left = std::vector<Sample>(kFrames);
  std::vector<Sample> right = std::vector<Sample>(kFrames);
};

void process(AEffect* effect, float** ins, float** outs) {
  effect->processReplacing(effect, ins, outs, static_cast<VstInt32>(kFrames));
}
void process(AEffect* effect, double** ins, double** outs) {
  effect->processDoubleReplacing(effect, ins, outs, static_cast<VstInt32>(kFrames));
}

template <typename Sample>
class Processing : public ModuleTest {
 protected:
  // Switched on at 44100 Hz without emphasis.
  void start(Instance& instance, float width, float baseFreq, float processOn = 1.0F) {
    instance.setSampleRate(44100.0F);
    const float values[] = {width, baseFreq, 0.0F, processOn, 0.0F};
    for (VstInt32 index = 0; index < 5; ++index) instance.setParameter(index, values[index]);
    instance.mainsChanged(true);
  }
  Sound<Sample> render(Instance& instance, Sound<Sample> in) {
    Sound<Sample> out;
    Sample* ins[] = {in.left.data(), in.right.data()};
    Sample* outs[] = {out.left.data(), out.right.data()};
    process(instance.effect, ins, outs);
    return out;
  }

  static Sound<Sample> impulse() {
    Sound<Sample> sound;
    sound.left[0] = sound.right[0] = 1;
    return sound;
  }
  // Values whose sums and halves are exact.
  static Sound<Sample> coarse() {
    Sound<Sample> sound;
    std::mt19937 random(3);
    for (std::size_t i = 0; i < kFrames; ++i) {
      sound.left[i] = static_cast<Sample>(static_cast<int>(random() % 2048) - 1024) / 1024;
      sound.right[i] = static_cast<Sample>(static_cast<int>(random() % 2048) - 1024) / 1024;
    }
    return sound;
  }
};

using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(Processing, Precisions);

// One period: 44100 / 20 = 2205 frames, and 44.1, of which the fraction is dropped from the read
// offset 16384 - 44.1.
TYPED_TEST(Processing, DelaysTheSideByOnePeriodOfTheBaseFrequency) {
  for (const auto& [baseFreq, frames] : {std::pair{0.0F, 2205U}, std::pair{1.0F, 45U}}) {
    Instance instance(this->module);
    this->start(instance, 0.5F, baseFreq);
    const auto out = this->render(instance, this->impulse());
    Sound<TypeParam> expected;
    expected.left[0] = expected.right[0] = 1;
    expected.left[frames] = TypeParam(0.5);
    expected.right[frames] = TypeParam(-0.5);
    EXPECT_EQ(out.left, expected.left) << frames;
    EXPECT_EQ(out.right, expected.right) << frames;
  }
}

TYPED_TEST(Processing, GivesMidOnBothSidesAtWidthZero) {
  Instance instance(this->module);
  this->start(instance, 0.0F, 0.5F);
  const auto in = this->coarse();
  const auto out = this->render(instance, in);
  EXPECT_EQ(out.left, out.right);
  for (std::size_t i = 0; i < kFrames; ++i)
    ASSERT_EQ(out.left[i], (in.left[i] + in.right[i]) / 2) << i;
}

TYPED_TEST(Processing, TakesTheInputSampleAsMidWhereTheSecondInputIsMissingOrTheFirst) {
  auto in = this->coarse();
  for (const bool missing : {true, false}) {
    Instance instance(this->module);
    this->start(instance, 0.5F, 1.0F);
    Sound<TypeParam> out;
    TypeParam* ins[] = {in.left.data(), missing ? nullptr : in.left.data()};
    TypeParam* outs[] = {out.left.data(), out.right.data()};
    process(instance.effect, ins, outs);
    for (std::size_t i = 0; i < kFrames; ++i)
      ASSERT_EQ((out.left[i] + out.right[i]) / 2, in.left[i]) << i;
  }
}

TYPED_TEST(Processing, GivesTheInputsThemselvesWhenProcessIsOff) {
  Instance instance(this->module);
  this->start(instance, 1.0F, 0.5F, 0.49F);
  const auto in = this->coarse();
  const auto out = this->render(instance, in);
  EXPECT_EQ(out.left, in.left);
  EXPECT_EQ(out.right, in.right);
  instance.setParameter(3, 0.5F);
  EXPECT_NE(this->render(instance, in).left, in.left) << "on again";
}

// Which a factory preset that widens does not.
TYPED_TEST(Processing, FactoryPresetsInitDoNotWiden) {
  Instance instance(this->module);
  for (const std::int32_t preset : {0, 24, 31}) {
    auto chunk = instance.chunk();
    std::memcpy(chunk.data() + 8 + 17, &preset, sizeof preset);  // the current preset
    ASSERT_EQ(instance.setChunk(chunk), 0);
    instance.mainsChanged(true);
    const auto out = this->render(instance, this->coarse());
    EXPECT_EQ(out.left, out.right) << preset;
  }
  auto chunk = instance.chunk();
  chunk[8 + 17] = 1;
  instance.setChunk(chunk);
  instance.mainsChanged(true);
  const auto out = this->render(instance, this->coarse());
  EXPECT_NE(out.left, out.right);
}

}  // namespace
