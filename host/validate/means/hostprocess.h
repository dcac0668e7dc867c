// What belongs to the host's process and thread, and not to its plug-ins.
#pragma once

#include <string>

// Everything below as it is now, as one text with a line for each thing, "signal 11: ...".
// What of it hosts rely on: signal handlers and masks, the mask for new files, the folder, the
// environment, the locale, limits, timers, standard streams, handlers for lack of memory and for
// lost exceptions.
std::string hostProcess();

// The first line of `after` that is not in `before`, or the other way round where there is none;
// empty where both are the same.
std::string firstChange(const std::string& before, const std::string& after);
