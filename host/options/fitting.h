// Options that would be ignored.
#pragma once

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// Of a run that writes no sound: what lists something or saves a state alone, and the effect's
// window. After the rules between options. Throws UsageFailure for one that changes nothing there.
void checkFitting(const CommandLine& line, const Arguments& arguments);
