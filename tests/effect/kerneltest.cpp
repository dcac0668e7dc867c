// Every form of the kernel that this processor can run against the reference, bit by bit: long
// random walks over parameters, sample rates, precisions, blocks and wirings.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "tests/effect/chance.h"
#include "tests/effect/kernelpair.h"
#include "tests/support/testsignals.h"

namespace {

constexpr int kLongest = 2500;  // frames of a block

std::vector<const kernel::Form*> forms() {
  std::vector<const kernel::Form*> found;
  for (const kernel::Form* const* form = kernel::usableForms(); *form != nullptr; ++form)
    found.push_back(*form);
  return found;
}

std::string nameOfForm(const testing::TestParamInfo<const kernel::Form*>& form) {
  return form.param->name;
}

// Frames of a walk, for long runs: TRELVAN_FRAMES=8000000.
int walkFrames() {
  const char* asked = std::getenv("TRELVAN_FRAMES");
  return asked != nullptr ? std::atoi(asked) : 1'000'000;
}

class Walk : public Chance {
 public:
  using Chance::Chance;

  // Both ends and the switches' threshold often, everything between them, values so small that
  // the gains glide through the flush constant, seldom what no host should send.
  float value() {
    if (oneIn(60)) return oneIn(2) ? 1.5F : -0.25F;
    if (oneIn(30)) return 1e-9F * static_cast<float>(below(100));
    constexpr float kMarks[] = {0.0F, 1.0F, 0.49F, 0.5F, -0.0F};
    return oneIn(3) ? kMarks[below(5)] : static_cast<float>(bits() >> 8) * 0x1p-24F;
  }

  int frames() {
    constexpr int kSizes[] = {0,  1,   2,   3,   15,  16,  31,  32,  33,  63,   64,  65,
                              96, 127, 255, 256, 257, 320, 509, 512, 513, 1024, 2048};
    return oneIn(4) ? below(kLongest) : kSizes[below(static_cast<int>(std::size(kSizes)))];
  }

  // Hz. From 327680 on the lowest base frequency's period is longer than the line.
  float rate() {
    constexpr float kRates[] = {8000.0F,   11025.0F,  22050.0F,  44100.0F,  44100.5F,
                                48000.0F,  88200.0F,  96000.0F,  176400.0F, 192000.0F,
                                327680.0F, 352800.0F, 384000.0F, 705600.0F, 768000.0F};
    return kRates[below(static_cast<int>(std::size(kRates)))];
  }

  Signal signal() {
    constexpr Signal kKinds[] = {Signal::kNoise,     Signal::kNoise,   Signal::kSine,
                                 Signal::kDenormals, Signal::kSilence, Signal::kImpulse,
                                 Signal::kSteady,    Signal::kHuge};
    return kKinds[below(static_cast<int>(std::size(kKinds)))];
  }

