// Where the image that holds this code was loaded from, as the system's loader tells it.
#pragma once

#include <climits>

// Writes the full path without links, or nothing where it cannot be found. Asked while
// the image loads.
void findModuleFile(char (&path)[PATH_MAX]) noexcept;
