// What ties a check's process to the validator's: the kernel's own means.
#include "host/validate/childlife.h"

#include <sys/prctl.h>

#include <csignal>

void adoptOrphans() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void endWithParent() {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
}
