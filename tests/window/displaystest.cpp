// Screens of other kinds, and more than one X server in a process.
#include <cmath>
#include <memory>

#include "otherserver.h"
#include "windowtest.h"

namespace {

class Displays : public WindowTest {
 protected:
  // On the screen that the reference pictures are of.
  static Picture usual() {
    WindowHost host;
    host.openEditor();
    return host.picture();
  }

  // The largest difference of a pixel's red, green or blue.
  static int difference(const Picture& one, const Picture& other) {
    if (one.width != other.width || one.pixels.size() != other.pixels.size()) return 256;
    int largest = 0;
    for (std::size_t i = 0; i < one.pixels.size(); ++i) {
      for (const unsigned shift : {0U, 8U, 16U}) {
        const auto channel = [shift](std::uint32_t pixel) {
          return static_cast<int>(pixel >> shift & 0xFFU);
        };
        largest = std::max(largest, std::abs(channel(one.pixels[i]) - channel(other.pixels[i])));
      }
    }
    return largest;
  }

  void expectWorking(WindowHost& host) {
    EXPECT_EQ(host.picture(), expected);
    const float before = host.parameter(4);
    host.click(places::kPhaseSwitch);
    EXPECT_EQ(host.parameter(4), 1.0F - before);
    host.click(places::kPhaseSwitch);
    host.moveAway();
  }

  const Picture expected = usual();
};

}  // namespace

TEST_F(Displays, AScreenOfFewerOrMoreColoursShowsTheSameAsFarAsItCan) {
  struct Kind {
    const char* screen;
    int step;  // of 256: between two of its blues, and one more for rounding
  };
  for (const Kind& kind : {Kind{"1024x768x16", 256 / 32 + 1}, Kind{"1024x768x15", 256 / 32 + 1},
                           Kind{"1024x768x30", 1}}) {
    SCOPED_TRACE(kind.screen);
    const OtherServer server({kind.screen});
    const ScopedVariable display("DISPLAY", server.display());
    WindowHost host;
    ASSERT_TRUE(host.openEditor());
    EXPECT_LE(difference(host.picture(), expected), kind.step);
    host.click(places::kPhaseSwitch);
    EXPECT_EQ(host.parameter(4), 1.0F);
  }
}

// The toolkit draws nothing with a palette.
TEST_F(Displays, OnAScreenOfEightBitsTheAnswerIsNo) {
  {
    const OtherServer server({"1024x768x8"});
    const ScopedVariable display("DISPLAY", server.display());
    WindowHost host;
    EXPECT_FALSE(host.openOnly());
    EXPECT_TRUE(host.hasChildWindows(0));
    host.idle(3);
  }
  EXPECT_EQ(usual(), expected);
}

// The toolkit draws on the first one only.
TEST_F(Displays, OnASecondScreenTheAnswerIsNo) {
  const OtherServer server({"1024x768x24", "1024x768x24"});
  {
    const ScopedVariable display("DISPLAY", server.display(1));
    WindowHost host;
    EXPECT_FALSE(host.openOnly());
    EXPECT_TRUE(host.hasChildWindows(0));
  }
  const ScopedVariable display("DISPLAY", server.display(0));
  EXPECT_EQ(usual(), expected);
}

TEST_F(Displays, OneServerAfterTheOther) {
  const OtherServer server({"1024x768x24"});
  WindowHost here;
  for (int round = 0; round < 3; ++round) {
    {
      const ScopedVariable display("DISPLAY", server.display());
      WindowHost there;
      ASSERT_TRUE(there.openEditor());
      expectWorking(there);
    }
    ASSERT_TRUE(here.openEditor());
    expectWorking(here);
    here.closeEditor();
  }
}

// The toolkit has one connection. A window that it made on the wrong server would stay blank.
TEST_F(Displays, WhileAWindowIsOpenOnAnotherServerTheAnswerIsNo) {
  const OtherServer server({"1024x768x24"});
  WindowHost here;
  ASSERT_TRUE(here.openEditor());
  const ScopedVariable display("DISPLAY", server.display());
  WindowHost there;
  EXPECT_FALSE(there.openOnly());
  EXPECT_TRUE(there.hasChildWindows(0));
  there.idle(3);
  expectWorking(here);
  here.closeEditor();
  EXPECT_TRUE(here.hasChildWindows(0));
  ASSERT_TRUE(there.openEditor());
  expectWorking(there);
}

TEST_F(Displays, AServerThatEndsLeavesTheProcessAndTheNextWindowAlone) {
  auto server = std::make_unique<OtherServer>(std::initializer_list<const char*>{"1024x768x24"});
  auto there = std::make_unique<ScopedVariable>("DISPLAY", server->display());
  WindowHost host;
  ASSERT_TRUE(host.openEditor());
  server->end();
  for (int pass = 0; pass < 5; ++pass) host.dispatch(effEditIdle);
  host.setParameter(0, 0.25F);
  host.dispatch(effEditIdle);
  host.closeEditor();
  there.reset();
  EXPECT_EQ(usual(), expected);
}
