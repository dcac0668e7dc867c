// Is no plug-in, but needs a library that exports `main`.
#include "tests/host/plugins/testeffect.h"

TEST_EXPORT int lentNumber();

TEST_EXPORT int borrowedNumber() {
  return lentNumber();
}
