// The standard input and output as files of sound.
#include "host/base/standardstreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/base/failure.h"

namespace {

int takenOver() {
  const int alone = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (alone < 0 || dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
    throw cannotWrite("standard output", std::strerror(errno));
  return alone;
}

int takenOverForSound() {
  if (isatty(STDOUT_FILENO) != 0) {
    throw UsageFailure(
        "the standard output is a terminal: send the sound into a pipe, or name a file");
  }
  return takenOver();
}

}  // namespace

std::filesystem::path shownInput(const std::filesystem::path& named) {
  return isStandardStream(named) ? "standard input" : named;
}

std::filesystem::path shownOutput(const std::filesystem::path& named) {
  return isStandardStream(named) ? "standard output" : named;
}

int standardOutputForSound() {
  static const int sound = takenOverForSound();
  return sound;
}

int standardOutputForDocument() {
  static const int document = takenOver();
  return document;
}
