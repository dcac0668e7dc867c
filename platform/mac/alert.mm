// The alert on Cocoa: the modal one, brought up from the run loop. Manual reference counting.
#include "platform/alert.h"

#import <Cocoa/Cocoa.h>

#include <string>
#include <utility>

#include "platform/mac/manualreferences.h"
#include "platform/mac/runtimename.h"
#include "platform/xplatalert.h"

// Apart from its owner: the alert runs an event loop of its own, in which a host may do anything,
// end the owner included. One that is up stays until the user dismisses it.
TRELVAN_RUNTIME_NAME("Orv_Tlvn_Alert")
@interface Orv_Tlvn_Alert : NSObject {
  NSTimer* timer;     // retained, until it is up
  std::string* text;  // owned
  BOOL dismissed;
}
- (void)showSoon:(const char*)message;
- (void)withdraw;
- (void)show:(NSTimer*)fired;
- (BOOL)isDismissed;
@end

@implementation Orv_Tlvn_Alert

// From the run loop, when nothing of the toolkit's or the host's is on the stack any more.
- (void)showSoon:(const char*)message {
  text = new std::string(message != nullptr ? message : "");
  timer = [[NSTimer scheduledTimerWithTimeInterval:0
                                            target:self
                                          selector:@selector(show:)
                                          userInfo:nil
                                           repeats:NO] retain];
}

- (void)withdraw {
  [timer invalidate];
  [timer release];
  timer = nil;
}

- (void)show:(NSTimer*)fired {
  (void)fired;
  [self retain];
  [self withdraw];
  XPlatDisplayAlert(text->c_str());
  dismissed = YES;
  [self release];
}

- (BOOL)isDismissed {
  return dismissed;
}

- (void)dealloc {
  delete text;
  [super dealloc];
}

@end

struct Alert::System {
  System() = default;
  ~System() {
    [alert withdraw];
    [alert release];
  }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  Orv_Tlvn_Alert* alert = nil;
};

Alert::Alert() = default;
Alert::~Alert() = default;

void Alert::start(const char* message) {
  auto starting = std::make_unique<System>();
  starting->alert = [[Orv_Tlvn_Alert alloc] init];
  [starting->alert showSoon:message];
  system = std::move(starting);
}

Alert::State Alert::poll() {
  if (!system) return State::none;
  return [system->alert isDismissed] ? State::dismissed : State::running;
}

void Alert::cancel() { system.reset(); }
