// What ties a check's process, and what that starts, to the validator's.
#pragma once

#include <sys/types.h>

#include <vector>

// In the validator: processes whose parent has ended become its own, so that none gets lost.
void adoptOrphans();
// In the check's process, first of all: it ends when the validator does.
void endWithParent();
// The processes that this one has started or adopted; those that have ended and are not waited for
// among them.
std::vector<pid_t> childProcesses();
