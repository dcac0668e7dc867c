// Opening and closing over and over: nothing grows, and nothing is left behind.
#include <algorithm>
#include <memory>
#include <thread>

#include "processstate.h"
#include "windowtest.h"

namespace {

#ifdef TRELVAN_SANITIZED
constexpr int kRounds = 150;  // of a build whose every call costs ten times as much
#else
constexpr int kRounds = 2000;
#endif
constexpr int kWarmUp = kRounds / 2;  // until then the text libraries fill their caches

struct State {
  long heap = 0;      // bytes
  long resident = 0;  // kB
  long files = 0;
  long threads = 0;
  long serverResources = 0;

  static State now(TestDisplay& display) {
    // The server takes back what a closed connection had when it comes to it.
    long resources = display.resources();
    for (int tries = 0; tries < 20; ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      resources = std::min(resources, display.resources());
    }
    return {heapInUse(), residentMemory(), openFiles(), threadCount(), resources};
  }
};

class Rounds : public WindowTest, public ::testing::WithParamInterface<int> {};

// Some rounds close a window before it was ever drawn, some after, some with a control
// under the mouse.
void use(WindowHost& host, int round) {
  switch (round % 4) {
    case 0:
      break;
    case 1:
      host.idle();
      break;
    case 2:
      host.idle(2);
      host.setParameter(0, static_cast<float>(round % 100) * 0.01F);
      host.idle();
      break;
    default:
      host.hover(places::kRockerRight);
      host.press();
      host.closeEditor();
      host.display.release(1);
      break;
  }
}

}  // namespace

TEST_P(Rounds, NothingGrowsAndNothingStays) {
  const auto count = static_cast<std::size_t>(GetParam());
  std::vector<std::unique_ptr<WindowHost>> hosts;
  for (std::size_t i = 0; i < count; ++i)
    hosts.push_back(std::make_unique<WindowHost>(static_cast<int>(i)));
  TestDisplay display;
  // A window that is drawn and whose events are all handled: what is measured then is what stays.
  const auto measured = [&] {
    for (const auto& host : hosts) {
      host->openEditor();
      host->closeEditor();
    }
    return State::now(display);
  };
  State warm;
  for (int round = 0; round < kRounds; ++round) {
    for (const auto& host : hosts) ASSERT_TRUE(host->openOnly());
    for (std::size_t i = 0; i < count; ++i)
      use(*hosts[(i + static_cast<std::size_t>(round)) % count], round);
    // In the order of opening, or in the opposite one.
    for (std::size_t i = 0; i < count; ++i) {
      WindowHost& host = *hosts[round % 2 == 0 ? i : count - 1 - i];
      if (host.isEditorOpen()) host.closeEditor();
    }
    for (const auto& host : hosts) {
      ASSERT_TRUE(host->hasChildWindows(0));
      host->forgetCalls();
    }
    if (round == kWarmUp) warm = measured();
  }
  const State end = measured();
  std::printf("%zu instances, %d rounds: heap %+ld bytes, resident %+ld kB\n", count,
              kRounds - kWarmUp, end.heap - warm.heap, end.resident - warm.resident);
  EXPECT_EQ(end.files, warm.files);
  EXPECT_EQ(end.threads, warm.threads);
  EXPECT_EQ(end.serverResources, warm.serverResources);
#ifndef TRELVAN_SANITIZED  // where the sanitizer looks for leaks itself, and keeps what has been
                           // freed
  constexpr int kSmallest = 32;  // bytes: what the allocator takes for one object, however small
  EXPECT_LT(end.heap - warm.heap, kSmallest * (kRounds - kWarmUp)) << "bytes";
  EXPECT_LE(end.resident - warm.resident, 2048) << "kB";
#endif
}

using Pointer = WindowTest;

TEST_F(Pointer, ALongWayOverTheWindowLeavesNothingBehind) {
  WindowHost host;
  host.openEditor();
  const auto wander = [&](int movements) {
    for (int step = 0; step < movements; ++step) host.moveTo(10 + step % 280, 10 + step / 7 % 230);
    host.moveAway();
    host.settle();
  };
  wander(300);
  const long before = heapInUse();
  constexpr int kMovements = 3000;
  wander(kMovements);
  EXPECT_LE(heapInUse() - before, kMovements) << "bytes";
}

INSTANTIATE_TEST_SUITE_P(Instances, Rounds, ::testing::Values(1, 2, 3));
