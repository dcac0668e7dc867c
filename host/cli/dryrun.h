// What a run would do, said instead of done.
#pragma once

#include "host/cli/console.h"
#include "host/convert/jobs.h"
#include "host/options/arguments.h"

// Opens the inputs, except pipes, and writes nothing. True if all could be done, as far as that
// shows without an effect. Throws Failure where a folder could not be made.
bool tellWhatWouldBeDone(const Arguments& arguments, const Jobs& jobs, Console& console);
