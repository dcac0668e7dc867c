// Ends a program that the host leaves behind, by a second program that waits for the host's end.
#pragma once

#include <sys/types.h>

#include "platform/linux/programstart.h"

// The kernel's own signal for a parent's end would come when the thread ends that started the
// program. Here a shell reads from a pipe whose other end is the host's alone: the kernel closes it
// with the process, also one that is killed. A child that the host forks while the program runs has
// that end too until it starts another program: one that stays holds the program, and the dialog on
// the screen, for its own life. One thread at a time.
class OrphanGuard {
 public:
  // What needs memory.
  class Program : public ProgramStart {
   public:
    Program();
  };

  OrphanGuard() = default;
  ~OrphanGuard() { stop(); }
  OrphanGuard(const OrphanGuard&) = delete;
  OrphanGuard& operator=(const OrphanGuard&) = delete;

  // group: a program's process group, which the shell joins, so that its number stays taken.
  // Without a shell or a pipe nothing is watched.
  void watch(Program& program, pid_t group) noexcept;
  void stop() noexcept;  // the group goes on; some milliseconds at most

 private:
  pid_t shell = 0;    // 0: none
  int hostsEnd = -1;  // of the pipe
};
