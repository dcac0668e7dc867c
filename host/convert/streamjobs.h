// What goes with the standard input and output in place of files.
#pragma once

#include "host/convert/jobs.h"
#include "host/options/arguments.h"

// Throws UsageFailure: more than one sound would come or go there, or one of them needs a name.
void checkStreams(const Arguments& arguments);
// The only one, of a run into the standard output. Throws UsageFailure.
Job streamJob(const Arguments& arguments);
