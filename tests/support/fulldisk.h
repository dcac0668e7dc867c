// A disk that has room for files of a certain length only.
#pragma once

#include <signal.h>
#include <sys/resource.h>

#include <cstddef>

// While the object lives, no file of this process grows beyond so many bytes: what goes past is not
// written, as on a disk that fills up. Children that are started meanwhile have the same.
class FullDisk {
 public:
  explicit FullDisk(std::size_t room) : handler(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{room, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*handler)(int);
  rlimit before{};
};
