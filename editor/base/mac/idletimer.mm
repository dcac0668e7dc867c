// The idle timer on Cocoa. Manual reference counting.
#include "editor/base/idletimer.h"

#import <Cocoa/Cocoa.h>

#include <cstdint>

#include "editor/base/aeffguieditor.h"
#include "platform/mac/manualreferences.h"
#include "platform/mac/runtimename.h"

// The timer's target, apart from its owner: a timer retains its target, and the owner has to be
// able to go before it.
TRELVAN_RUNTIME_NAME("Orv_Tlvn_TimerListener")
@interface Orv_Tlvn_TimerListener : NSObject {
  AEffGUIEditor* editor;  // not owned
}
- (id)setListenerEditor:(AEffGUIEditor*)newEditor;
- (void)timerProc:(NSTimer*)timer;
@end

TRELVAN_RUNTIME_NAME("Orv_Tlvn_Timer")
@interface Orv_Tlvn_Timer : NSObject {
  AEffGUIEditor* editor;             // not owned
  int32_t interval;                  // milliseconds
  NSTimer* timer;                    // retained
  Orv_Tlvn_TimerListener* listener;  // retained
}
- (void)setEditor:(AEffGUIEditor*)newEditor;
- (void)setInterval:(int32_t)milliseconds;
- (void)makeTimer;
@end

@implementation Orv_Tlvn_TimerListener

- (id)setListenerEditor:(AEffGUIEditor*)newEditor {
  editor = newEditor;
  return self;
}

- (void)timerProc:(NSTimer*)timer {
  (void)timer;
  if (editor != nullptr) editor->idle();
}

@end

@implementation Orv_Tlvn_Timer

- (void)setEditor:(AEffGUIEditor*)newEditor {
  editor = newEditor;
}

- (void)setInterval:(int32_t)milliseconds {
  interval = milliseconds;
}

- (void)makeTimer {
  listener = [[Orv_Tlvn_TimerListener alloc] setListenerEditor:editor];
  timer = [[NSTimer scheduledTimerWithTimeInterval:interval / 1000.0  // seconds
                                            target:listener
                                          selector:@selector(timerProc:)
                                          userInfo:nil
                                           repeats:YES] retain];
}

- (void)dealloc {
  if (listener != nil) {
    [listener setListenerEditor:nullptr];  // a tick that is under way does nothing
    [timer invalidate];
    [timer release];
    [listener release];
  }
  [super dealloc];
}

@end

void* createTimer(AEffGUIEditor* editor, int intervalMs) {
  Orv_Tlvn_Timer* timer = [[Orv_Tlvn_Timer alloc] init];
  [timer setEditor:editor];
  [timer setInterval:intervalMs];
  [timer makeTimer];
  return timer;
}

void destroyTimer(void* timer) { [static_cast<Orv_Tlvn_Timer*>(timer) release]; }
