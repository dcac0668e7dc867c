// What belongs to the host's process and thread.
#include "host/validate/means/hostprocess.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <exception>
#include <filesystem>
#include <new>
#include <set>
#include <sstream>
#include <system_error>

#include "host/base/text.h"

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace {

constexpr int kSignals = 32;  // 1..31: those with names

void* addressOf(const struct sigaction& action) {
  return (action.sa_flags & SA_SIGINFO) != 0 ? reinterpret_cast<void*>(action.sa_sigaction)
                                             : reinterpret_cast<void*>(action.sa_handler);
}

void addSignals(std::string& all) {
  sigset_t blocked;
  sigemptyset(&blocked);
  pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
  for (int number = 1; number < kSignals; ++number) {
    struct sigaction action {};
    if (sigaction(number, nullptr, &action) != 0) continue;
    all += formatted("the handler of signal %d: %p\n", number, addressOf(action));
    if (sigismember(&blocked, number) == 1) all += formatted("signal %d: blocked\n", number);
  }
}

void addFiles(std::string& all) {
  const mode_t mask = umask(0);
  umask(mask);
  all += formatted("the mask for new files: %03o\n", static_cast<unsigned>(mask));
  std::error_code error;
  all += "the working folder: " + std::filesystem::current_path(error).string() + "\n";
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    struct stat status {};
    const bool open = fstat(stream, &status) == 0;
    all += formatted("standard stream %d: %s %llx:%llx\n", stream, open ? "file" : "closed",
                     static_cast<unsigned long long>(status.st_dev),
                     static_cast<unsigned long long>(status.st_ino));
  }
}

void addLimits(std::string& all) {
  for (const int resource : {RLIMIT_CORE, RLIMIT_NOFILE, RLIMIT_STACK, RLIMIT_AS}) {
    rlimit limit{};
    getrlimit(static_cast<decltype(RLIMIT_CORE)>(resource), &limit);
    all += formatted("limit %d: %llu\n", resource, static_cast<unsigned long long>(limit.rlim_cur));
  }
  for (const int timer : {ITIMER_REAL, ITIMER_VIRTUAL, ITIMER_PROF}) {
    itimerval value{};
    getitimer(static_cast<decltype(ITIMER_REAL)>(timer), &value);
    const bool runs = value.it_value.tv_sec != 0 || value.it_value.tv_usec != 0;
    all += formatted("interval timer %d: %s\n", timer, runs ? "runs" : "off");
  }
  all += formatted("priority: %d\n", getpriority(PRIO_PROCESS, 0));
}

std::set<std::string> linesOf(const std::string& text) {
  std::set<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.insert(line);
  return lines;
}

}  // namespace

std::string hostProcess() {
  std::string all;
  addSignals(all);
  addFiles(all);
  addLimits(all);
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry)
    all += std::string("environment: ") + *entry + "\n";
  all += std::string("the locale: ") + std::setlocale(LC_ALL, nullptr) + "\n";
  all += formatted("the handler for lack of memory: %p\n",
                   reinterpret_cast<void*>(std::get_new_handler()));
  all += formatted("the handler for lost exceptions: %p\n",
                   reinterpret_cast<void*>(std::get_terminate()));
  return all;
}

std::string firstChange(const std::string& before, const std::string& after) {
  const std::set<std::string> old = linesOf(before);
  const std::set<std::string> now = linesOf(after);
  for (const std::string& line : now) {
    if (!old.contains(line)) return line;
  }
  for (const std::string& line : old) {
    if (!now.contains(line)) return "no more " + line;
  }
  return {};
}
