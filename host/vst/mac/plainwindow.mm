// A plain Cocoa window for an effect's own. Manual reference counting.
#include "host/vst/plainwindow.h"

#import <Cocoa/Cocoa.h>

#include "host/base/failure.h"
#include "platform/mac/manualreferences.h"
#include "platform/validtext.h"

// The window stays until its owner goes, who hears here that it is not wanted any more.
@interface WidenWindowDelegate : NSObject <NSWindowDelegate> {
 @public
  BOOL isClosing;
}
@end

@implementation WidenWindowDelegate

- (BOOL)windowShouldClose:(id)sender {
  (void)sender;
  isClosing = YES;
  return NO;
}

@end

struct PlainWindow::System {
  System() = default;
  ~System() {
    [window setDelegate:nil];
    [window close];
    [window release];
    [delegate release];
    [pool drain];
  }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  // The program has none of its own; it is emptied at each look at what has happened.
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  NSWindow* window = nil;               // owned
  WidenWindowDelegate* delegate = nil;  // owned
};

PlainWindow::PlainWindow(int width, int height, const std::string& title)
    : system(std::make_unique<System>()) {
  // A program without a bundle is none with windows and a place in the Dock until it says so.
  NSApplication* application = [NSApplication sharedApplication];
  [application setActivationPolicy:NSApplicationActivationPolicyRegular];
  [application finishLaunching];
  if ([[NSScreen screens] count] == 0) throw Failure("no display to show the window on");
  NSWindow* window =
      [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, width, height)
                                  styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                                            NSWindowStyleMaskMiniaturizable
                                    backing:NSBackingStoreBuffered
                                      defer:NO];
  system->window = window;
  system->delegate = [[WidenWindowDelegate alloc] init];
  [window setReleasedWhenClosed:NO];
  [window setDelegate:system->delegate];
  [window setTitle:[NSString stringWithUTF8String:validText(title).c_str()]];
  [window center];
  [window makeKeyAndOrderFront:nil];
  [application activateIgnoringOtherApps:YES];
}

PlainWindow::~PlainWindow() = default;

void* PlainWindow::handle() const { return [system->window contentView]; }

// The title bar stays where it is: Cocoa counts from the bottom.
void PlainWindow::resize(int width, int height) {
  const NSRect now = [system->window frame];
  NSRect next = [system->window frameRectForContentRect:NSMakeRect(0, 0, width, height)];
  next.origin.x = now.origin.x;
  next.origin.y = now.origin.y + now.size.height - next.size.height;
  [system->window setFrame:next display:YES];
}

bool PlainWindow::wanted() {
  NSApplication* application = [NSApplication sharedApplication];
  while (NSEvent* event = [application nextEventMatchingMask:NSEventMaskAny
                                                   untilDate:[NSDate distantPast]
                                                      inMode:NSDefaultRunLoopMode
                                                     dequeue:YES]) {
    [application sendEvent:event];
  }
  [system->pool drain];
  system->pool = [[NSAutoreleasePool alloc] init];
  return system->delegate->isClosing == NO;
}
