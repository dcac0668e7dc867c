// What every input must keep: a broken statement ends the fuzzing and shows itself.
#pragma once

#include <cstdio>
#include <cstdlib>

// On the standard output, for the effect's diagnostics fill the standard error stream.
inline void require(bool holds, const char* statement) {
  if (holds) return;
  std::printf("broken: %s\n", statement);
  std::fflush(stdout);
  std::abort();
}
