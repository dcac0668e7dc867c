// What instances and windows share, and what one of them takes more.
#include <unistd.h>

#include <memory>

#include "processstate.h"
#include "tests/support/ownprocess.h"
#include "windowtest.h"

namespace {

// Each in a process of its own, in which there is no other instance.
class Sharing : public WindowTest {
 protected:
  using Hosts = std::vector<std::unique_ptr<WindowHost>>;

  static Hosts make(int count) {
    Hosts hosts;
    for (int i = 0; i < count; ++i) hosts.push_back(std::make_unique<WindowHost>(i % 3));
    return hosts;
  }
};

}  // namespace

// One is the toolkit's, which stays for its next window, and one is ours.
TEST_F(Sharing, AllWindowsHaveTwoConnectionsToTheServer) {
  EXPECT_TRUE(succeeded(inProcess([] {
    TestDisplay display;
    const int none = display.clients();
    // The server takes a moment to see a connection's end.
    const auto becomes = [&display](int count) {
      for (int tries = 0; tries < 1000 && display.clients() != count; ++tries) usleep(1000);
      return display.clients() == count;
    };
    {
      const Hosts hosts = make(3);  // each with a connection of the test's own
      const int closed = display.clients();
      for (int round = 0; round < 3; ++round) {
        for (const auto& host : hosts) {
          EXPECT_TRUE(host->openEditor());
          EXPECT_TRUE(becomes(closed + 2)) << display.clients() - closed;
        }
        hosts[1]->closeEditor();
        hosts[0]->closeEditor();
        EXPECT_TRUE(becomes(closed + 2)) << display.clients() - closed;
        hosts[2]->closeEditor();
        EXPECT_TRUE(becomes(closed + 1)) << display.clients() - closed;
      }
    }
    EXPECT_TRUE(becomes(none)) << display.clients() - none;
  })));
}

#ifndef TRELVAN_SANITIZED  // whose allocator does not tell what is in use
constexpr long kBackground = places::kWidth * 251 * 4;  // bytes of its pixels

// The background alone has 303 kB of pixels; it was in memory once for each instance.
TEST_F(Sharing, ThePicturesAreInMemoryOnceForAllInstances) {
  EXPECT_TRUE(succeeded(inProcess([] {
    constexpr int kInstances = 10;
    const Hosts hosts = make(kInstances);
    const auto ask = [](WindowHost& host) { EXPECT_GT(host.screenArea().right, 0); };
    const long unasked = heapInUse();
    ask(*hosts.front());
    const long first = heapInUse();
    for (const auto& host : hosts) ask(*host);
    const long all = heapInUse();
    EXPECT_GE(first - unasked, kBackground);
    EXPECT_LT(all - first, kBackground / 10);
  })));
}

// The next instance's question loads them again.
TEST_F(Sharing, ThePicturesGoWithTheLastInstanceThatShowedThem) {
  EXPECT_TRUE(succeeded(inProcess([] {
    for (int round = 0; round < 3; ++round) {
      const Hosts hosts = make(2);
      const long unasked = heapInUse();
      EXPECT_GT(hosts.front()->screenArea().right, 0);
      EXPECT_GE(heapInUse() - unasked, kBackground) << round;
      for (const auto& host : hosts) EXPECT_TRUE(host->openEditor());
    }
  })));
}
#endif
