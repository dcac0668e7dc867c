// A program that runs beside the host, its output and its end.
#include "platform/linux/childprogram.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <thread>

#include "platform/linux/environment.h"
#include "platform/linux/programstart.h"
#include "platform/paths.h"

namespace {

constexpr std::size_t kMostOutput = 65536;  // bytes; a path is far shorter
constexpr int kTimeToEnd = 100;             // ms that a signalled program gets
// of 4 KiB: enough to empty a pipe, and an end for one that never empties
constexpr int kReadsPerPoll = 32;

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

bool ChildProgram::start(const std::vector<std::string>& arguments, Lifetime lifetime) {
  end();
  text.clear();
  status = kUnknownStatus;
  ProgramStart program(arguments);
  OrphanGuard::Program watcher;

  int pipeEnds[2];  // to read from, to write to; from here on nothing is thrown, or they would stay
  if (pipe2(pipeEnds, O_CLOEXEC) != 0) return false;
  // ours only: the child's end stays as programs expect it
  fcntl(pipeEnds[0], F_SETFL, O_NONBLOCK);
  process = program.start(-1, pipeEnds[1], 0);
  close(pipeEnds[1]);
  outputEnd = pipeEnds[0];
  if (process == 0) {
    closeOutput();
    return false;
  }
  if (lifetime == Lifetime::hosts) guard.watch(watcher, process);
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
  guard.stop();
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
  guard.stop();
  process = 0;
  state = State::none;
  closeOutput();
}

void ChildProgram::closeOutput() noexcept {
  if (outputEnd >= 0) close(outputEnd);
  outputEnd = -1;
}
