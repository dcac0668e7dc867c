// What an LV2 host calls on its audio thread asks for no memory, takes no lock and calls nothing of
// the system's.
#include <gtest/gtest.h>
#include <unistd.h>

#include "host/validate/means/systemcalltrap.h"
#include "tests/effect/realtimewatch.h"
#include "tests/formats/lv2player.h"

namespace {

constexpr std::size_t kFrames = 4096;

struct Ready {
  explicit Ready(std::uint32_t index)
      : sound(makeSignal<float>(Signal::kNoise, kFrames)),
        plugin({0.75F, 0.25F, 0.25F, 1.0F, 0.0F}, 48000.0, index) {
    plugin.connectAudio(sound.left.data(), sound.right.data(), sound.left.data(),
                        sound.right.data());
    plugin.activate();
  }
  Stereo<float> sound;
  Lv2Player plugin;
};

// The first block, with values that are not the effect's yet; later ones with others; and a port
// that has gone.
void play(Ready& ready) {
  for (const std::size_t frames : {std::size_t{0}, std::size_t{64}, kFrames})
    ready.plugin.run(frames);
  ready.plugin.controls = {0.3F, 0.9F, 0.5F, 0.0F, 1.0F};  // as many: in the same place
  ready.plugin.run(kFrames);
  ready.plugin.connect(0, nullptr);
  ready.plugin.run(kFrames);
  ready.plugin.connect(0, ready.sound.left.data());
  ready.plugin.controls[3] = 1.0F;
  ready.plugin.run(kFrames);
}

void leave(int number) {
  _exit(number > 0 ? number : 255);
}

[[noreturn]] void playTrapped(std::uint32_t index) {
  Ready ready(index);
  if (!trapSystemCalls(leave)) _exit(254);
  play(ready);
  _exit(0);
}

}  // namespace

class Lv2Realtime : public testing::TestWithParam<std::uint32_t> {};

TEST_P(Lv2Realtime, RunAllocatesAndLocksNothing) {
  Ready ready(GetParam());
  RealtimeWatch watch;
  play(ready);
  EXPECT_EQ(RealtimeWatch::allocations(), 0U);
  EXPECT_EQ(RealtimeWatch::locks(), 0U);
}

TEST_P(Lv2Realtime, RunCallsNothingOfTheSystem) {
  EXPECT_EXIT(playTrapped(GetParam()), testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(Plugins, Lv2Realtime, testing::Values(kLv2Stereo, kLv2Mono));
