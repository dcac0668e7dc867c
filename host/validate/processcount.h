// What the process holds of the system: to see what an effect leaves behind.
#pragma once

struct ProcessCount {
  int threads;
  int descriptors;  // open files, connections
  int children;     // processes
};

// All 0 where the system does not tell.
ProcessCount countProcess();
