// Floating-point arithmetic as it starts with a process, whatever the host's thread has set.
#pragma once

#include <cfenv>

// While the object lives: to nearest, denormal numbers are numbers, and nothing traps. Then it is
// as it was. For texts, which are the same in every host; the sound is left to the host's setting.
// Any thread; some ten nanoseconds.
class DefaultFloats {
 public:
  DefaultFloats() {
    std::fegetenv(&hosts);
    std::fesetenv(FE_DFL_ENV);
  }
  ~DefaultFloats() { std::fesetenv(&hosts); }
  DefaultFloats(const DefaultFloats&) = delete;
  DefaultFloats& operator=(const DefaultFloats&) = delete;

  // The value, unchanged. What is calculated from it is not moved before the setting, as
  // compilers may do with arithmetic.
  template <typename Number>
  Number of(Number value) const {
    const volatile Number here = value;
    return here;
  }

 private:
  std::fenv_t hosts;
};
