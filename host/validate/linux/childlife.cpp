// What ties a check's process to the validator's: the kernel's own means.
#include "host/validate/childlife.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <string>

void adoptOrphans() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void endWithParent() {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
}

std::vector<pid_t> childProcesses() {
  const std::string self = std::to_string(getpid());  // also its only thread's number
  std::ifstream list("/proc/self/task/" + self + "/children");
  std::vector<pid_t> children;
  for (pid_t child = 0; list >> child;) children.push_back(child);
  return children;
}
