// A program that runs beside the host: started with an argument vector, its output collected, ended
// with its owner and with the host.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/linux/orphanguard.h"

// The full path of a program in the folders of PATH; empty where there is none.
std::string findProgram(const char* name);

// One thread at a time. The host's signal handlers and its other children are left alone; if the
// host collects our child's exit status or ignores ended children, the status is unknown and
// everything else works.
class ChildProgram {
 public:
  enum class State { none, running, ended };

  // Whether it ends when the host's process does, however that ends.
  enum class Lifetime { hosts, itsOwn };

  static constexpr int kUnknownStatus = -1;  // somebody else has taken it
  static constexpr int kSignalBase = 256;    // plus the number of the signal that ended it

  ChildProgram() = default;
  ~ChildProgram() { end(); }
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  // arguments: the program's full path first. Ends the one before. The child has the cleaned
  // environment, none of the host's open files, no input and no error stream, default signal
  // handling and a process group of its own. False: it could not be started.
  bool start(const std::vector<std::string>& arguments, Lifetime lifetime = Lifetime::hosts);
  // Never blocks. Collects what the program has written.
  State poll();
  // Blocks until it has ended.
  void wait();
  // Asks the program and its own children to end, and makes it if it does not; 0.2 seconds at most,
  // usually 1 ms.
  void end() noexcept;
  // Ends the program alone; what it has started goes on without us.
  void leave() noexcept;

  // What it wrote to its standard output, as far as it was polled; everything, once it has ended by
  // itself. 64 KiB at most.
  const std::string& output() const { return text; }
  // Once it has ended: 0..255, kSignalBase + signal, or kUnknownStatus.
  int exitStatus() const { return status; }

 private:
  void readOutput();
  void collect();        // its status and its last output, if it has ended
  bool reap() noexcept;  // its status alone; true: it has ended
  bool isReapedWithin(int milliseconds) noexcept;
  void forget() noexcept;
  void closeOutput() noexcept;

  pid_t process = 0;  // 0: not running
  OrphanGuard guard;
  int outputEnd = -1;
  std::string text;
  int status = kUnknownStatus;
  State state = State::none;
};
