// The recursive lock on Cocoa. Manual reference counting.
#include "platform/xplatmutex.h"

#import <Cocoa/Cocoa.h>

#include "platform/mac/manualreferences.h"

void* XPlatCreateMutex() { return [[NSRecursiveLock alloc] init]; }

void XPlatLockMutex(void* mutex, unsigned long timeoutMs) {
  if (mutex == nullptr) return;
  NSRecursiveLock* lock = static_cast<NSRecursiveLock*>(mutex);
  if (timeoutMs == 0) {
    [lock lock];
    return;
  }
  // Any thread may come here, and most have no pool of their own.
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  // seconds
  NSDate* deadline = [NSDate dateWithTimeIntervalSinceNow:static_cast<double>(timeoutMs) / 1000.0];
  [lock lockBeforeDate:deadline];  // the outcome is dropped on purpose: callers go on either way
  [pool release];
}

void XPlatUnlockMutex(void* mutex) {
  [static_cast<NSRecursiveLock*>(mutex) unlock];  // a message to nil does nothing
}

void XPlatDeleteMutex(void* mutex) { [static_cast<NSRecursiveLock*>(mutex) release]; }
