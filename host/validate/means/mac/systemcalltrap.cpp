// Forbids a thread to call the system: this one has no means for a thread to do that.
#include "host/validate/means/systemcalltrap.h"

bool trapSystemCalls(void (*)(int)) {
  return false;
}

const char* systemCallName(int) {
  return "a system call";
}

long pagesTouched() {
  return -1;
}
