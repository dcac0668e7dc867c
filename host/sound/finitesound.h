// Looks for values in a sound that are no numbers.
#pragma once

#include <cstdint>
#include <string>

// Throws Failure where a frame is infinite or no number: `what`, and the time. first: the number of
// the first frame. Any thread.
void checkFinite(const double* left, const double* right, int frames, std::int64_t first,
                 int sampleRate, const std::string& what);
