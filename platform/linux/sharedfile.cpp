// One small file that several processes replace as a whole, on flock, fsync and rename.
#include "platform/linux/sharedfile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include "platform/ondisk.h"
#include "platform/paths.h"

namespace sharedfile {

namespace {

class Descriptor {
 public:
  explicit Descriptor(int opened) : number(opened) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool isOpen() const { return number >= 0; }
  int get() const { return number; }
  bool close() {
    const int old = number;
    number = -1;
    return old < 0 || ::close(old) == 0;
  }

 private:
  int number;
};

bool writeAll(int file, const std::string& content) {
  std::size_t written = 0;
  while (written < content.size()) {
    const ssize_t count = ::write(file, content.data() + written, content.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

bool writeNew(const std::string& path, const std::string& content) {
  Descriptor file(
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600));
  return file.isOpen() && writeAll(file.get(), content) && putOnDisk(file.get()) && file.close();
}

// The new name is on disk when the folder is.
void syncFolderOf(const std::string& path) {
  const Descriptor opened(::open(folderPart(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // some file systems refuse; the file itself is complete
  if (opened.isOpen()) (void)::fsync(opened.get());
}

}  // namespace

Reading read(const std::string& path, std::size_t limit, std::string& out) {
  // Without blocking: somebody may have put a pipe there.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.isOpen()) return errno == ENOENT ? Reading::absent : Reading::unreadable;
  std::string content;
  char part[16384];
  while (true) {
    const ssize_t count = ::read(file.get(), part, sizeof part);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return Reading::unreadable;
    if (count == 0) break;
    if (content.size() + static_cast<std::size_t>(count) > limit) return Reading::tooLarge;
    content.append(part, static_cast<std::size_t>(count));
  }
  out = std::move(content);
  return Reading::done;
}

Lock::Lock(const std::string& path, std::chrono::milliseconds longestWait) {
  constexpr auto kPause = std::chrono::milliseconds(2);
  const int opened = ::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
  if (opened < 0) return;
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  // Asked again and again, because a plain flock would wait without limit for a stopped process.
  while (::flock(opened, LOCK_EX | LOCK_NB) != 0) {
    exclusive = errno != ENOLCK && errno != ENOTSUP && errno != ENOSYS;
    if (!exclusive) break;  // network and user-space file systems: better without than not at all
    if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= deadline) {
      ::close(opened);
      return;
    }
    std::this_thread::sleep_for(kPause);
  }
  file = opened;
}

Lock::~Lock() {
  if (file < 0) return;
  // at once, even if the host has forked meanwhile and a child holds the descriptor
  (void)::flock(file, LOCK_UN);
  ::close(file);
}

bool replace(const std::string& path, const std::string& content, bool alone) {
  // Always the same name, so that the next writer overwrites what a killed one has left. GLib's
  // g_file_set_contents_full takes a new name each time, and they would pile up.
  std::string next = path + ".new";
  // Then two may write at once, each a file of its own.
  if (!alone) next += std::to_string(std::chrono::steady_clock::now().time_since_epoch().count());
  if (!writeNew(next, content) || std::rename(next.c_str(), path.c_str()) != 0) {
    ::unlink(next.c_str());
    return false;
  }
  syncFolderOf(path);
  return true;
}

bool keepAside(const std::string& path) {
  constexpr int kNames = 9;  // then the last one is given up
  std::string aside = path + ".damaged";
  for (int number = 2; number <= kNames && ::access(aside.c_str(), F_OK) == 0; ++number) {
    aside = path + ".damaged-" + std::to_string(number);
  }
  return std::rename(path.c_str(), aside.c_str()) == 0;
}

}  // namespace sharedfile
