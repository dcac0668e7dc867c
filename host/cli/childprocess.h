// Work in a process of its own, where it may crash.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

// Made by a process that has one thread. Where that process is gone, the child ends at the next
// message that it sends.
class ChildProcess {
 public:
  using Send = std::function<void(const std::string& message)>;

  // work: in the child, which ends after it; throws nothing. siblings: others that are still
  // running. Throws Failure where the system makes no process.
  ChildProcess(const std::function<void(const Send&)>& work,
               const std::vector<const ChildProcess*>& siblings);
  ~ChildProcess();  // ends it, so that it can remove its unfinished files
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  int descriptor() const { return messages; }  // readable where receive() has something to do
  // Appends the messages that have come whole. False when it has ended and these were the last.
  // Does not wait.
  bool receive(std::vector<std::string>& into);

  // How it has ended: "crashed (Segmentation fault)", "exited (status 0)".
  std::string ending() const;

 private:
  void fill();

  pid_t process = -1;
  int messages = -1;
  bool closed = false;  // nothing more will come
  bool ended = false;
  int status = 0;        // as waitpid tells it, once it has ended
  std::string received;  // that is not yet a whole message
};

// Waits until one of them may have something to receive, for a moment at most.
void waitForAny(const std::vector<const ChildProcess*>& children);
