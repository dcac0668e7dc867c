// Home folders for the checks.
#include "host/validate/trialhome.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "host/base/failure.h"

namespace {

std::filesystem::path makeFolder() {
  std::error_code error;
  const std::filesystem::path all = std::filesystem::temp_directory_path(error);
  if (error) throw Failure("there is no folder for temporary files (TMPDIR)");
  std::string name = (all / "widen-validate-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw Failure("no temporary folder can be made in " + all.string());
  return name;
}

// Until the validator is gone, killed or not; the terminal's signals do not reach it.
[[noreturn]] void keepUntilTheEnd(const std::filesystem::path& folder, int lifeline) {
  setsid();
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) std::signal(number, SIG_IGN);
  pid_t running = 0;
  for (pid_t told = 0;;) {
    const ssize_t got = read(lifeline, &told, sizeof told);
    if (got == static_cast<ssize_t>(sizeof told)) {
      running = told;
    } else if (got >= 0 || errno != EINTR) {
      break;
    }
  }
  if (running > 0) kill(-running, SIGKILL);
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  _exit(0);
}

}  // namespace

TrialHome::TrialHome() : folder(makeFolder()) {
  int ends[2];
  if (pipe(ends) != 0) throw Failure("no pipe can be made for the checks");
  second = fork();
  if (second == 0) {
    close(ends[1]);
    keepUntilTheEnd(folder, ends[0]);
  }
  close(ends[0]);
  lifeline = ends[1];
  fcntl(lifeline, F_SETFD, FD_CLOEXEC);
}

TrialHome::~TrialHome() {
  close(lifeline);
  waitpid(second, nullptr, 0);
}

// A number goes into a pipe whole.
void TrialHome::tellRunning(pid_t group) const {
  (void)!write(lifeline, &group, sizeof group);
}

void TrialHome::enter() const {
  close(lifeline);
  const std::filesystem::path home = folder / std::to_string(getpid());
  std::error_code ignored;
  std::filesystem::create_directory(home, ignored);
  // X clients look for their right to connect in the home folder, where it is not named.
  const char* before = std::getenv("HOME");
  if (before != nullptr) setenv("XAUTHORITY", (std::string(before) + "/.Xauthority").c_str(), 0);
  setenv("HOME", home.c_str(), 1);
  for (const char* variable :
       {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
    unsetenv(variable);  // below HOME then
  }
  // Which on macOS has nothing to do with an effect's preferences; this is how Trelvan is told.
  setenv("TRELVAN_PREFERENCES", "com.orv.trelvan.validator", 0);
}