  Wiring wiring() {
    if (oneIn(2)) return {0, 1, 2, 3};
    return {below(4), below(4), below(4), below(4)};
  }
};

template <typename Sample>
std::array<std::vector<Sample>, 4> buffers(Walk& walk, int frames) {
  const auto size = static_cast<std::size_t>(frames);
  auto first = makeSignal<Sample>(walk.signal(), size, static_cast<std::uint32_t>(walk.below(99)));
  auto second = makeSignal<Sample>(walk.signal(), size, static_cast<std::uint32_t>(walk.below(99)));
  std::array<std::vector<Sample>, 4> all{first.left, first.right, second.left, second.right};
  if (frames > 0 && walk.oneIn(40)) {
    constexpr Sample kBad[] = {std::numeric_limits<Sample>::quiet_NaN(),
                               std::numeric_limits<Sample>::infinity(),
                               -std::numeric_limits<Sample>::infinity()};
    auto& buffer = all[static_cast<std::size_t>(walk.below(4))];
    buffer[static_cast<std::size_t>(walk.below(frames))] = kBad[walk.below(3)];
  }
  return all;
}

class Kernel : public testing::TestWithParam<const kernel::Form*> {
 protected:
  // Whatever may happen between blocks.
  static void happen(Walk& walk, KernelPair& pair) {
    while (walk.oneIn(3)) pair.reference->setParameter(walk.below(5), walk.value());
    if (walk.oneIn(4)) pair.reference->setParameter(3, 1.0F);
    if (walk.oneIn(60)) pair.resume(walk.rate());
    if (walk.oneIn(120)) pair.suspend(walk.rate());
  }
};

TEST_P(Kernel, EqualsTheReferenceOnALongWalk) {
  Walk walk(1);
  KernelPair pair(*GetParam());
  pair.resume(44100.0F);
  int played = 0;
  for (int step = 0; played < walkFrames(); ++step) {
    happen(walk, pair);
    const int frames = walk.frames();
    const Wiring wiring = walk.wiring();
    const auto result = walk.oneIn(2) ? pair.block(buffers<float>(walk, frames), frames, wiring)
                                      : pair.block(buffers<double>(walk, frames), frames, wiring);
    ASSERT_TRUE(result) << "step " << step << ", " << frames << " frames, wired " << wiring.inL
                        << wiring.inR << wiring.outL << wiring.outR;
    if (step % 20 == 0) {
      ASSERT_TRUE(pair.linesAlike()) << "step " << step;
    }
    played += frames;
  }
  EXPECT_TRUE(pair.linesAlike());
}

// Every wiring of four channels over four buffers, at rest and gliding, on and off.
TEST_P(Kernel, EqualsTheReferenceInEveryWiring) {
  Walk walk(2);
  for (const float process : {1.0F, 0.0F}) {
    KernelPair pair(*GetParam());
    pair.reference->setParameter(0, 0.8F);
    pair.reference->setParameter(3, process);
    pair.resume(48000.0F);
    for (int number = 0; number < 4 * 4 * 4 * 4; ++number) {
      const Wiring wiring{number & 3, number >> 2 & 3, number >> 4 & 3, number >> 6};
      if (number % 16 == 0) pair.reference->setParameter(2, walk.value());
      ASSERT_TRUE(pair.block(buffers<float>(walk, 300), 300, wiring)) << number;
      ASSERT_TRUE(pair.block(buffers<double>(walk, 77), 77, wiring)) << number;
    }
  }
}

// Offsets on both sides of the line's end, where a run overwrites what it still reads: at rest, and
// while the delay glides from one to the other and through the end.
TEST_P(Kernel, EqualsTheReferenceAroundTheLinesEnd) {
  Walk walk(3);
  constexpr int kRun = kernel::kRunFrames;
  constexpr int kGliding = kernel::kGlidingFrames;
  for (const int offset : {-kRun - 200,
                           -kRun - 1,
                           -kRun,
                           -kGliding,
                           -2,
                           -1,
                           0,
                           1,
                           2,
                           30,
                           kGliding - 1,
                           kGliding,
                           2 * kGliding - 1,
                           2 * kGliding,
                           kRun - 2,
                           kRun - 1,
                           kRun,
                           kRun + 1,
                           kRun + 40,
                           16383}) {
    KernelPair pair(*GetParam());
    pair.reference->setParameter(0, 0.9F);
    pair.reference->setParameter(2, 0.3F);
    pair.resume(768000.0F);
    pair.state.offset = pair.reference->delayCurrent = pair.reference->delayTarget = offset;
    for (const int target : {offset, -40, 40, 16370, 0}) {
      pair.reference->delayTarget = target;
      for (const int frames : {1, 64, 100, kRun, 700, 2000}) {
        ASSERT_TRUE(pair.block(buffers<float>(walk, frames), frames, {0, 1, 2, 3}))
            << offset << " to " << target;
        ASSERT_TRUE(pair.block(buffers<double>(walk, frames), frames, {0, 1, 2, 3}))
            << offset << " to " << target;
      }
      ASSERT_TRUE(pair.linesAlike()) << offset << " to " << target;
    }
  }
}

// A run that begins where the reading comes to the line's first place: its first tap is the line's
// last frame, and the run before was at rest, so that nothing is looked at again.
TEST_P(Kernel, EqualsTheReferenceWhereARunReadsFromTheLinesFirstPlaceOn) {
  Walk walk(5);
  KernelPair pair(*GetParam());
  pair.reference->setParameter(0, 0.9F);
  pair.reference->setParameter(2, 0.6F);
  pair.resume(44100.0F);
  const int period = kernel::kLineFrames - pair.reference->delayTarget;
  // the first frame is written at place 1, and again after a whole line
  for (const int frames : {kernel::kLineFrames, period - 1, 64, 300}) {
    ASSERT_TRUE(pair.block(buffers<float>(walk, frames), frames, {0, 1, 2, 3})) << frames;
    ASSERT_TRUE(pair.linesAlike()) << frames;
  }
}

// Targets that stay while the glides are set beside them: what was at rest must be looked at again.
// A gain as small as this one is no longer the same after the flush.
TEST_P(Kernel, EqualsTheReferenceWhereAPauseSetsAGlideThatRested) {
  Walk walk(6);
  KernelPair pair(*GetParam());
  const auto sound = buffers<float>(walk, 512);
  pair.reference->setParameter(0, 1e-9F);
  pair.reference->setParameter(2, 1e-17F);
  for (int pause = 0; pause < 3; ++pause) {
    pair.resume(44100.0F);
    for (int block = 0; block < 3; ++block)
      ASSERT_TRUE(pair.block(sound, 512, {0, 1, 2, 3})) << pause << ", block " << block;
  }
}

// Seconds of a glide, through its last steps, to where it stalls, and down to nothing through the
// flush constant.
TEST_P(Kernel, EqualsTheReferenceUntilAGlideRests) {
  Walk walk(4);
  const auto sound = buffers<float>(walk, 512);
  for (const float goal : {0.0F, 1e-6F, 0.3F, 1.0F}) {
    KernelPair pair(*GetParam());
    for (const int index : {0, 1, 2}) pair.reference->setParameter(index, 0.7F);
    pair.resume(8000.0F);
    for (const int index : {0, 1, 2}) pair.reference->setParameter(index, goal);
    for (int block = 0; block < 200; ++block)  // 12.8 s
      ASSERT_TRUE(pair.block(sound, 512, {0, 1, 2, 3})) << goal << ", block " << block;
    EXPECT_EQ(pair.state.offset, pair.reference->delayTarget);
  }
}

// A level that only faded would come to the denormal numbers, and each block would take longer.
TEST_P(Kernel, EndsTheFadingOfLevelsFarAboveTheDenormalNumbers) {
  constexpr double kLeast = 1e-38;  // beside the flush constant, 1e-21, a double holds no less
  const auto ended = [](double level) { return level == 0.0 || level > kLeast; };
  const auto noise = makeSignal<float>(Signal::kNoise, 512);
  const std::array<std::vector<float>, 4> sound{noise.left, noise.right, noise.left, noise.right};
  std::array<std::vector<float>, 4> silence;
  silence.fill(std::vector<float>(512, 0.0F));
  for (const float process : {1.0F, 0.0F}) {
    KernelPair pair(*GetParam());
    pair.reference->setParameter(0, 0.8F);
    pair.resume(8000.0F);
    ASSERT_TRUE(pair.block(sound, 512, {0, 1, 2, 3}));
    EXPECT_GT(pair.state.midLevel, 0.0);
    EXPECT_GT(pair.state.sideLevel, 0.0);
    pair.reference->setParameter(3, process);
    for (int block = 0; block < 400; ++block)  // 25.6 s, in which a level falls by 1e-51
      ASSERT_TRUE(pair.block(silence, 512, {0, 1, 2, 3})) << process << ", block " << block;
    EXPECT_TRUE(ended(pair.state.midLevel)) << process;
    EXPECT_TRUE(ended(pair.state.sideLevel)) << process;
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, Kernel, testing::ValuesIn(forms()), nameOfForm);

}  // namespace

// The best comes first, and what every processor has comes last.
TEST(KernelForms, EndWithTheBaseline) {
  ASSERT_FALSE(forms().empty());
  EXPECT_STREQ(forms().back()->name, "baseline");
#if defined(__x86_64__)
  EXPECT_EQ(forms().size(), __builtin_cpu_supports("avx2") != 0 ? 2U : 1U);
  if (forms().size() > 1) {
    EXPECT_STREQ(forms().front()->name, "avx2");
  }
#else
  EXPECT_EQ(forms().size(), 1U);
#endif
}
