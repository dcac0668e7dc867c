// Forbids a thread to call the system.
#pragma once

#include <string>

// From now on a system call on the calling thread is not done: `called` is called in its place, on
// this thread and inside a signal handler, and does not return. What ends the process is let
// through; nothing undoes it. False where this system cannot.
bool trapSystemCalls(void (*called)(int number));

// "futex", or the number where it is none of the usual ones. For use inside `called` too.
const char* systemCallName(int number);

// How many pages of memory the calling thread has touched for the first time; -1: not told.
long pagesTouched();
