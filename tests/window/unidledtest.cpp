// A host that opens the window and never idles it, but runs the desktop's main loop.
#include <glib.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

#include "editor/base/aeffguieditor.h"
#include "windowtest.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class Unidled : public WindowTest {
 protected:
  Unidled() { host.display.moveTo(700, 600); }  // away from the window

  static bool loopUntil(const std::function<bool()>& holds,
                        milliseconds longest = milliseconds(10000)) {
    const auto end = steady_clock::now() + longest;
    while (!holds() && steady_clock::now() < end) {
      while (g_main_context_iteration(nullptr, FALSE) != 0) continue;
      std::this_thread::sleep_for(milliseconds(2));
    }
    return holds();
  }
  static void loopFor(milliseconds time) {
    loopUntil([] { return false; }, time);
  }

  // The mouse, without any idling.
  void moveTo(int x, int y) {
    host.display.moveTo(area().left + x, area().top + y);
    loopFor(milliseconds(60));
  }
  void click(const Area& place) {
    moveTo(place.centreX(), place.centreY());
    host.display.press(1);
    loopFor(milliseconds(60));
    host.display.release(1);
    loopFor(milliseconds(60));
  }
  Area area() { return host.screenArea(); }

  // As a host shows it that idles.
  Picture usual() {
    host.openEditor();
    const Picture picture = host.picture();
    host.closeEditor();
    return picture;
  }

  WindowHost host;
};

// An editor with an empty window, which counts its passes.
class CountingEditor : public AEffGUIEditor {
 public:
  CountingEditor() : AEffGUIEditor(nullptr) {}
  ~CountingEditor() override { closeFrame(); }
  bool open(void* window) override {
    AEffGUIEditor::open(window);
    return openFrame(window);
  }
  void idle() override {
    ++passes;
    AEffGUIEditor::idle();
  }
  int passes = 0;

 protected:
  ERect windowSize() override { return {0, 0, 100, 100}; }
};

}  // namespace

TEST_F(Unidled, IsDrawnAndDrawnAnew) {
  const Picture expected = usual();
  host.setParameter(1, 0.25F);
  const Picture moved = usual();
  host.setParameter(1, 0.75F);
  ASSERT_TRUE(host.openOnly());
  EXPECT_FALSE(host.pictureNow() == moved);
  host.setParameter(1, 0.25F);
  EXPECT_TRUE(loopUntil([&] { return host.pictureNow() == moved; }));
  EXPECT_FALSE(moved == expected);
}

TEST_F(Unidled, MovesItsMeter) {
  ASSERT_TRUE(host.openOnly());
  loopFor(milliseconds(500));
  const Picture still = host.pictureNow();
  host.play(0.5F, 0.5F, 44100);  // both alike: all of it in the middle
  EXPECT_TRUE(loopUntil([&] { return !(host.pictureNow() == still); }));
  EXPECT_TRUE(places::kMeter.contains(differingArea(still, host.pictureNow())));
}

TEST_F(Unidled, TakesADragAPressAndAName) {
  host.setParameter(0, 0.5F);
  ASSERT_TRUE(host.openOnly());
  loopFor(milliseconds(300));
  moveTo(places::handleX(0.5F), places::handleY(0));
  host.display.press(1);
  moveTo(places::handleX(0.75F), places::handleY(0));
  host.display.release(1);
  EXPECT_TRUE(loopUntil([&] { return host.parameter(0) > 0.7F; }));
  click(places::kPhaseSwitch);
  EXPECT_EQ(host.parameter(4), 1.0F);
  click(places::kName);
  for (const std::uint32_t key : {XKB_KEY_a, XKB_KEY_b, XKB_KEY_Return}) host.display.tap(key);
  EXPECT_TRUE(loopUntil([&] { return host.programName() == "ab"; }));
}

TEST_F(Unidled, EndsWithItsClosing) {
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(host.openOnly());
    loopFor(milliseconds(200));
    host.closeEditor();
    EXPECT_TRUE(host.hasChildWindows(0));
    loopFor(milliseconds(200));
  }
}

// As a host may that is told of a gesture.
TEST_F(Unidled, MayBeClosedFromInsideItsOwnPass) {
  ASSERT_TRUE(host.openOnly());
  loopFor(milliseconds(200));
  bool closed = false;
  host.onCall = [&](const HostCall& call) {
    if (call.opcode != audioMasterAutomate || closed) return;
    closed = true;
    host.closeEditor();
  };
  click(places::kPhaseSwitch);
  EXPECT_TRUE(closed);
  loopFor(milliseconds(200));
  EXPECT_TRUE(host.hasChildWindows(0));
  host.onCall = nullptr;
  EXPECT_TRUE(host.openEditor());
}

// One host has its windows on a thread that runs no such loop, while its main thread runs it.
TEST_F(Unidled, IsLeftAloneByTheLoopOfAnotherThread) {
  std::thread([&] { ASSERT_TRUE(host.openOnly()); }).join();
  const Picture before = host.pictureNow();
  loopFor(milliseconds(400));
  EXPECT_EQ(host.pictureNow(), before) << "nothing has been drawn";
  std::thread([&] { host.closeEditor(); }).join();
}

TEST_F(Unidled, GetsNoPassesBesideAHostsThatIdles) {
  CountingEditor editor;
  ASSERT_TRUE(editor.open(reinterpret_cast<void*>(std::uintptr_t{host.parent()})));
  const auto end = steady_clock::now() + milliseconds(600);
  int own = 0;
  milliseconds longestGap(0);  // a busy machine may keep the host from it
  for (auto last = steady_clock::now(); last < end; ++own) {
    editor.idle();
    loopFor(milliseconds(10));
    const auto now = steady_clock::now();
    longestGap = std::max(longestGap, std::chrono::duration_cast<milliseconds>(now - last));
    last = now;
  }
  EXPECT_GT(own, 3);
  if (longestGap >= milliseconds(99)) GTEST_SKIP() << "the machine is too busy";
  EXPECT_EQ(editor.passes, own);
}
