// Which thread may do what: checked in builds that ask for it, gone in all others.
#pragma once

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

#ifdef TRELVAN_CHECK_THREADS
constexpr bool kThreadsAreChecked = true;
#else
constexpr bool kThreadsAreChecked = false;
#endif

// Ends the process with a line that names the operation and what it broke.
[[noreturn]] inline void threadContractBroken(const char* operation, const char* rule) {
  std::fprintf(stderr, "%s: %s\n", operation, rule);
  std::abort();
}

// The signal's memory belongs to whoever processes, resets or ends it: one thread at a time. A call
// from inside a call on the same thread is the host's right. Any thread.
template <bool kChecked>
class ProcessingContractOf {
 public:
  void enter(const char* operation) {
    const std::thread::id self = std::this_thread::get_id();
    std::thread::id nobody;
    if (!processing.compare_exchange_strong(nobody, self) && nobody != self) {
      threadContractBroken(operation, "another thread is processing or switching on or off");
    }
    ++depth;
  }
  void leave() {
    if (--depth == 0) processing = std::thread::id();
  }

 private:
  std::atomic<std::thread::id> processing{};
  int depth = 0;  // of that thread's calls
};

template <>
class ProcessingContractOf<false> {
 public:
  void enter(const char*) {}
  void leave() {}
};

// Views belong to the thread that opened their window, as long as it is open.
template <bool kChecked>
class WindowContractOf {
 public:
  void opened() { owner = std::this_thread::get_id(); }
  void closed() { owner = std::thread::id(); }
  void ensure(const char* operation) const {
    if (owner != std::thread::id() && owner != std::this_thread::get_id()) {
      threadContractBroken(operation, "the window belongs to another thread");
    }
  }

 private:
  std::thread::id owner;
};

template <>
class WindowContractOf<false> {
 public:
  void opened() {}
  void closed() {}
  void ensure(const char*) const {}
};

using ProcessingContract = ProcessingContractOf<kThreadsAreChecked>;
using WindowContract = WindowContractOf<kThreadsAreChecked>;

// Processing, resetting or ending as long as it lives.
class ProcessingScope {
 public:
  ProcessingScope(ProcessingContract& entered, const char* operation) : contract(entered) {
    contract.enter(operation);
  }
  ~ProcessingScope() { contract.leave(); }
  ProcessingScope(const ProcessingScope&) = delete;
  ProcessingScope& operator=(const ProcessingScope&) = delete;

 private:
  ProcessingContract& contract;
};
