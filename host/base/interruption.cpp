// Files that must not outlive the program when a signal ends it.
#include "host/base/interruption.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <string_view>

#include "host/base/crashstack.h"

namespace {

constexpr std::size_t kSlots = 1024;  // more than jobs times files a job

std::array<std::atomic<const char*>, kSlots> files;
std::atomic<bool> ending = false;
std::atomic<pid_t> owner = 0;       // the process that all this is about
std::atomic<bool> silent = false;   // another process says what became of this one
std::atomic<bool> orderly = false;  // an OrderlyEnd lives
std::atomic<int> askedBy = 0;       // the signal that it waits with
std::atomic<pid_t> watched = 0;     // the process in which an ExitWatch lives
static_assert(std::atomic<int>::is_always_lock_free, "the handler takes a note there");
static_assert(std::atomic<const char*>::is_always_lock_free, "the handler reads the slots");

bool isCrash(int signalNumber) {
  return signalNumber == SIGSEGV || signalNumber == SIGBUS || signalNumber == SIGFPE ||
         signalNumber == SIGILL || signalNumber == SIGABRT;
}

bool isRequest(int signalNumber) {
  return signalNumber == SIGINT || signalNumber == SIGTERM || signalNumber == SIGHUP;
}

// From here to the handler: calls only what a signal handler may.
void removeFiles() {
  ending.store(true);
  for (const auto& file : files) {
    if (const char* path = file.load()) unlink(path);
  }
}

void say(std::string_view text) {
  if (silent) return;
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

void handle(int signalNumber) {
  if (owner == getpid()) {
    if (orderly && isRequest(signalNumber) && askedBy.exchange(signalNumber) == 0) return;
    removeFiles();
    if (isCrash(signalNumber))
      say("widen: crashed, most likely inside the effect; unfinished files were removed\n");
  }
  // The default action takes over when this returns and the signal is let in again.
  std::signal(signalNumber, SIG_DFL);
  raise(signalNumber);
}

// Handlers that somebody installed before (a sanitizer, a debugger's preload) know
// more about crashes.
void installUnlessTaken(int signalNumber) {
  struct sigaction now {};
  if (sigaction(signalNumber, nullptr, &now) != 0 || now.sa_handler != SIG_DFL) return;
  struct sigaction ours {};
  ours.sa_handler = handle;
  ours.sa_flags = SA_ONSTACK;
  sigemptyset(&ours.sa_mask);
  sigaction(signalNumber, &ours, nullptr);
}

void endAtExit() {
  if (watched != getpid()) return;
  removeFiles();
  say("widen: the effect ended the program; unfinished files were removed\n");
  _exit(EXIT_FAILURE);
}

}  // namespace

void installInterruption() {
  owner = getpid();
  provideCrashStack();
  std::atexit(endAtExit);
  for (const int number :
       {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
    installUnlessTaken(number);
  }
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGCHLD, SIG_DFL);  // inherited as ignored, the system would forget how they end
}

ExitWatch::ExitWatch() {
  watched = getpid();
}

ExitWatch::~ExitWatch() {
  watched = 0;
}

int removeOnSignal(const char* path) {
  provideCrashStack();
  for (std::size_t slot = 0; slot < kSlots; ++slot) {
    const char* free = nullptr;
    if (files[slot].compare_exchange_strong(free, path)) return static_cast<int>(slot);
  }
  return -1;
}

void forgetOnSignal(int slot) {
  if (slot >= 0) files[static_cast<std::size_t>(slot)].store(nullptr);
}

void beginAfterFork() {
  for (auto& file : files) file.store(nullptr);
  silent = true;
  orderly = false;
  askedBy = 0;
  owner = getpid();
}

OrderlyEnd::OrderlyEnd() {
  askedBy = 0;
  orderly = true;
}

OrderlyEnd::~OrderlyEnd() {
  orderly = false;
  if (isAsked()) raise(askedBy);
}

bool OrderlyEnd::isAsked() {
  return askedBy != 0;
}

bool endedBySignal() {
  return ending.load();
}
