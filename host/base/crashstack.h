// A stack for the signal handlers of a thread whose own stack may be full.
#pragma once

// The calling thread has one from now on until it ends, and keeps one that it has already. Without
// it a thread that recurses without end dies before any handler runs. Any thread, any number of
// times.
void provideCrashStack();
