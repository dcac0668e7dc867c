// A key of the host's: the record of effEditKeyDown and effEditKeyUp.
#pragma once

#include <cstdint>

// The toolkit's headers define this very record too, so a file includes this header or the toolkit,
// never both.
struct VstKeyCode {
  int32_t character;
  unsigned char virt;      // the interface's virtual key number
  unsigned char modifier;  // shift 1, alternate 2, command 4, control 8
};

static_assert(sizeof(VstKeyCode) == 8);
