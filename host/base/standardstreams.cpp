// The standard input and output as files of sound.
#include "host/base/standardstreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/base/failure.h"

namespace {

int takenOver() {
  if (isatty(STDOUT_FILENO) != 0) {
    throw UsageFailure(
        "the standard output is a terminal: send the sound into a pipe, or name a file");
  }
  const int sound = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (sound < 0 || dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
    throw cannotWrite("standard output", std::strerror(errno));
  return sound;
}

}  // namespace

std::filesystem::path shownInput(const std::filesystem::path& named) {
  return isStandardStream(named) ? "standard input" : named;
}

std::filesystem::path shownOutput(const std::filesystem::path& named) {
  return isStandardStream(named) ? "standard output" : named;
}

int standardOutputForSound() {
  static const int sound = takenOver();
  return sound;
}
