// Processing while other threads automate, look and save: made for the thread sanitizer, and
// checked for what is heard.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <latch>
#include <random>
#include <thread>

#include "tests/effect/play.h"
#include "tests/effect/processpair.h"

namespace {

constexpr int kBlocks = 1500;
constexpr std::size_t kFrames = 64;

template <typename Sample>
class Threads : public testing::Test {};
TYPED_TEST_SUITE(Threads, Precisions, PrecisionNames);

// Keeps calling `step` on a thread of its own, until `ended`.
template <typename Step>
std::thread repeat(std::latch& start, const std::atomic<bool>& ended, Step step) {
  return std::thread([&start, &ended, step]() mutable {
    start.arrive_and_wait();
    while (!ended) {
      step();
      std::this_thread::yield();
    }
  });
}

}  // namespace

TYPED_TEST(Threads, AutomateLookAndSaveWhileTheAudioThreadProcesses) {
  ProcessPair pair;
  Trelvan& plugin = pair.plugin;
  pair.resume();
  std::latch start(3);
  std::atomic<bool> ended = false;
  std::atomic<int> moves = 0;
  std::atomic<int> looks = 0;
  std::atomic<int> astray = 0;  // what the user interface saw beside its range

  std::thread automation = repeat(start, ended, [&, random = std::mt19937(7)]() mutable {
    plugin.setParameter(static_cast<VstInt32>(random() % 7),
                        static_cast<float>(random() >> 8) * 0x1p-24F);
    ++moves;
  });
  std::thread userInterface = repeat(start, ended, [&] {
    char text[64] = {};
    const float meter = plugin.getWidthMeter();
    if (!(meter >= -0.5F && meter <= 0.5F)) ++astray;
    for (VstInt32 index = 0; index < 5; ++index) {
      const float value = plugin.getParameter(index);
      if (!(value >= 0.0F && value <= 1.0F)) ++astray;
      plugin.getParameterDisplay(index, text);
    }
    if (looks % 4 == 1) plugin.setPresetNo(looks % 32);
    if (looks % 4 == 3) {
      void* chunk = nullptr;
      const VstInt32 size = plugin.getChunk(&chunk, false);
      if (plugin.setChunk(chunk, size, false) != 0) ++astray;
    }
    ++looks;
  });

  const auto in = makeSignal<TypeParam>(Signal::kNoise, kFrames);
  int wild = 0;
  start.arrive_and_wait();
  for (int block = 0; block < kBlocks || moves < 100 || looks < 100; ++block) {
    const auto out = play(plugin, in);
    for (std::size_t i = 0; i < kFrames; ++i) {
      // At most mid of 1, and a side of gain 2 with a tap of 1 on top of its own 1.
      if (!(std::fabs(out.left[i]) <= TypeParam(5)) || !(std::fabs(out.right[i]) <= TypeParam(5)))
        ++wild;
    }
  }
  ended = true;
  automation.join();
  userInterface.join();
  EXPECT_EQ(wild, 0);
  EXPECT_EQ(astray, 0);

  // Whatever happened, the next start is as good as new.
  for (int index = 0; index < 5; ++index) pair.setParameter(index, index == 4 ? 0.0F : 0.75F);
  pair.resume();
  EXPECT_TRUE(pair.all(makeSignal<TypeParam>(Signal::kNoise, 5000)));
}

TYPED_TEST(Threads, InstancesDoNotHearEachOther) {
  std::latch start(2);
  std::atomic<int> failures = 0;
  const auto live = [&](int preset) {
    ProcessPair pair;
    pair.setPreset(preset);
    const auto signal =
        makeSignal<TypeParam>(Signal::kNoise, 20000, static_cast<std::uint32_t>(preset));
    start.arrive_and_wait();
    if (!pair.all(signal, {kFrames})) ++failures;
  };
  std::thread first(live, 3);
  std::thread second(live, 14);
  first.join();
  second.join();
  EXPECT_EQ(failures, 0);
}
