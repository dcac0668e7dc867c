// An editor is idled by the main loop where its host leaves it out, and only there.
#include "editor/base/idlewatch.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <new>
#include <optional>
#include <thread>

#include "editor/base/aeffguieditor.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Tells its watch of each pass, as every editor does.
class WatchedEditor : public AEffGUIEditor {
 public:
  WatchedEditor() : AEffGUIEditor(nullptr) {}
  void idle() override {
    if (watch) watch->idled();
    ++passes;
    if (work) work();
  }

  std::optional<IdleWatch> watch;
  int passes = 0;
  std::function<void()> work;

 protected:
  ERect windowSize() override { return {}; }
};

class Watch : public testing::Test {
 protected:
  // Runs the process's main loop.
  static bool runUntil(const std::function<bool()>& holds, milliseconds longest) {
    const auto end = steady_clock::now() + longest;
    while (!holds() && steady_clock::now() < end) {
      g_main_context_iteration(nullptr, FALSE);
      std::this_thread::sleep_for(milliseconds(1));
    }
    return holds();
  }
  bool passesReach(int count) {
    return runUntil([&] { return editor.passes >= count; }, milliseconds(20000));
  }
  // Idles as a host does, with the loop running in between.
  void hostIdlesFor(milliseconds time, milliseconds interval) {
    const auto end = steady_clock::now() + time;
    while (steady_clock::now() < end) {
      editor.idle();
      runUntil([] { return false; }, interval);
    }
  }

  WatchedEditor editor;
};

TEST_F(Watch, IdlesAnEditorThatNobodyIdles) {
  const auto begin = steady_clock::now();
  editor.watch.emplace(&editor);
  EXPECT_TRUE(passesReach(1));
  EXPECT_GE(steady_clock::now() - begin, milliseconds(99)) << "the host has a moment to begin";
  auto last = steady_clock::now();
  const auto first = last;
  milliseconds shortest(1000);  // of the times between two; a busy machine makes some longer
  editor.work = [&] {
    const auto now = steady_clock::now();
    shortest = std::min(shortest, std::chrono::duration_cast<milliseconds>(now - last));
    last = now;
  };
  EXPECT_TRUE(passesReach(21));
  EXPECT_GE(steady_clock::now() - first, milliseconds(20 * 28)) << "30 ms each";
  EXPECT_LT(shortest, milliseconds(80));
}

TEST_F(Watch, LeavesAnEditorAloneThatItsHostIdles) {
  editor.watch.emplace(&editor);
  int host = 0;
  milliseconds longestGap(0);  // a busy machine may keep the host from it
  const auto end = steady_clock::now() + milliseconds(600);
  for (auto last = steady_clock::now(); last < end; ++host) {
    editor.idle();
    runUntil([] { return false; }, milliseconds(10));
    const auto now = steady_clock::now();
    longestGap = std::max(longestGap, std::chrono::duration_cast<milliseconds>(now - last));
    last = now;
  }
  EXPECT_GT(host, 3);
  if (longestGap >= milliseconds(99)) GTEST_SKIP() << "the machine is too busy";
  EXPECT_EQ(editor.passes, host);
}

TEST_F(Watch, FillsInForAHostThatIdlesSeldom) {
  editor.watch.emplace(&editor);
  hostIdlesFor(milliseconds(1000), milliseconds(500));  // 2 of its own
  EXPECT_GE(editor.passes, 10);
}

TEST_F(Watch, BeginsAgainWhenItsHostStops) {
  editor.watch.emplace(&editor);
  hostIdlesFor(milliseconds(200), milliseconds(20));
  const int before = editor.passes;
  EXPECT_TRUE(passesReach(before + 3));
}

TEST_F(Watch, NeverIdlesWhatAnotherThreadIdles) {
  editor.watch.emplace(&editor);
  std::thread([&] { editor.idle(); }).join();
  runUntil([] { return false; }, milliseconds(400));
  EXPECT_EQ(editor.passes, 1);
}

TEST_F(Watch, NeverIdlesOnAnotherThreadThanItsOwn) {
  std::thread([&] { editor.watch.emplace(&editor); }).join();
  runUntil([] { return false; }, milliseconds(400));
  EXPECT_EQ(editor.passes, 0);
}

TEST_F(Watch, StopsWhenItEnds) {
  editor.watch.emplace(&editor);
  EXPECT_TRUE(passesReach(1));
  editor.watch.reset();
  const int before = editor.passes;
  runUntil([] { return false; }, milliseconds(300));
  EXPECT_EQ(editor.passes, before);
}

TEST_F(Watch, MayEndInsideThePassThatItMakes) {
  editor.watch.emplace(&editor);
  editor.work = [&] { editor.watch.reset(); };
  EXPECT_TRUE(passesReach(1));
  runUntil([] { return false; }, milliseconds(300));
  EXPECT_EQ(editor.passes, 1);
}

TEST_F(Watch, LetsNoExceptionIntoTheLoopAndGoesOn) {
  editor.watch.emplace(&editor);
  editor.work = [] { throw std::bad_alloc(); };
  EXPECT_TRUE(passesReach(2));
}

// A host may show a dialog from inside a callback, with a loop of its own.
TEST_F(Watch, DoesNotIdleWithinThePassThatItMakes) {
  editor.watch.emplace(&editor);
  int depth = 0, deepest = 0;
  editor.work = [&] {
    deepest = std::max(deepest, ++depth);
    if (editor.passes == 1) runUntil([] { return false; }, milliseconds(300));
    --depth;
  };
  EXPECT_TRUE(passesReach(3));
  EXPECT_EQ(deepest, 1);
}

}  // namespace
