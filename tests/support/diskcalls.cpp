// Stands in front of the C library's fsync and flock.
#include "tests/support/diskcalls.h"

#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

std::function<bool(const std::string& path)> onSync;
int syncError = EIO;
int flockError = 0;

extern "C" int fsync(int file) {
  if (onSync) {
    char path[PATH_MAX];
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    if (length < 0 || !onSync(std::string(path, static_cast<std::size_t>(length)))) {
      errno = syncError;
      return -1;
    }
  }
  return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" int flock(int file, int operation) noexcept {
  if (flockError != 0) {
    errno = flockError;
    return -1;
  }
  return static_cast<int>(syscall(SYS_flock, file, operation));
}
