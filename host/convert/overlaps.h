// Refuses runs that would destroy what they read or wrote.
#pragma once

#include <vector>

#include "host/convert/jobs.h"

// Throws UsageFailure where an output or a picture is an input, under whatever name, and where two
// of them are one.
void checkNothingIsDestroyed(const std::vector<Job>& jobs);
