// A pipe of the system's with the input at its other end. One program runs at a time.
#include "fuzz/scriptedprograms.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include "fuzz/require.h"

namespace {

constexpr pid_t kProcess = 0x7FFFFFF0;  // no system has so many
constexpr pid_t kGuard = kProcess + 1;  // the shell that waits for the host's end

bool isGuarded = false;      // that shell runs, which always starts
bool guardIsKilled = false;  // and is still to be waited for

fuzz::InputReader* script = nullptr;
std::vector<fuzz::PlayedProgram> played;
int spawnsPipe = -1;  // of the file actions that were made last
int writingEnd = -1;  // the running program's
unsigned piecesLeft = 0;
bool endless = false;  // it ends by a signal only
fuzz::FileQuestion question;

void writePiece() {
  const std::string piece = script != nullptr ? script->text() : std::string();
  --piecesLeft;
  // A pipe that is full would hold this one thread for ever.
  if (writingEnd < 0 || write(writingEnd, piece.data(), piece.size()) < 0) return;
  played.back().output += piece;
}

void end(int status) {
  played.back().running = false;
  played.back().status = status;
  if (writingEnd >= 0) close(writingEnd);
  writingEnd = -1;
}

std::vector<std::string> textsOf(char* const list[]) {
  std::vector<std::string> texts;
  for (; *list != nullptr; ++list) texts.emplace_back(*list);
  return texts;
}

}  // namespace

void fuzz::playPrograms(InputReader* input) {
  script = input;
  played.clear();
  question = {};
}

const fuzz::FileQuestion& fuzz::lastFileQuestion() {
  return question;
}

bool fuzz::isProgramGuarded() {
  return isGuarded;
}

const std::vector<fuzz::PlayedProgram>& fuzz::playedPrograms() {
  return played;
}

extern "C" {

int posix_spawn_file_actions_adddup2(posix_spawn_file_actions_t*, int from, int to) noexcept {
  if (to == STDOUT_FILENO) spawnsPipe = from;
  return 0;
}

int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t*,
                const posix_spawnattr_t*, char* const arguments[], char* const environment[]) {
  if (std::strcmp(path, "/bin/sh") == 0) {  // a program of a desktop has another name
    require(!played.empty() && played.back().running && !isGuarded, "one program is guarded once");
    isGuarded = true;
    *process = kGuard;
    return 0;
  }
  require(played.empty() || !played.back().running, "one program runs at a time");
  require(!isGuarded, "a program that has ended is guarded no more");
  for (const std::string& entry : textsOf(environment))
    require(!entry.starts_with("LD_"), "a program does not get the host's libraries");
  const std::vector<std::string> words = textsOf(arguments);
  require(!words.empty() && words[0] == path, "a program is told its own name");
  const unsigned choice = script != nullptr ? script->byte() : 0;
  if (script == nullptr || (choice & 0x80U) != 0) return ENOENT;
  fuzz::PlayedProgram program;
  program.arguments = words;
  // 0 to 3 as they are; others seldom matter
  constexpr int kStatuses[] = {0, 0, 0, 1, 5, 255, 127, 2};
  const int exitCode = kStatuses[choice & 7U];
  constexpr int kSignals[] = {SIGTERM, SIGSEGV};
  const bool isKilled = (choice & 0x18U) == 0x18U;
  program.status = isKilled ? kSignals[exitCode & 1] : exitCode << 8;
  program.unknown = (choice & 0x60U) == 0x60U;
  piecesLeft = script->below(6);
  endless = piecesLeft == 5;
  played.push_back(program);
  writingEnd = fcntl(spawnsPipe, F_DUPFD_CLOEXEC, 0);
  fcntl(writingEnd, F_SETFL, O_NONBLOCK);
  *process = kProcess;
  return 0;
}

pid_t waitpid(pid_t process, int* status, int /*options*/) {
  if (process == kGuard) {
    require(isGuarded, "the guard is waited for once");
    if (guardIsKilled) isGuarded = false;
    return std::exchange(guardIsKilled, false) ? kGuard : 0;
  }
  require(process == kProcess, "only the own program is waited for");
  if (played.empty() || !played.back().running) {
    errno = ECHILD;
    return -1;
  }
  if (piecesLeft > 0) {
    writePiece();
    return 0;
  }
  if (endless) return 0;
  end(played.back().status);
  *status = played.back().status;
  if (!played.back().unknown) return process;
  errno = ECHILD;
  return -1;
}

int kill(pid_t process, int signal) noexcept {
  if (process == kGuard) {
    require(isGuarded && signal == SIGKILL, "the guard takes no other signal");
    guardIsKilled = true;
    return 0;
  }
  if (process != kProcess && process != -kProcess)
    return static_cast<int>(syscall(SYS_kill, process, signal));
  piecesLeft = 0;
  endless = false;
  played.back().status = signal;  // it ends, and the next question is told so
  return 0;
}

// Whether a file is there; what may be run is the system's to say.
int access(const char* path, int mode) noexcept {
  if (mode == F_OK && script != nullptr) {
    question = {path, script->flag()};
    return question.isThere ? 0 : -1;
  }
  return static_cast<int>(syscall(SYS_faccessat, AT_FDCWD, path, mode));
}

}  // extern "C"
