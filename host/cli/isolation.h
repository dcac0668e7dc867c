// Effects in processes of their own: what one does to its process, it does to one file.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>

#include "host/cli/console.h"
#include "host/cli/reporter.h"
#include "host/convert/jobs.h"
#include "host/options/arguments.h"

// Does it in a process that ends then. what: for the message if it crashes there. Throws the
// Failure that the work throws.
void doIsolated(const std::string& what, const std::function<void()>& work);

// Converts all of them, `most` at a time; each process loads the plug-in afresh. Returns early
// where a signal asks for the end: called while an OrderlyEnd lives, from the process's only
// thread.
void convertIsolated(const std::filesystem::path& plugin, const Arguments& arguments,
                     const Jobs& jobs, std::size_t most, Console& console, Reporter& reporter);
