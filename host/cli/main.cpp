// The executable's entry.
#include <fcntl.h>
#include <unistd.h>

#include "host/base/interruption.h"
#include "host/cli/widen.h"

namespace {

// A stream that the caller closed would be the next file that is opened, and reports would go into
// it. Opened for reading only, so that a lost text is still noticed.
void occupyStandardStreams() {
  int opened = 0;
  do {
    opened = open("/dev/null", O_RDONLY);
  } while (opened >= 0 && opened <= STDERR_FILENO);
  if (opened > STDERR_FILENO) close(opened);
}

}  // namespace

int main(int count, char** words) {
  occupyStandardStreams();
  installInterruption();
  const ExitWatch watch;
  return run(count, words);
}
