// Declarations of the three Carbon functions that the plug-in uses, for the test double on Linux
// and the Mach-O check.
#pragma once

#include <stdint.h>

typedef int32_t OSStatus;
typedef double EventTimeout;

extern "C" {
uint32_t TickCount(void);
uint32_t GetDblTime(void);
OSStatus RunCurrentEventLoop(EventTimeout inTimeout);
}
