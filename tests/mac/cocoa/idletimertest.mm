// The idle timer, on GNUstep.
#include "editor/base/idletimer.h"

#include "editor/base/aeffguieditor.h"

#import <objc/runtime.h>

#import "cocoatest.h"

namespace {

class CountingEditor : public AEffGUIEditor {
 public:
  CountingEditor() : AEffGUIEditor(nullptr) {}
  void idle() override {
    if (++count == stopAt) destroyTimer(timer);
  }
  ERect windowSize() override { return {}; }

  int count = 0;
  int stopAt = 0;  // 0: never
  void* timer = nullptr;
};

class IdleTimerMac : public CocoaTest {
 protected:
  static void runFor(double seconds) {
    [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:seconds]];
  }
  CountingEditor editor;
};

TEST_F(IdleTimerMac, CallsIdleAtItsInterval) {
  void* timer = createTimer(&editor, 50);
  runFor(1.02);
  destroyTimer(timer);
  EXPECT_GE(editor.count, 12);  // 20 on an idle machine
  EXPECT_LE(editor.count, 21);
}

TEST_F(IdleTimerMac, TakesItsIntervalInMilliseconds) {
  void* timer = createTimer(&editor, 1500);
  runFor(0.5);
  EXPECT_EQ(editor.count, 0);
  destroyTimer(timer);
}

TEST_F(IdleTimerMac, StopsWhenItIsDestroyed) {
  void* timer = createTimer(&editor, 10);
  runFor(0.1);
  EXPECT_GT(editor.count, 0);
  destroyTimer(timer);
  const int before = editor.count;
  runFor(0.1);
  EXPECT_EQ(editor.count, before);
}

// The system's timer, which another thing may still hold, or a tick that is under way.
TEST_F(IdleTimerMac, ATickThatComesAfterItsEndDoesNothing) {
  id owner = static_cast<id>(createTimer(&editor, 60000));
  id listener =
      object_getIvar(owner, class_getInstanceVariable(object_getClass(owner), "listener"));
  ASSERT_NE(listener, nil);
  [listener retain];
  [listener performSelector:@selector(timerProc:) withObject:nil];
  EXPECT_EQ(editor.count, 1);
  destroyTimer(owner);
  [listener performSelector:@selector(timerProc:) withObject:nil];
  EXPECT_EQ(editor.count, 1);
  [listener release];
}

TEST_F(IdleTimerMac, MayBeDestroyedInsideItsOwnTick) {
  editor.stopAt = 3;
  editor.timer = createTimer(&editor, 10);
  runFor(0.3);
  EXPECT_EQ(editor.count, 3);
}

TEST_F(IdleTimerMac, LeavesNoTimerInTheRunLoop) {
  runFor(0.01);
  drainPool();
  const int before = alive("NSTimer");
  void* timer = createTimer(&editor, 10);
  EXPECT_EQ(alive("NSTimer"), before + 1);
  EXPECT_EQ(alive("Orv_Tlvn_TimerListener"), 1);
  runFor(0.05);
  destroyTimer(timer);
  runFor(0.05);
  drainPool();
  EXPECT_EQ(alive("NSTimer"), before);
}

TEST_F(IdleTimerMac, TicksWithoutEffectWhereThereIsNoEditor) {
  void* timer = createTimer(nullptr, 10);
  runFor(0.05);
  destroyTimer(timer);
  destroyTimer(nullptr);
}

}  // namespace
