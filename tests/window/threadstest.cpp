// The editor on a thread of its own, as one host has it, while the host's main thread works on the
// same instance.
#include <atomic>
#include <thread>

#include "windowtest.h"

namespace {

#ifdef TRELVAN_SANITIZED
constexpr int kOpenings = 10;
#else
constexpr int kOpenings = 40;
#endif

class Threads : public WindowTest {
 protected:
  WindowHost host;  // made on the main thread
};

}  // namespace

TEST_F(Threads, AWindowOnAnotherThreadWorks) {
  Picture shown;
  std::thread([&] {
    ASSERT_TRUE(host.openEditor());
    host.click(places::kPhaseSwitch);
    host.click(places::kRockerRight);
    host.moveAway();
    shown = host.picture();
    host.closeEditor();
  }).join();
  EXPECT_EQ(host.currentPreset(), 1);
  WindowHost other(1);
  other.setParameter(4, 1.0F);
  other.openEditor();
  other.click(places::kRockerRight);
  other.moveAway();
  EXPECT_EQ(other.picture(), shown);
}

TEST_F(Threads, EachOpeningMayComeFromANewThread) {
  for (int round = 0; round < 5; ++round) {
    std::thread([&] {
      ASSERT_TRUE(host.openEditor());
      host.click(places::kPhaseSwitch);
      host.closeEditor();
    }).join();
  }
  EXPECT_EQ(host.parameter(4), 1.0F);
}

TEST_F(Threads, ParametersNamesAndChunksMeanwhileAreSafe) {
  std::atomic<bool> stop{false};
  std::thread window([&] {
    for (int opening = 0; opening < kOpenings; ++opening) {
      ASSERT_TRUE(host.openOnly());
      for (int pass = 0; pass < 6; ++pass) {
        host.idle();
        std::this_thread::sleep_for(std::chrono::milliseconds(4));
      }
      if (opening % 4 == 3) {
        host.click(places::kMenu);
        host.click(places::listEntry(opening % 32));
      }
      if (opening % 4 == 1) host.click(places::kRockerRight);
      host.closeEditor();
    }
    stop = true;
  });
  std::thread audio([&] {
    while (!stop) {
      host.play(0.4F, 0.1F, 256);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  const std::vector<unsigned char> state = host.chunk();
  for (int round = 0; !stop; ++round) {
    for (VstInt32 index = 0; index < 5; ++index)
      host.setParameter(index, static_cast<float>(round % 10) * 0.1F);
    EXPECT_EQ(host.chunk().size(), state.size());
    if (round % 3 == 0) {
      EXPECT_EQ(host.setChunk(state), 0);
    }
    if (round % 3 == 1) host.setProgramName("round " + std::to_string(round));
    char text[64] = {};
    host.dispatch(effGetParamDisplay, round % 5, 0, text);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  window.join();
  audio.join();
  host.setChunk(state);
  EXPECT_EQ(host.chunk(), state);
}

// What the main thread set last is what the window shows in the end.
TEST_F(Threads, TheLastStateIsShown) {
  WindowHost other(1);
  other.setProgramName("final");
  other.setParameter(0, 0.6F);
  other.openEditor();
  const Picture expected = other.picture();
  const std::vector<unsigned char> state = other.chunk();
  std::atomic<int> step{0};
  Picture shown;
  other.closeEditor();  // one thread at a time has windows
  std::thread window([&] {
    ASSERT_TRUE(host.openEditor());
    step = 1;
    while (step != 2) host.idleFor(5, 1);
    shown = host.picture();
    host.closeEditor();
  });
  while (step != 1) std::this_thread::yield();
  for (int round = 0; round < 50; ++round) host.setParameter(0, static_cast<float>(round) * 0.02F);
  host.setChunk(state);
  step = 2;
  window.join();
  EXPECT_EQ(shown, expected);
}
