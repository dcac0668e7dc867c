// A home folder for the checks.
#include "host/validate/trialhome.h"

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
  std::string name = (all / "widen-validate-XXXXXX").string();
  if (error || mkdtemp(name.data()) == nullptr)
    throw Failure("no temporary folder can be made in " + all.string());
  return name;
}

// Until every process that holds the lifeline is gone, killed or not; the terminal's signals do not
// reach it.
[[noreturn]] void removeAtTheEnd(const std::filesystem::path& folder, int lifeline) {
  setsid();
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) std::signal(number, SIG_IGN);
  char byte = 0;
  while (read(lifeline, &byte, 1) < 0 && errno == EINTR) {
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  _exit(0);
}

}  // namespace

TrialHome::TrialHome() {
  const std::filesystem::path folder = makeFolder();
  int ends[2];
  if (pipe(ends) != 0) throw Failure("no pipe can be made for the checks");
  remover = fork();
  if (remover == 0) {
    close(ends[1]);
    removeAtTheEnd(folder, ends[0]);
  }
  close(ends[0]);
  lifeline = ends[1];
  // X clients look for their right to connect in the home folder, where it is not named.
  const char* home = std::getenv("HOME");
  if (home != nullptr) setenv("XAUTHORITY", (std::string(home) + "/.Xauthority").c_str(), 0);
  setenv("HOME", folder.c_str(), 1);
  for (const char* variable :
       {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
    unsetenv(variable);  // below HOME then
  }
}

TrialHome::~TrialHome() {
  close(lifeline);
  waitpid(remover, nullptr, 0);
}
