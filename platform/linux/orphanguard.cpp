// The shell that waits for the host's end, and its own end.
#include "platform/linux/orphanguard.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

// It is asked to end with its group, when the group's owner ends that, and goes on until then;
// group 0 is its own.
OrphanGuard::Program::Program()
    : ProgramStart({"/bin/sh", "-c",
                    "trap '' HUP INT TERM; read line; kill -TERM 0; sleep 1; kill -KILL 0"}) {}

void OrphanGuard::watch(Program& program, pid_t group) noexcept {
  stop();
  int pipeEnds[2];  // to read from, to write to
  if (pipe2(pipeEnds, O_CLOEXEC) != 0) return;
  shell = program.start(pipeEnds[0], -1, group);
  close(pipeEnds[0]);
  if (shell == 0) {
    close(pipeEnds[1]);
  } else {
    hostsEnd = pipeEnds[1];
  }
}

void OrphanGuard::stop() noexcept {
  if (shell == 0) return;
  // While it is still ours, the number cannot be another process's.
  if (waitpid(shell, nullptr, WNOHANG) == 0) {
    kill(shell, SIGKILL);
    while (waitpid(shell, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  shell = 0;
  close(hostsEnd);  // after its end: it must not take this for the host's
  hostsEnd = -1;
}
