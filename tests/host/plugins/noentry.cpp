// A library that is no plug-in.
#include "tests/host/plugins/testeffect.h"

TEST_EXPORT int somethingElse() {
  return 1;
}
