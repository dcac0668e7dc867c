// Refuses runs that would destroy what they read or wrote.
#pragma once

#include <vector>

#include "host/convert/jobs.h"
#include "host/options/arguments.h"

// Throws UsageFailure where an output, a picture or a file of the effect's state is an input, under
// whatever name, and where two of them are one. A job without an output is only read.
void checkNothingIsDestroyed(const std::vector<Job>& jobs, const Arguments& arguments);
