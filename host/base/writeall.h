// Writes every byte.
#pragma once

#include <cstddef>

// To an open file or pipe, in as many pieces as it takes. Returns 0, or the system's
// error. Any thread.
int writeAll(int descriptor, const void* bytes, std::size_t count);
