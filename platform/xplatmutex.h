// A recursive lock with a timeout.
#pragma once

// Any thread; null is ignored everywhere. The audio thread never takes one.
void* XPlatCreateMutex();
// timeoutMs 0 waits without limit. The outcome is not told: after a timeout the caller goes on as
// if it held the lock.
void XPlatLockMutex(void* mutex, unsigned long timeoutMs);
void XPlatUnlockMutex(void* mutex);
void XPlatDeleteMutex(void* mutex);
