// Included by force in front of every .mm file of the GNUstep build: the names of Apple's that
// GNUstep 0.29 lacks.
#pragma once

#import <Cocoa/Cocoa.h>

#define NSAlertStyleWarning NSWarningAlertStyle
#define NSEventModifierFlagCommand NSCommandKeyMask
#define NSEventMaskAny NSAnyEventMask

// For programs without a bundle, which are others here in no way. The test does nothing in it.
@interface NSApplication (ActivationPolicy)
- (BOOL)setActivationPolicy:(NSInteger)policy;
@end

typedef int32_t CGWindowLevel;
typedef int32_t CGWindowLevelKey;
enum { kCGNormalWindowLevelKey = 4, kCGStatusWindowLevelKey = 9 };

// GNUstep's own level of that name, whose number is another one than Apple's.
static inline CGWindowLevel CGWindowLevelForKey(CGWindowLevelKey key) {
  return key == kCGStatusWindowLevelKey ? static_cast<CGWindowLevel>(NSStatusWindowLevel) : 0;
}
