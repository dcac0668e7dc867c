// Writes every byte.
#include "host/base/writeall.h"

#include <unistd.h>

#include <cerrno>

int writeAll(int descriptor, const void* bytes, std::size_t count) {
  const auto* from = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t written = write(descriptor, from, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return written < 0 ? errno : ENOSPC;
    from += written;
    count -= static_cast<std::size_t>(written);
  }
  return 0;
}
