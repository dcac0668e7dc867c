// The host's environment, read each time: it may change what it has set.
#pragma once

#include <cstdlib>
#include <string>

// Empty where it is not set.
inline std::string environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}
