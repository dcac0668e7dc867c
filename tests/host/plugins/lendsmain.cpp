// A library with a `main` that is nobody's entry point.
#include "tests/host/plugins/testeffect.h"

TEST_EXPORT int lentNumber() {
  return 1;
}

TEST_EXPORT int main() {
  return 0;
}
