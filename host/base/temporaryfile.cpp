// A file that takes its own name only when it is complete.
#include "host/base/temporaryfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/interruption.h"
#include "host/base/partfile.h"

namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the person's umask takes away

constexpr int kMostLinks = 40;  // from one to the next, as systems have it

// Where a chain of links leads to, there or not.
std::filesystem::path followed(std::filesystem::path place, std::error_code& error) {
  for (int links = 0; std::filesystem::is_symlink(std::filesystem::symlink_status(place, error));
       ++links) {
    if (links == kMostLinks) {
      error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
      return {};
    }
    const auto next = std::filesystem::read_symlink(place, error);
    if (error) return {};
    place = place.parent_path() / next;  // just `next` where it is absolute
  }
  return std::filesystem::weakly_canonical(place, error);
}

struct Descriptor {
  ~Descriptor() {
    if (value >= 0) close(value);
  }
  int value;
};

// False: it could not be put on disk. File systems that cannot say have nothing to wait for.
bool isOnDisk(int file) {
  return fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

}  // namespace

void checkTarget(const std::filesystem::path& target, bool replace) {
  std::error_code error;
  const auto status = std::filesystem::status(target, error);
  if (!std::filesystem::exists(status)) return;  // what stands in its way shows when it is made
  if (std::filesystem::is_directory(status)) throw cannotWrite(target, "it is a folder");
  if (!std::filesystem::is_regular_file(status)) throw cannotWrite(target, "it is no regular file");
  if (!replace) throw Failure(target.string() + ": is already there (--force replaces it)");
}

void checkCanBeMade(const std::filesystem::path& target, bool replace) {
  const TemporaryFile tried(target, replace);
}

TemporaryFile::TemporaryFile(const std::filesystem::path& named, bool mayReplace)
    : target(named), replace(mayReplace) {
  checkTarget(target, replace);
  std::error_code error;
  place = followed(target, error);
  if (error) throw cannotWrite(target, error.message());
  removeLeftParts(place.parent_path());
  int failure = 0;
  do {
    failure = begin();
  } while (failure == EEXIST);
  if (failure == 0) return;
  throw cannotWrite(target, failure == ENOENT ? "there is no folder " + place.parent_path().string()
                                              : std::strerror(failure));
}

int TemporaryFile::begin() {
  temporary = partNameBeside(place);
  slot = removeOnSignal(temporary.c_str());
  handle = open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
  const int failure = handle < 0 ? errno : 0;
  if (handle >= 0 && endedBySignal()) unlink(temporary.c_str());
  if (handle >= 0 && (endedBySignal() || claimPart(handle))) return 0;
  if (handle >= 0) close(handle);
  handle = -1;
  forgetOnSignal(slot);
  slot = -1;
  temporary.clear();
  return failure != 0 ? failure : EEXIST;  // gone again: it was taken for a leftover
}

TemporaryFile::~TemporaryFile() {
  if (handle >= 0) close(handle);
  if (!temporary.empty()) unlink(temporary.c_str());
  forgetOnSignal(slot);
}

void TemporaryFile::keep() {
  checkTarget(target, replace);
  struct stat old {};
  // a replaced file keeps who may read it
  if (stat(place.c_str(), &old) == 0) fchmod(handle, old.st_mode & 07777);
  if (!isOnDisk(handle)) throw cannotWrite(target, std::strerror(errno));
  // Some file systems tell of an error at the closing only; the claim lasts as long as the other.
  const Descriptor claim{dup(handle)};
  const int closed = close(handle);
  handle = -1;
  if (closed != 0) throw cannotWrite(target, std::strerror(errno));
  if (rename(temporary.c_str(), place.c_str()) != 0)
    throw cannotWrite(target, std::strerror(errno));
  forgetOnSignal(slot);
  slot = -1;
  temporary.clear();
}
