// How the processor rounds, and what it does with denormal numbers: kept by each thread, and the
// host's.
#pragma once

#include <string>

// While it lives, the thread that made it calculates so.
class FloatModes {
 public:
  enum class Rounding { nearest, down, up, towardsZero };

  FloatModes(Rounding rounding, bool flushesDenormals);
  ~FloatModes();
  FloatModes(const FloatModes&) = delete;
  FloatModes& operator=(const FloatModes&) = delete;

  // Whether denormal numbers can be flushed here.
  static bool canFlush();
  // The calling thread's, without what has merely happened on it; for comparison.
  static unsigned long now();
  // "flushes denormal numbers", for a verdict on a change.
  static std::string difference(unsigned long before, unsigned long after);

 private:
  unsigned long before;
};
