// A file's content on disk, as far as its file system can say so.
#pragma once

#include <unistd.h>

#include <cerrno>

// False: the disk did not take it. Some network and user-space file systems have no such order and
// are trusted. Any thread.
inline bool putOnDisk(int file) {
  int result = 0;
  do {
    result = fsync(file);
  } while (result != 0 && errno == EINTR);
  return result == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}
