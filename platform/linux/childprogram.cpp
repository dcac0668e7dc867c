// A program that runs beside the host, on posix_spawn.
#include "platform/linux/childprogram.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <thread>

#include "platform/linux/environment.h"
#include "platform/paths.h"

namespace {

constexpr std::size_t kMostOutput = 65536;  // bytes; a path is far shorter
constexpr int kTimeToEnd = 100;             // ms that a signalled program gets
// of 4 KiB: enough to empty a pipe, and an end for one that never empties
constexpr int kReadsPerPoll = 32;

// Set by hosts and their wrappers for their own libraries, modules and interpreters.
constexpr std::string_view kHostsOwn[] = {
    "GTK_PATH",
    "GTK_MODULES",
    "GTK2_MODULES",
    "GTK3_MODULES",
    "GTK_EXE_PREFIX",
    "GTK_DATA_PREFIX",
    "GTK_IM_MODULE_FILE",
    "GTK_RC_FILES",
    "GTK2_RC_FILES",
    "GIO_EXTRA_MODULES",
    "GIO_MODULE_DIR",
    "GDK_PIXBUF_MODULE_FILE",
    "GDK_PIXBUF_MODULEDIR",
    "GSETTINGS_SCHEMA_DIR",
    "PANGO_LIBDIR",
    "PANGO_RC_FILE",
    "PANGO_SYSCONFDIR",
    "FONTCONFIG_FILE",
    "FONTCONFIG_PATH",
    "QT_PLUGIN_PATH",
    "QT_QPA_PLATFORM_PLUGIN_PATH",
    "QML_IMPORT_PATH",
    "QML2_IMPORT_PATH",
    "PYTHONHOME",
    "PYTHONPATH",
    "PERLLIB",
    "PERL5LIB",
    "GCONV_PATH",
};

bool isHostsOwn(std::string_view entry) {
  const std::string_view name = entry.substr(0, entry.find('='));
  if (name.substr(0, 3) == "LD_") return true;  // all of the dynamic loader's
  for (const std::string_view own : kHostsOwn) {
    if (name == own) return true;
  }
  return false;
}

// The form that the system takes: pointers into the strings, which must outlive it, then a null.
std::vector<char*> pointersTo(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  for (std::string& string : strings) pointers.push_back(string.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Input and errors are nobody's, the output is the pipe, everything else of the host is closed.
class FileActions {
 public:
  explicit FileActions(int outputPipe) {
    posix_spawn_file_actions_init(&actions);
    // first: the pipe may have either number
    posix_spawn_file_actions_adddup2(&actions, outputPipe, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  posix_spawn_file_actions_t actions;
};

// The host's thread may block or ignore signals; the child starts without either, in a group
// of its own.
class Attributes {
 public:
  Attributes() {
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
  }
  ~Attributes() { posix_spawnattr_destroy(&attributes); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  posix_spawnattr_t attributes;
};

}  // namespace

std::string findProgram(const char* name) {
  const std::string path = environmentVariable("PATH");
  std::string_view rest = path;
  while (!rest.empty()) {
    const std::size_t length = std::min(rest.find(':'), rest.size());
    const std::string_view folder = rest.substr(0, length);
    rest.remove_prefix(length < rest.size() ? length + 1 : length);
    if (folder.empty() || folder[0] != '/') continue;  // never from the working folder
    std::string program = std::string(folder) + "/" + name;
    if (isFile(program) && access(program.c_str(), X_OK) == 0) return program;
  }
  return {};
}

std::vector<std::string> cleanedEnvironment() {
  std::vector<std::string> entries;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
    if (!isHostsOwn(*entry)) entries.emplace_back(*entry);
  }
  return entries;
}

bool ChildProgram::start(const std::vector<std::string>& arguments) {
  end();
  text.clear();
  status = kUnknownStatus;
  std::vector<std::string> argumentStrings = arguments;
  std::vector<std::string> environmentStrings = cleanedEnvironment();
  const std::vector<char*> argumentPointers = pointersTo(argumentStrings);
  const std::vector<char*> environmentPointers = pointersTo(environmentStrings);

  int pipeEnds[2];  // to read from, to write to; from here on nothing is thrown, or they would stay
  if (pipe2(pipeEnds, O_CLOEXEC) != 0) return false;
  // ours only: the child's end stays as programs expect it
  fcntl(pipeEnds[0], F_SETFL, O_NONBLOCK);
  const FileActions files(pipeEnds[1]);
  const Attributes attributes;
  pid_t started = 0;
  const int error =
      posix_spawn(&started, argumentStrings[0].c_str(), &files.actions, &attributes.attributes,
                  argumentPointers.data(), environmentPointers.data());
  close(pipeEnds[1]);
  outputEnd = pipeEnds[0];
  if (error != 0) {
    closeOutput();
    return false;
  }
  process = started;
  state = State::running;
  return true;
}

ChildProgram::State ChildProgram::poll() {
  if (state != State::running) return state;
  readOutput();
  collect();
  return state;
}

void ChildProgram::wait() {
  while (state == State::running) {
    // Output first, so that a program that writes much does not wait for us for ever.
    pollfd output{outputEnd, POLLIN, 0};
    constexpr int kPause = 20;  // ms, for a program that has closed its output and goes on
    if (::poll(&output, 1, kPause) > 0 && (output.revents & POLLIN) == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(kPause));
    }
    poll();
  }
}

void ChildProgram::end() noexcept {
  if (state == State::running && !reap()) {
    // It is still ours, so the number cannot be another process's.
    kill(-process, SIGTERM);
    if (!isReapedWithin(kTimeToEnd)) {
      kill(-process, SIGKILL);
      isReapedWithin(kTimeToEnd);
    }
  }
  forget();
}

void ChildProgram::leave() noexcept {
  if (state == State::running && !reap()) {
    kill(process, SIGKILL);
    isReapedWithin(kTimeToEnd);
  }
  forget();
}

void ChildProgram::readOutput() {
  char part[4096];
  for (int reads = 0; reads < kReadsPerPoll && outputEnd >= 0; ++reads) {
    const ssize_t count = read(outputEnd, part, sizeof part);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    text.append(part, std::min(static_cast<std::size_t>(count), kMostOutput - text.size()));
  }
}

void ChildProgram::collect() {
  if (!reap()) return;
  state = State::ended;
  // what it wrote last; a child of its own may hold the pipe open for longer, which does not matter
  readOutput();
  closeOutput();
}

bool ChildProgram::reap() noexcept {
  int word = 0;
  pid_t reaped;
  do {
    reaped = waitpid(process, &word, WNOHANG);
  } while (reaped < 0 && errno == EINTR);
  if (reaped == 0) return false;
  if (reaped == process)
    status = WIFEXITED(word) ? WEXITSTATUS(word) : kSignalBase + WTERMSIG(word);
  process = 0;
  return true;
}

bool ChildProgram::isReapedWithin(int milliseconds) noexcept {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (!reap()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

void ChildProgram::forget() noexcept {
  process = 0;
  state = State::none;
  closeOutput();
}

void ChildProgram::closeOutput() noexcept {
  if (outputEnd >= 0) close(outputEnd);
  outputEnd = -1;
}
