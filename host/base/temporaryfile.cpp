// A file that takes its own name only when it is complete.
#include "host/base/temporaryfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/interruption.h"
#include "host/base/text.h"

namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the person's umask takes away

std::filesystem::path hiddenNameBeside(const std::filesystem::path& place) {
  static std::atomic<unsigned> count = 0;
  return place.parent_path() / formatted(".%s.%d-%u.part", place.filename().c_str(),
                                         static_cast<int>(getpid()), count.fetch_add(1));
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

TemporaryFile::TemporaryFile(const std::filesystem::path& named, bool mayReplace)
    : target(named), replace(mayReplace) {
  checkTarget(target, replace);
  std::error_code error;
  place = std::filesystem::weakly_canonical(target, error);
  if (error) throw cannotWrite(target, error.message());
  temporary = hiddenNameBeside(place);
  slot = removeOnSignal(temporary.c_str());
  handle = open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
  const int failure = errno;
  if (handle >= 0 && endedBySignal()) unlink(temporary.c_str());
  if (handle >= 0) return;
  forgetOnSignal(slot);
  throw cannotWrite(target, failure == ENOENT ? "there is no folder " + place.parent_path().string()
                                              : std::strerror(failure));
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
  const int closed = close(handle);
  handle = -1;
  if (closed != 0) throw cannotWrite(target, std::strerror(errno));
  if (rename(temporary.c_str(), place.c_str()) != 0)
    throw cannotWrite(target, std::strerror(errno));
  forgetOnSignal(slot);
  slot = -1;
  temporary.clear();
}
