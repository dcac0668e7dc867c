// The program widen, apart from main.
#pragma once

// Returns the exit status: 0 done, 1 failed, 2 wrong usage. Throws nothing.
int run(int count, const char* const* words);
