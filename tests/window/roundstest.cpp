// Opening and closing over and over: nothing grows, and nothing is left behind.
#include <memory>

#include "processstate.h"
#include "windowtest.h"

namespace {

#ifdef TRELVAN_SANITIZED
constexpr int kRounds = 150;  // of a build whose every call costs ten times as much
#else
constexpr int kRounds = 2000;
#endif
constexpr int kWarmUp = kRounds / 10;

class Rounds : public WindowTest, public ::testing::WithParamInterface<int> {};

// Some rounds close a window before it was ever drawn, some after, some with a control under the mouse.
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
  for (std::size_t i = 0; i < count; ++i) hosts.push_back(std::make_unique<WindowHost>(static_cast<int>(i)));
  long memory = 0, serverMemory = 0, files = 0, threads = 0;
  for (int round = 0; round < kRounds; ++round) {
    if (round == kWarmUp) {
      memory = resident();
      serverMemory = residentOfServer();
      files = openFiles();
      threads = threadCount();
    }
    for (const auto& host : hosts) ASSERT_TRUE(host->openOnly());
    for (std::size_t i = 0; i < count; ++i) use(*hosts[(i + static_cast<std::size_t>(round)) % count], round);
    // In the order of opening, or in the opposite one.
    for (std::size_t i = 0; i < count; ++i) {
      WindowHost& host = *hosts[round % 2 == 0 ? i : count - 1 - i];
      if (host.isEditorOpen()) host.closeEditor();
    }
    for (const auto& host : hosts) ASSERT_TRUE(host->hasChildWindows(0));
  }
  RecordProperty("kilobytes", static_cast<int>(resident() - memory));
  RecordProperty("serverKilobytes", static_cast<int>(residentOfServer() - serverMemory));
  std::printf("%zu instances, %d rounds: %+ld kB, server %+ld kB\n", count, kRounds - kWarmUp, resident() - memory,
              residentOfServer() - serverMemory);
  EXPECT_EQ(openFiles(), files);
  EXPECT_EQ(threadCount(), threads);
}

INSTANTIATE_TEST_SUITE_P(Instances, Rounds, ::testing::Values(1, 2, 3));
