// The application in which the Cocoa tests run.
#import "cocoatest.h"

#import <Foundation/NSDebug.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

@interface RepeatedAction : NSObject {
  std::function<bool()>* action;  // owned
}
- (id)initWithAction:(std::function<bool()>)newAction;
- (void)fire:(NSTimer*)timer;
@end

@implementation RepeatedAction
- (id)initWithAction:(std::function<bool()>)newAction {
  self = [super init];
  action = new std::function<bool()>(std::move(newAction));
  return self;
}
- (void)fire:(NSTimer*)timer {
  if ((*action)()) [timer invalidate];
}
- (void)dealloc {
  delete action;
  [super dealloc];
}
@end

void repeatUntilDone(std::function<bool()> action) {
  RepeatedAction* target = [[[RepeatedAction alloc] initWithAction:std::move(action)] autorelease];
  NSTimer* timer = [NSTimer timerWithTimeInterval:0.05  // seconds
                                           target:target
                                         selector:@selector(fire:)
                                         userInfo:nil
                                          repeats:YES];
  [[NSRunLoop currentRunLoop] addTimer:timer forMode:NSDefaultRunLoopMode];
  [[NSRunLoop currentRunLoop] addTimer:timer forMode:NSModalPanelRunLoopMode];
}

void CocoaTest::SetUp() { pool = [[NSAutoreleasePool alloc] init]; }

void CocoaTest::TearDown() {
  [pool release];
  pool = nil;
  for (const char* name :
       {"OrvMCSystemBoxWindow", "OrvMCMyTextField", "Orv_Tlvn_Timer", "Orv_Tlvn_TimerListener"}) {
    EXPECT_EQ(alive(name), 0) << name;
  }
}

int CocoaTest::alive(const char* className) {
  return GSDebugAllocationCount(NSClassFromString([NSString stringWithUTF8String:className]));
}

void CocoaTest::drainPool() {
  [pool release];
  pool = [[NSAutoreleasePool alloc] init];
}

bool CocoaTest::pump(const std::function<bool()>& until, double seconds) {
  NSDate* end = [[NSDate alloc] initWithTimeIntervalSinceNow:seconds];
  bool held = until();
  while (!held && [end timeIntervalSinceNow] > 0) {
    NSAutoreleasePool* inner = [[NSAutoreleasePool alloc] init];
    NSEvent* event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                        untilDate:[NSDate dateWithTimeIntervalSinceNow:0.02]
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event != nil) [NSApp sendEvent:event];
    held = until();
    [inner release];
  }
  [end release];
  return held;
}

void CocoaTest::pumpFor(double seconds) {
  pump([] { return false; }, seconds);
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  GSDebugAllocationActive(YES);
  if (std::getenv("DISPLAY") != nullptr) {
    // In a field editor macOS sends cancelOperation: for Escape, GNUstep complete:.
    NSDictionary* keys = [NSDictionary dictionaryWithObject:@"cancelOperation:" forKey:@"Escape"];
    [[NSUserDefaults standardUserDefaults]
        registerDefaults:[NSDictionary dictionaryWithObject:keys forKey:@"GSKeyBindings"]];
    [NSApplication sharedApplication];
    [NSApp finishLaunching];
    [NSApp activateIgnoringOtherApps:YES];
  }
  const int result = RUN_ALL_TESTS();
  [pool release];
  std::fflush(nullptr);
  _exit(result);  // GNUstep's own destructors are not the subject
}
