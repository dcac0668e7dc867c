// Long random walks of a host over one instance, against the reference, bit by bit.
#include <gtest/gtest.h>

#include "tests/effect/chance.h"
#include "tests/effect/processpair.h"

namespace {

class Walk : public Chance {
 public:
  using Chance::Chance;

  // Both ends and the switches' threshold often, everything between them, seldom what no host
  // should send.
  float value() {
    if (oneIn(50)) return oneIn(2) ? 1.5F : -0.25F;
    constexpr float kMarks[] = {0.0F, 1.0F, 0.49F, 0.5F};
    return oneIn(3) ? kMarks[below(4)] : static_cast<float>(bits() >> 8) * 0x1p-24F;
  }

  int blockSize() {
    constexpr int kSizes[] = {0, 1, 2, 16, 31, 64, 127, 256, 509, 512, 1024, 2500};
    return oneIn(4) ? below(700) : kSizes[below(static_cast<int>(std::size(kSizes)))];
  }

  float rate() {
    constexpr float kRates[] = {8000.0F,  11025.0F, 44100.0F,  44100.5F,
                                48000.0F, 96000.0F, 192000.0F, 384000.0F};
    return kRates[below(static_cast<int>(std::size(kRates)))];
  }
};

constexpr Layout kWalkLayouts[] = {
    kStereo,
    {"in place", 0, 1, 0, 1},
    {"in place, crossed", 0, 1, 1, 0},
    {"mono in", 0, 1, 2, 3, false},
    {"mono arrangement, one output", 0, 1, 2, 2, true, true, 1},
};

// One form of the kernel after the other, from seed to seed.
void takeForm(Trelvan& plugin, std::uint32_t seed) {
  const kernel::Form* const* forms = kernel::usableForms();
  std::uint32_t count = 0;
  while (forms[count] != nullptr) ++count;
  plugin.useKernel(*forms[seed % count]);
}

template <typename Sample>
class ProcessAutomation : public testing::Test {};
TYPED_TEST_SUITE(ProcessAutomation, Precisions, PrecisionNames);

}  // namespace

// Parameters only, as an automation lane moves them.
TYPED_TEST(ProcessAutomation, EqualsTheReferenceBlockByBlock) {
  const auto signal = makeSignal<TypeParam>(Signal::kNoise, 2500);
  for (std::uint32_t seed = 1; seed <= 10; ++seed) {
    Walk walk(seed);
    ProcessPair pair;
    takeForm(pair.plugin, seed);
    pair.setSampleRate(walk.rate());
    pair.resume();
    for (int step = 0; step < 500; ++step) {
      while (walk.oneIn(2)) pair.setParameter(walk.below(7), walk.value());
      const int frames = walk.blockSize();
      const auto first = static_cast<std::size_t>(walk.below(2501 - frames));
      ASSERT_TRUE(pair.block(signal, first, frames)) << "seed " << seed << ", step " << step;
    }
  }
}

// Everything a host may do between two blocks, and both precisions in turn.
TEST(ProcessHostLife, EqualsTheReferenceThroughout) {
  constexpr Signal kKinds[] = {Signal::kNoise, Signal::kSine, Signal::kDenormals, Signal::kSteady};
  for (std::uint32_t seed = 100; seed < 116; ++seed) {
    Walk walk(seed);
    ProcessPair pair;
    takeForm(pair.plugin, seed / 4);  // each kind of signal in each form
    const Signal kind = kKinds[seed % std::size(kKinds)];
    const auto singles = makeSignal<float>(kind, 2500, seed);
    const auto doubles = makeSignal<double>(kind, 2500, seed);
    for (int step = 0; step < 400; ++step) {
      while (walk.oneIn(2)) pair.setParameter(walk.below(7), walk.value());
      if (walk.oneIn(20)) pair.setPreset(walk.below(32));
      // while on; in force from the next resume or suspend
      if (walk.oneIn(30)) pair.setSampleRate(walk.rate());
      if (walk.oneIn(30)) pair.suspend();
      if (walk.oneIn(30)) pair.resume();
      const Layout& layout = kWalkLayouts[walk.below(static_cast<int>(std::size(kWalkLayouts)))];
      const int frames = walk.blockSize();
      const auto first = static_cast<std::size_t>(walk.below(2501 - frames));
      const auto result = walk.oneIn(2) ? pair.block(singles, first, frames, layout)
                                        : pair.block(doubles, first, frames, layout);
      ASSERT_TRUE(result) << "seed " << seed << ", step " << step;
    }
  }
}
