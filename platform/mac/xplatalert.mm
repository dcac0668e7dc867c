// The alert on Cocoa. Manual reference counting.
#include "platform/xplatalert.h"

#import <Cocoa/Cocoa.h>

#include "platform/mac/manualreferences.h"

namespace {

// Never nil, which an alert does not take as its text. Messages are ASCII; of other bytes every one
// is a character of the Roman encoding.
NSString* textOf(const char* message) {
  if (message == nullptr) return @"";
  NSString* text = [NSString stringWithCString:message encoding:NSASCIIStringEncoding];
  if (text == nil) text = [NSString stringWithCString:message encoding:NSMacOSRomanStringEncoding];
  return text != nil ? text : @"";
}

}  // namespace

void XPlatDisplayAlert(const char* message) {
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  NSAlert* alert = [[NSAlert alloc] init];
  [alert addButtonWithTitle:@"OK"];
  [alert setMessageText:textOf(message)];
  [alert setInformativeText:@""];
  [alert setAlertStyle:NSAlertStyleWarning];
  [alert runModal];
  [alert release];
  [pool release];
}
