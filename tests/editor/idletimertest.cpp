// The idle timer on GLib's main loop, which the tests run as a host does.
#include "editor/base/idletimer.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <new>
#include <thread>
#include <utility>

#include "editor/base/aeffguieditor.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class IdlingEditor : public AEffGUIEditor {
 public:
  IdlingEditor() : AEffGUIEditor(nullptr) {}
  void idle() override {
    ++ticks;
    lastThread = std::this_thread::get_id();
    if (work) work();
  }

  int ticks = 0;
  std::thread::id lastThread;
  std::function<void()> work;

 protected:
  ERect windowSize() override { return {}; }
};

// Runs this thread's main loop, its own or the process's, until the condition holds; false
// after so long.
bool runUntil(const std::function<bool()>& holds, milliseconds longest = milliseconds(20000)) {
  GMainContext* context = g_main_context_ref_thread_default();
  const auto end = steady_clock::now() + longest;
  while (!holds() && steady_clock::now() < end) {
    g_main_context_iteration(context, FALSE);
    std::this_thread::sleep_for(milliseconds(1));
  }
  g_main_context_unref(context);
  return holds();
}

void runFor(milliseconds time) {
  runUntil([] { return false; }, time);
}

class IdleTimer : public testing::Test {
 protected:
  bool ticksReach(int count) {
    return runUntil([&] { return editor.ticks >= count; });
  }

  IdlingEditor editor;
};

TEST_F(IdleTimer, CallsIdleAtItsInterval) {
  const auto begin = steady_clock::now();
  void* timer = createTimer(&editor, 50);
  EXPECT_TRUE(ticksReach(10));
  EXPECT_GE(steady_clock::now() - begin, milliseconds(500));
  EXPECT_LT(steady_clock::now() - begin, milliseconds(5000)) << "ten times the interval";
  destroyTimer(timer);
  EXPECT_EQ(editor.lastThread, std::this_thread::get_id());
}

TEST_F(IdleTimer, TakesItsIntervalInMilliseconds) {
  const auto begin = steady_clock::now();
  void* timer = createTimer(&editor, 1500);
  EXPECT_TRUE(ticksReach(1));
  EXPECT_GE(steady_clock::now() - begin, milliseconds(1500));
  destroyTimer(timer);
}

TEST_F(IdleTimer, TicksWithoutAnIntervalAsFastAsItCan) {
  for (const int interval : {0, -1}) {
    editor.ticks = 0;
    void* timer = createTimer(&editor, interval);
    EXPECT_TRUE(ticksReach(10)) << interval;
    destroyTimer(timer);
  }
}

TEST_F(IdleTimer, StopsWhenItIsDestroyed) {
  void* timer = createTimer(&editor, 10);
  EXPECT_TRUE(ticksReach(1));
  destroyTimer(timer);
  const int before = editor.ticks;
  runFor(milliseconds(100));
  EXPECT_EQ(editor.ticks, before);
}

// Both are due in the same round of the loop, and the first one ends the second.
TEST_F(IdleTimer, ATickThatComesAfterItsEndDoesNothing) {
  IdlingEditor ending;
  void* ends = createTimer(&ending, 1);
  void* ended = createTimer(&editor, 1);
  ending.work = [&] { destroyTimer(std::exchange(ended, nullptr)); };
  std::this_thread::sleep_for(milliseconds(20));
  EXPECT_TRUE(runUntil([&] { return ending.ticks > 0; }));
  destroyTimer(ends);
  runFor(milliseconds(20));
  EXPECT_EQ(editor.ticks, 0);
}

TEST_F(IdleTimer, MayBeDestroyedInsideItsOwnTick) {
  void* timer = createTimer(&editor, 1);
  editor.work = [&] {
    if (editor.ticks == 3) destroyTimer(timer);
  };
  EXPECT_TRUE(ticksReach(3));
  runFor(milliseconds(50));
  EXPECT_EQ(editor.ticks, 3);
}

TEST_F(IdleTimer, TicksOnTheLoopOfTheThreadThatMadeIt) {
  std::thread::id window;
  std::thread([&] {
    window = std::this_thread::get_id();
    GMainContext* own = g_main_context_new();
    g_main_context_push_thread_default(own);
    void* timer = createTimer(&editor, 1);
    EXPECT_TRUE(ticksReach(1));
    destroyTimer(timer);
    g_main_context_pop_thread_default(own);
    g_main_context_unref(own);
  }).join();
  EXPECT_EQ(editor.lastThread, window);
}

TEST_F(IdleTimer, NeverTicksOnAnotherThread) {
  void* timer = nullptr;
  std::atomic<bool> theirsIsMade{false}, loopWasRun{false};
  std::thread window([&] {
    timer = createTimer(&editor, 1);  // without a loop of its own
    theirsIsMade = true;
    while (!loopWasRun) std::this_thread::sleep_for(milliseconds(1));
    destroyTimer(timer);
  });
  // Before the loop runs: what orders the two threads inside GLib, the thread sanitizer cannot see.
  while (!theirsIsMade) std::this_thread::sleep_for(milliseconds(1));
  IdlingEditor ours;
  void* ourTimer = createTimer(&ours, 1);
  EXPECT_TRUE(runUntil([&] { return ours.ticks >= 20; }));
  runFor(milliseconds(50));
  loopWasRun = true;
  window.join();
  destroyTimer(ourTimer);
  EXPECT_EQ(editor.ticks, 0);
}

TEST_F(IdleTimer, LetsNoExceptionIntoTheLoop) {
  editor.work = [] { throw std::bad_alloc(); };
  void* timer = createTimer(&editor, 1);
  EXPECT_TRUE(ticksReach(2));
  destroyTimer(timer);
}

TEST_F(IdleTimer, TicksWithoutEffectWhereThereIsNoEditor) {
  void* timer = createTimer(nullptr, 1);
  runFor(milliseconds(20));
  destroyTimer(timer);
  destroyTimer(nullptr);
}

}  // namespace
