// The idle timer on GLib's main loop, which the tests run as a host does.
#include "editor/base/idletimer.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <new>
#include <thread>

#include "editor/base/aeffguieditor.h"

namespace {

using std::chrono::milliseconds;

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

// Runs this thread's main loop, its own or the process's, for so long.
void runFor(milliseconds time) {
  GMainContext* context = g_main_context_ref_thread_default();
  const auto end = std::chrono::steady_clock::now() + time;
  while (std::chrono::steady_clock::now() < end) {
    g_main_context_iteration(context, FALSE);
    std::this_thread::sleep_for(milliseconds(1));
  }
  g_main_context_unref(context);
}

class IdleTimer : public testing::Test {
 protected:
  IdlingEditor editor;
};

TEST_F(IdleTimer, CallsIdleAtItsInterval) {
  void* timer = createTimer(&editor, 50);
  runFor(milliseconds(1020));
  destroyTimer(timer);
  EXPECT_GE(editor.ticks, 10);  // 20 on an idle machine
  EXPECT_LE(editor.ticks, 20);
  EXPECT_EQ(editor.lastThread, std::this_thread::get_id());
}

TEST_F(IdleTimer, TakesItsIntervalInMilliseconds) {
  void* timer = createTimer(&editor, 1500);
  runFor(milliseconds(500));
  EXPECT_EQ(editor.ticks, 0);
  runFor(milliseconds(1200));
  EXPECT_EQ(editor.ticks, 1);
  destroyTimer(timer);
}

TEST_F(IdleTimer, TicksWithoutAnIntervalAsFastAsItCan) {
  for (const int interval : {0, -1}) {
    editor.ticks = 0;
    void* timer = createTimer(&editor, interval);
    runFor(milliseconds(200));
    destroyTimer(timer);
    EXPECT_GT(editor.ticks, 10) << interval;
  }
}

TEST_F(IdleTimer, StopsWhenItIsDestroyed) {
  void* timer = createTimer(&editor, 10);
  runFor(milliseconds(200));
  EXPECT_GT(editor.ticks, 0);
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
  ending.work = [&] {
    destroyTimer(ended);
    ended = nullptr;
  };
  std::this_thread::sleep_for(milliseconds(20));
  runFor(milliseconds(20));
  EXPECT_GT(ending.ticks, 0);
  EXPECT_EQ(editor.ticks, 0);
  destroyTimer(ends);
}

TEST_F(IdleTimer, MayBeDestroyedInsideItsOwnTick) {
  void* timer = createTimer(&editor, 1);
  editor.work = [&] {
    if (editor.ticks == 3) destroyTimer(timer);
  };
  runFor(milliseconds(300));
  EXPECT_EQ(editor.ticks, 3);
}

TEST_F(IdleTimer, TicksOnTheLoopOfTheThreadThatMadeIt) {
  std::thread::id window;
  std::thread([&] {
    window = std::this_thread::get_id();
    GMainContext* own = g_main_context_new();
    g_main_context_push_thread_default(own);
    void* timer = createTimer(&editor, 1);
    runFor(milliseconds(100));
    destroyTimer(timer);
    g_main_context_pop_thread_default(own);
    g_main_context_unref(own);
  }).join();
  EXPECT_GT(editor.ticks, 0);
  EXPECT_EQ(editor.lastThread, window);
}

TEST_F(IdleTimer, NeverTicksOnAnotherThread) {
  void* timer = nullptr;
  std::atomic<bool> loopWasRun{false};
  std::thread window([&] {
    timer = createTimer(&editor, 1);  // without a loop of its own
    while (!loopWasRun) std::this_thread::sleep_for(milliseconds(1));
    destroyTimer(timer);
  });
  IdlingEditor ours;
  void* ourTimer = createTimer(&ours, 1);
  runFor(milliseconds(200));
  loopWasRun = true;
  window.join();
  destroyTimer(ourTimer);
  EXPECT_GT(ours.ticks, 0);
  EXPECT_EQ(editor.ticks, 0);
}

TEST_F(IdleTimer, LetsNoExceptionIntoTheLoop) {
  editor.work = [] { throw std::bad_alloc(); };
  void* timer = createTimer(&editor, 1);
  runFor(milliseconds(100));
  EXPECT_GT(editor.ticks, 1);
  destroyTimer(timer);
}

TEST_F(IdleTimer, TicksWithoutEffectWhereThereIsNoEditor) {
  void* timer = createTimer(nullptr, 1);
  runFor(milliseconds(20));
  destroyTimer(timer);
  destroyTimer(nullptr);
}

}  // namespace
