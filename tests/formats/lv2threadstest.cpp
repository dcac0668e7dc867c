// A host saves the state while its audio thread runs the plug-in and moves its ports.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/formats/directrecord.h"
#include "tests/formats/lv2player.h"

TEST(Lv2Threads, AStateSavedWhileItRunsIsWhole) {
  constexpr int kStates = 50;
  Lv2Player plugin({0.75F, 0.25F, 0.25F, 1.0F, 0.0F});
  plugin.activate();
  const std::size_t size = DirectRecord({}).chunk().size();
  std::atomic<bool> saving = true;
  std::atomic<int> blocks = 0;
  std::thread audio([&] {
    auto sound = makeSignal<float>(Signal::kNoise, 64);
    plugin.connectAudio(sound.left.data(), sound.right.data(), sound.left.data(),
                        sound.right.data());
    for (int block = 0; saving; ++block, ++blocks) {
      plugin.controls[0] = static_cast<float>(block % 100) / 100.0F;
      plugin.run(64);
    }
  });
  while (blocks == 0) std::this_thread::yield();
  for (int state = 0; state < kStates; ++state) {
    Lv2Kept kept;
    EXPECT_EQ(plugin.state().save(plugin.handle, Lv2Kept::store, &kept, 0, nullptr),
              LV2_STATE_SUCCESS);
    EXPECT_EQ(kept.bytes.size(), size);
  }
  saving = false;
  audio.join();
}
