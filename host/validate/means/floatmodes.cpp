// How the processor rounds, and what it does with denormal numbers.
#include "host/validate/means/floatmodes.h"

#include <cfenv>

#include "host/base/text.h"

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace {

#if defined(__SSE2__)

// Of MXCSR: what has happened since somebody looked, which every calculation changes.
constexpr unsigned long kHappened = 0x3F;
constexpr unsigned long kFlush = 0x8040;  // results and operands
constexpr unsigned long kRounding = 0x6000;
constexpr bool kCanFlush = true;

unsigned long control() {
  return _mm_getcsr();
}
void setControl(unsigned long word) {
  _mm_setcsr(static_cast<unsigned>(word));
}

#elif defined(__aarch64__)

constexpr unsigned long kHappened = 0;  // in a register of its own
constexpr unsigned long kFlush = 1UL << 24;
constexpr unsigned long kRounding = 3UL << 22;
constexpr bool kCanFlush = true;

unsigned long control() {
  unsigned long word = 0;
  asm volatile("mrs %0, fpcr" : "=r"(word));
  return word;
}
void setControl(unsigned long word) {
  asm volatile("msr fpcr, %0" : : "r"(word));
}

#else

constexpr unsigned long kHappened = 0;
constexpr unsigned long kFlush = 0;
constexpr unsigned long kRounding = ~0UL;
constexpr bool kCanFlush = false;

unsigned long control() {
  return static_cast<unsigned long>(std::fegetround());
}
void setControl(unsigned long word) {
  std::fesetround(static_cast<int>(word));
}

#endif

constexpr int kRoundings[] = {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO};

}  // namespace

FloatModes::FloatModes(Rounding rounding, bool flushesDenormals) : before(control()) {
  std::fesetround(kRoundings[static_cast<int>(rounding)]);
  setControl((control() & ~kFlush) | (flushesDenormals ? kFlush : 0));
}

FloatModes::~FloatModes() {
  std::fesetround(FE_TONEAREST);  // the older unit too, where there are two
  setControl(before);
}

bool FloatModes::canFlush() {
  return kCanFlush;
}

unsigned long FloatModes::now() {
  return control() & ~kHappened;
}

std::string FloatModes::difference(unsigned long before, unsigned long after) {
  const unsigned long changed = before ^ after;
  if ((changed & kRounding) != 0) return "another rounding";
  if ((changed & kFlush) != 0)
    return (after & kFlush) != 0 ? "denormal numbers flushed to zero" : "denormal numbers kept";
  return formatted("control word %#lx instead of %#lx", after, before);
}
