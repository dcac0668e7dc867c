// Saves beside the old file and renames, or writes where it stands.
#include "platform/savedfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string>

#include "platform/ondisk.h"
#include "platform/paths.h"

namespace {

constexpr long kLongestRescue = 1 << 24;  // bytes of an old file that are kept while it is written

struct Content {
  const char* bytes;
  long size;
};

class Opened {
 public:
  explicit Opened(int opened) : file(opened) {}
  ~Opened() {
    if (file >= 0) close(file);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  bool isOpen() const { return file >= 0; }
  int get() const { return file; }

 private:
  int file;
};

// False: not all of it was taken.
bool write(int file, const Content& content) {
  long written = 0;
  while (written < content.size) {
    const auto rest = static_cast<std::size_t>(content.size - written);
    const ssize_t count = ::write(file, content.bytes + written, rest);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += count;
  }
  return true;
}

bool holds(int file, const Content& content) {
  struct stat now {};
  return fstat(file, &now) == 0 && now.st_size == content.size;
}

// A new file with a name of its own, gone with this object unless it has taken another's place.
// Only its making needs memory.
class Beside {
 public:
  // `old`: whose rights it will have; null: those that new files have.
  Beside(const std::string& folder, const struct stat* old) {
    constexpr int kTries = 100;
    for (int tries = 0; tries < kTries && file < 0; ++tries) {
      const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
      path = folder + ".trelvan-" + std::to_string(now);
      file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                  old != nullptr ? 0600 : 0666);
      error = file < 0 ? errno : 0;
      if (error != 0 && error != EEXIST) return;
    }
  }
  ~Beside() {
    if (file < 0) return;
    close(file);
    if (!renamed) unlink(path.c_str());
  }
  Beside(const Beside&) = delete;
  Beside& operator=(const Beside&) = delete;

  bool isMade() const { return file >= 0; }
  // Where it is not made, or could not take the place: the folder allows no new file there, though
  // it may allow that the old one is written.
  bool isForbidden() const {
    return error == EACCES || error == EPERM || error == EBUSY || error == EXDEV ||
           error == ENAMETOOLONG;
  }

  bool takeRights(const struct stat& old) const {
    struct stat own {};
    if (fstat(file, &own) != 0) return false;
    if (own.st_uid == old.st_uid && own.st_gid == old.st_gid && own.st_mode == old.st_mode)
      return true;
    return fchown(file, old.st_uid, old.st_gid) == 0 && fchmod(file, old.st_mode & 07777) == 0;
  }

  bool fill(const Content& content) const { return write(file, content) && holds(file, content); }

  // On disk before it has the name: after a power cut that is the whole file or the old one.
  bool takePlaceOf(const std::string& place) {
    if (!putOnDisk(file)) return false;
    renamed = std::rename(path.c_str(), place.c_str()) == 0;
    if (!renamed) error = errno;
    return renamed;
  }

 private:
  std::string path;
  int file = -1;
  int error = 0;
  bool renamed = false;
};

// The new name is on disk when the folder is; some file systems refuse, and the file is complete.
void syncFolder(const std::string& folder) {
  const Opened opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.isOpen()) (void)fsync(opened.get());
}

// All of a regular file; none where it is too long or cannot be read.
std::optional<std::string> contentOf(const std::string& path) {
  const Opened file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat now {};
  if (!file.isOpen() || fstat(file.get(), &now) != 0 || now.st_size > kLongestRescue)
    return std::nullopt;
  std::string content(static_cast<std::size_t>(now.st_size), '\0');
  std::size_t length = 0;
  while (length < content.size()) {
    const ssize_t count = read(file.get(), content.data() + length, content.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    length += static_cast<std::size_t>(count);
  }
  return content;
}

// A regular file's old content is in memory before it is touched, and nothing afterwards needs
// more.
bool writeInPlace(const std::string& path, const Content& content, bool regular) {
  const std::optional<std::string> before = regular ? contentOf(path) : std::string();
  if (!before) return false;
  // Also for reading: a pipe that nobody reads yet would be waited for.
  const Opened file(open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file.isOpen()) return false;
  const bool taken = write(file.get(), content);
  if (!regular || (taken && putOnDisk(file.get()) && holds(file.get(), content))) return taken;
  const Opened again(open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
  if (again.isOpen()) write(again.get(), {before->data(), static_cast<long>(before->size())});
  return false;
}

}  // namespace

bool saveFile(const char* fileName, const char* folder, const unsigned char* bytes,
              std::size_t size) {
  const Content content{reinterpret_cast<const char*>(bytes), static_cast<long>(size)};
  const std::string asked = std::string(folder) + fileName;
  const std::string place = withoutLinks(asked);
  struct stat old {};
  const bool there = stat(asked.c_str(), &old) == 0;
  const bool regular = there && S_ISREG(old.st_mode);
  const auto inPlace = [&] { return writeInPlace(asked, content, regular); };
  if (place.empty() || (there && (!regular || old.st_nlink > 1))) return inPlace();
  // A rename would pass over it.
  if (there && access(place.c_str(), W_OK) != 0) return false;

  const std::string placesFolder = folderPart(place);
  Beside beside(placesFolder, there ? &old : nullptr);
  if (!beside.isMade()) return beside.isForbidden() && inPlace();
  if (!beside.fill(content)) return false;
  if (there && !beside.takeRights(old)) return inPlace();
  if (!beside.takePlaceOf(place)) return beside.isForbidden() && inPlace();
  syncFolder(placesFolder);
  return true;
}
