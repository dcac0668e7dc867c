// Work in a process of its own, where it may crash.
#include "host/cli/childprocess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <thread>

#include "host/base/failure.h"
#include "host/base/interruption.h"
#include "host/base/text.h"
#include "host/base/writeall.h"

namespace {

using Length = std::uint64_t;

// ms: so late is it noticed at the latest that one has ended whose own children keep the pipe open,
// and that the person wants the end.
constexpr int kMoment = 50;
constexpr std::chrono::seconds kTimeToEnd{2};  // to remove unfinished files
constexpr std::chrono::milliseconds kLookAgain{1};
constexpr std::size_t kPieceSize = 1 << 16;  // bytes

void sendMessage(int descriptor, const std::string& message) {
  const Length length = message.size();
  std::string bytes(reinterpret_cast<const char*>(&length), sizeof length);
  bytes += message;
  if (writeAll(descriptor, bytes.data(), bytes.size()) != 0) std::raise(SIGTERM);
}

// Nothing gets back to where the parent goes on.
[[noreturn]] void workAndEnd(const std::function<void(const ChildProcess::Send&)>& work,
                             int messages) noexcept {
  work([&](const std::string& message) { sendMessage(messages, message); });
  _exit(0);
}

}  // namespace

ChildProcess::ChildProcess(const std::function<void(const Send&)>& work,
                           const std::vector<const ChildProcess*>& siblings) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw Failure("no pipe can be made");
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  process = fork();
  if (process == 0) {
    beginAfterFork();
    close(ends[0]);
    for (const ChildProcess* sibling : siblings) close(sibling->messages);
    workAndEnd(work, ends[1]);
  }
  close(ends[1]);
  messages = ends[0];
  if (process < 0) {
    const std::string reason = std::strerror(errno);
    close(messages);
    throw Failure("no process can be made (" + reason + ")");
  }
  fcntl(messages, F_SETFL, O_NONBLOCK);
}

ChildProcess::~ChildProcess() {
  if (!ended) {
    kill(process, SIGTERM);
    const auto end = std::chrono::steady_clock::now() + kTimeToEnd;
    while (waitpid(process, &status, WNOHANG) == 0) {
      if (std::chrono::steady_clock::now() > end) kill(process, SIGKILL);
      std::this_thread::sleep_for(kLookAgain);
    }
  }
  close(messages);
}

void ChildProcess::fill() {
  std::array<char, kPieceSize> piece{};
  while (!closed) {
    const ssize_t count = read(messages, piece.data(), piece.size());
    if (count > 0) received.append(piece.data(), static_cast<std::size_t>(count));
    if (count == 0) closed = true;
    if (count < 0 && errno != EINTR) break;
  }
}

bool ChildProcess::receive(std::vector<std::string>& into) {
  // In this order: of one that has ended, everything has come.
  if (!ended) ended = waitpid(process, &status, closed ? 0 : WNOHANG) == process;
  fill();
  std::size_t at = 0;
  Length length = 0;
  while (received.size() - at >= sizeof length) {
    std::memcpy(&length, received.data() + at, sizeof length);
    if (received.size() - at - sizeof length < length) break;
    into.push_back(received.substr(at + sizeof length, length));
    at += sizeof length + length;
  }
  received.erase(0, at);
  return !ended;
}

std::string ChildProcess::ending() const {
  if (WIFSIGNALED(status)) {
    const int number = WTERMSIG(status);
    const bool fromOutside = number == SIGKILL || number == SIGTERM;
    return std::string(fromOutside ? "was ended (" : "crashed (") + strsignal(number) + ")";
  }
  return formatted("exited (status %d)", WEXITSTATUS(status));
}

void waitForAny(const std::vector<const ChildProcess*>& children) {
  std::vector<pollfd> watched;
  watched.reserve(children.size());
  for (const ChildProcess* child : children) watched.push_back({child->descriptor(), POLLIN, 0});
  poll(watched.data(), watched.size(), kMoment);
}
