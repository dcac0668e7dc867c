// The key's name on Linux.
#include "editor/controls/commandkey.h"

const char* commandKeyName() {
  return "Ctrl";
}
