// Runs one check in a process of its own.
#include "host/validate/trialprocess.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <new>
#include <thread>
#include <vector>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/validate/childlife.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLookAgain = std::chrono::milliseconds(1);
constexpr auto kTimeToEnd = std::chrono::milliseconds(300);  // for what a check has started

// A report in memory that both processes see.
class SharedReport {
 public:
  SharedReport()
      : memory(mmap(nullptr, sizeof(TrialReport), PROT_READ | PROT_WRITE,
                    MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
    if (memory == MAP_FAILED) throw Failure("not enough memory for a check's report");
    new (memory) TrialReport;
  }
  ~SharedReport() { munmap(memory, sizeof(TrialReport)); }
  SharedReport(const SharedReport&) = delete;
  SharedReport& operator=(const SharedReport&) = delete;

  TrialReport& get() { return *static_cast<TrialReport*>(memory); }

 private:
  void* memory;
};

void silenceStandardStreams() {
  const int null = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(null, stream);
  if (null > STDERR_FILENO) close(null);
}

// Crashes are the validator's to tell, not this program's handlers'.
void forgetSignalHandlers() {
  for (const int number :
       {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGXFSZ}) {
    std::signal(number, SIG_DFL);
  }
}

std::string during(const TrialReport& report) {
  return report.step[0] == '\0' ? std::string() : std::string(" while: ") + report.step;
}

void runInThisProcess(const Check& check, Trial& trial, TrialReport& report) {
  try {
    check.run(trial);
    report.outcome = CheckOutcome::passed;
  } catch (const TrialEnded&) {
    // its verdict is in the report
  } catch (const Failure& failure) {
    std::snprintf(report.text, sizeof report.text, "%s", failure.what());
    report.outcome = CheckOutcome::failed;
  } catch (const std::exception& error) {
    const std::string text =
        std::string("throws an exception at the host (") + error.what() + ")" + during(report);
    std::snprintf(report.text, sizeof report.text, "%s", text.c_str());
    report.outcome = CheckOutcome::failed;
  }
}

// Returns the wait status; ends the process, and sets `hangs`, where it takes longer.
int waitFor(pid_t process, std::chrono::seconds longest, bool& hangs) {
  const auto end = Clock::now() + longest;
  int status = 0;
  while (true) {
    const pid_t ended = waitpid(process, &status, WNOHANG);
    if (ended == process) return status;
    if (ended < 0 && errno != EINTR) throw Failure("a check's process is lost");
    if (!hangs && Clock::now() > end) {
      hangs = true;
      kill(-process, SIGKILL);
    }
    std::this_thread::sleep_for(kLookAgain);
  }
}

// The processes that the check has left, reaped as far as they have ended.
std::vector<pid_t> leftOnes(pid_t keeper) {
  std::vector<pid_t> left;
  for (const pid_t child : childProcesses()) {
    if (child != keeper && waitpid(child, nullptr, WNOHANG) == 0) left.push_back(child);
  }
  return left;
}

// Whether the check has left a process running, in its group or elsewhere. Ends what is left.
bool leftProcesses(pid_t group, pid_t keeper) {
  auto end = Clock::now() + kTimeToEnd;
  const auto isAnyLeft = [&] { return !leftOnes(keeper).empty() || kill(-group, 0) == 0; };
  bool left = isAnyLeft();
  while (left && Clock::now() < end) {
    std::this_thread::sleep_for(kLookAgain);
    left = isAnyLeft();
  }
  // With each that is ended, those that it has started become ours.
  end = Clock::now() + kTimeToEnd;
  for (bool more = left; more && Clock::now() < end; more = isAnyLeft()) {
    kill(-group, SIGKILL);
    for (const pid_t child : leftOnes(keeper)) kill(child, SIGKILL);
    std::this_thread::sleep_for(kLookAgain);
  }
  return left;
}

Verdict verdictOf(int status, bool hangs, bool left, const Check& check,
                  const TrialReport& report) {
  if (hangs)
    return {CheckOutcome::failed, formatted("hangs (%d s)", check.seconds) + during(report)};
  if (WIFSIGNALED(status)) {
    return {CheckOutcome::failed,
            std::string("crashes (") + strsignal(WTERMSIG(status)) + ")" + during(report)};
  }
  if (report.outcome == CheckOutcome::failed) return {CheckOutcome::failed, report.text};
  if (WEXITSTATUS(status) != 0 || report.outcome == CheckOutcome::none) {
    return {CheckOutcome::failed,
            formatted("ends the host's process (exit status %d)", WEXITSTATUS(status)) +
                during(report)};
  }
  if (left) return {CheckOutcome::failed, "leaves a process running"};
  return {report.outcome, report.text};
}

}  // namespace

Verdict runCheck(const Check& check, const ValidationRequest& request, const TrialHome& home) {
  SharedReport shared;
  const auto begin = Clock::now();
  const pid_t process = fork();
  if (process < 0) throw Failure("no process can be made for a check");
  if (process == 0) {
    endWithParent();
    setpgid(0, 0);
    forgetSignalHandlers();
    home.enter();
    if (!request.check) silenceStandardStreams();
    Trial trial(request.plugin, request.strictness, request.seed, check.name, shared.get());
    runInThisProcess(check, trial, shared.get());
    _exit(0);
  }
  setpgid(process, process);  // in both, so that it is one whoever comes first
  home.tellRunning(process);
  bool hangs = false;
  const int status = waitFor(process, std::chrono::seconds(check.seconds), hangs);
  const bool left = leftProcesses(process, home.keeper());
  home.tellRunning(0);
  const std::chrono::duration<double> took = Clock::now() - begin;
  Verdict verdict = verdictOf(status, hangs, left, check, shared.get());
  verdict.seconds = took.count();
  return verdict;
}
