// The system's fsync and flock as a test wants them, in programs that are linked with
// diskcalls.cpp.
#pragma once

#include <functional>
#include <string>

// Called in the place of fsync with the path of what is put on disk, while it is set; false makes
// it fail.
extern std::function<bool(const std::string& path)> onSync;
// The error it fails with then: EIO where a test sets no other.
extern int syncError;

// flock fails with this error; 0: it works.
extern int flockError;
