// The key's name on macOS.
#include "editor/controls/commandkey.h"

const char* commandKeyName() {
  return "Cmd";
}
