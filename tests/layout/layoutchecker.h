// Checks a source tree against the layout's rules.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// One line per violation, "file:line: what is wrong", in the order of the files' names:
// an include that crosses the rooms' borders or names a file that is not there, a cycle of includes, a file that does
// not open with a comment of whole sentences, a condition on the operating system outside a system's own folder.
std::vector<std::string> layoutViolations(const std::filesystem::path& root);

// The source files of all rooms, from the root, sorted.
std::vector<std::string> sourcePaths(const std::filesystem::path& root);
