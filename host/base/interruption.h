// Files that must not outlive the program when a signal ends it.
#pragma once

// Installs the handlers, once, from main: SIGINT, SIGTERM, SIGHUP, SIGPIPE and crashes remove the
// registered files and then end the program as the signal would. A file-size limit becomes an error
// of the writing call instead. Processes that are started can be waited for, whatever the caller
// of the program had set.
void installInterruption();

// While one lives, an exit() in this process is an effect's doing: it removes the registered files,
// says so, and ends the program as failed whatever the effect asked for. One at a time; in a
// process that is made by fork, the parent's counts for nothing.
class ExitWatch {
 public:
  ExitWatch();
  ~ExitWatch();
  ExitWatch(const ExitWatch&) = delete;
  ExitWatch& operator=(const ExitWatch&) = delete;
};

// path: stays the caller's and unchanged until forget. Returns a slot, -1 where all are taken (then
// nothing is removed by signals). Any thread, which is guarded against the end of its stack too. To
// be registered before the file is made, so that no moment is unguarded.
int removeOnSignal(const char* path);
void forgetOnSignal(int slot);

// In a process that was forked just now: signals end it at once, it removes no file of the process
// that it comes from, and it leaves the words about a crash to that one.
void beginAfterFork();

// While one lives, the first SIGINT, SIGTERM or SIGHUP only asks for the end, and ends the program
// when this is destroyed. A second one ends it at once. One at a time.
class OrderlyEnd {
 public:
  OrderlyEnd();
  ~OrderlyEnd();
  OrderlyEnd(const OrderlyEnd&) = delete;
  OrderlyEnd& operator=(const OrderlyEnd&) = delete;

  static bool isAsked();  // any thread
};

// True once a signal is ending the program: a file made just now was perhaps not seen and is its
// maker's to remove.
bool endedBySignal();
