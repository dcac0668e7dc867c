// macOS: where a binary lies is not asked for.
#include "host/validate/means/mappedrange.h"

MappedRange rangeOfBinary(const void*) {
  return {};
}
