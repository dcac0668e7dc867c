// The executable's entry.
#include "host/interruption.h"
#include "host/widen.h"

int main(int count, char** words) {
  installInterruption();
  return run(count, words);
}
