// Saves beside the old file and renames, or writes where it stands.
#include "platform/savedfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

#include "platform/paths.h"
#include "platform/xplatfile.h"

namespace {

constexpr long kLongestRescue = 1 << 24;  // bytes of an old file that are kept while it is written

struct Content {
  const char* bytes;
  long size;
};

// False: not all of it was taken. What the stream still holds goes out when it is closed, of which
// nobody tells.
bool write(void* handle, const Content& content) {
  const bool taken = XPlatFileWrite(handle, content.bytes, content.size) == content.size;
  XPlatFileClose(handle);
  return taken;
}

// A new file with a name of its own, gone with this object unless it has taken another's place.
class Beside {
 public:
  // `old`: whose rights it will have; null: those that new files have.
  Beside(std::string inFolder, const struct stat* old) : folder(std::move(inFolder)) {
    constexpr int kTries = 100;
    for (int tries = 0; tries < kTries && file < 0; ++tries) {
      const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
      name = ".trelvan-" + std::to_string(now);
      file = open((folder + name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                  old != nullptr ? 0600 : 0666);
      error = file < 0 ? errno : 0;
      if (error != 0 && error != EEXIST) return;
    }
  }
  ~Beside() {
    if (file < 0) return;
    close(file);
    if (!renamed) unlink((folder + name).c_str());
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

  bool fill(const Content& content) const {
    void* handle = nullptr;
    XPlatFileOpen(name.c_str(), folder.c_str(), &handle, true);
    if (!write(handle, content)) return false;
    struct stat now {};
    return fstat(file, &now) == 0 && now.st_size == content.size;
  }

  // On disk before it has the name: after a power cut that is the whole file or the old one.
  bool takePlaceOf(const std::string& path) {
    if (fsync(file) != 0) return false;
    renamed = std::rename((folder + name).c_str(), path.c_str()) == 0;
    if (!renamed) error = errno;
    return renamed;
  }

 private:
  std::string folder;
  std::string name;
  int file = -1;
  int error = 0;
  bool renamed = false;
};

// The new name is on disk when the folder is; some file systems refuse, and the file is complete.
void syncFolder(const std::string& folder) {
  const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;
  (void)fsync(opened);
  close(opened);
}

// All of a regular file; empty for any other, and for one that is too long.
std::string contentOf(const char* fileName, const char* folder) {
  void* handle = nullptr;
  const long size = XPlatFileOpen(fileName, folder, &handle, false);
  std::string content(size <= kLongestRescue ? static_cast<std::size_t>(size) : 0, '\0');
  content.resize(static_cast<std::size_t>(
      XPlatFileRead(handle, content.data(), static_cast<long>(content.size()))));
  XPlatFileClose(handle);
  return content;
}

bool writeInPlace(const char* fileName, const char* folder, const Content& content, bool regular) {
  const std::string before = regular ? contentOf(fileName, folder) : std::string();
  const std::string path = std::string(folder) + fileName;
  void* handle = nullptr;
  XPlatFileOpen(fileName, folder, &handle, true);
  if (handle == nullptr) return false;
  const bool taken = write(handle, content);
  struct stat now {};
  if (!regular || (taken && stat(path.c_str(), &now) == 0 && now.st_size == content.size))
    return taken;
  XPlatFileOpen(fileName, folder, &handle, true);
  write(handle, {before.data(), static_cast<long>(before.size())});
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
  const auto inPlace = [&] { return writeInPlace(fileName, folder, content, regular); };
  if (place.empty() || (there && (!regular || old.st_nlink > 1))) return inPlace();
  // A rename would pass over it.
  if (there && access(place.c_str(), W_OK) != 0) return false;

  Beside beside(folderPart(place), there ? &old : nullptr);
  if (!beside.isMade()) return beside.isForbidden() && inPlace();
  if (!beside.fill(content)) return false;
  if (there && !beside.takeRights(old)) return inPlace();
  if (!beside.takePlaceOf(place)) return beside.isForbidden() && inPlace();
  syncFolder(folderPart(place));
  return true;
}
