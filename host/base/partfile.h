// Unfinished files: their names, the lock that says that a program is at work on one, and the
// removal of those that a killed program left.
#pragma once

#include <filesystem>

// A name that no other call in this process returns: hidden, in the same folder, ending in ".part".
// Any thread.
std::filesystem::path partNameBeside(const std::filesystem::path& place);

// Marks a file as being worked on until its last descriptor is closed. False: somebody took it for
// a leftover and removes it. True also where the file system has no locks; nothing is removed
// there.
bool claimPart(int descriptor);

// Removes the folder's unfinished files that no program works on. Looks into each folder once in a
// process. Any thread.
void removeLeftParts(const std::filesystem::path& folder);
