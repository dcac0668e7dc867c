// Whether the processor flushes denormal numbers to zero, which an effect can change for its host.
#pragma once

#if defined(__SSE2__)
#include <immintrin.h>
#endif

// On other processors than these two, the checks of it are left out.
inline void setFlushing([[maybe_unused]] bool flushes) {
#if defined(__SSE2__)
  constexpr unsigned kFlush = 0x8040;  // results and operands
  _mm_setcsr((_mm_getcsr() & ~kFlush) | (flushes ? kFlush : 0));
#elif defined(__aarch64__)
  constexpr unsigned long kFlush = 1UL << 24;
  unsigned long word = 0;
  asm volatile("mrs %0, fpcr" : "=r"(word));
  asm volatile("msr fpcr, %0" : : "r"((word & ~kFlush) | (flushes ? kFlush : 0)));
#endif
}
