// Unfinished files.
#include "host/base/partfile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "host/base/text.h"

namespace {

constexpr std::size_t kLongestName = 255;  // bytes that file systems take
constexpr std::string_view kMark = ".widen-";
constexpr std::string_view kEnd = ".part";
constexpr std::string_view kNumber = "0123456789";

// ".NAME.widen-PROCESS-NUMBER.part"
bool isPartName(std::string_view name) {
  if (!name.starts_with('.') || !name.ends_with(kEnd)) return false;
  const auto mark = name.rfind(kMark);
  if (mark == std::string_view::npos) return false;
  const std::size_t begin = mark + kMark.size();
  const std::string_view numbers = name.substr(begin, name.size() - kEnd.size() - begin);
  const auto dash = numbers.find('-');
  return dash != std::string_view::npos && dash > 0 && dash + 1 < numbers.size() &&
         numbers.find_first_not_of(kNumber) == dash &&
         numbers.find_first_not_of(kNumber, dash + 1) == std::string_view::npos;
}

bool isLocked(int descriptor) {
  return flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

// Who holds the lock while the name goes is sure that nobody begins to work on the file.
void removeUnlessLocked(const std::filesystem::path& file) {
  const int handle = open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (handle < 0) return;
  struct stat status {};
  const bool regular = fstat(handle, &status) == 0 && S_ISREG(status.st_mode);
  if (regular && flock(handle, LOCK_EX | LOCK_NB) == 0) unlink(file.c_str());
  close(handle);
}

bool isFirstLook(const std::filesystem::path& folder) {
  static std::mutex lock;
  static std::set<std::filesystem::path> looked;
  const std::lock_guard guard(lock);
  return looked.insert(folder).second;
}

}  // namespace

std::filesystem::path partNameBeside(const std::filesystem::path& place) {
  static std::atomic<unsigned> count = 0;
  const std::string rest =
      formatted(".widen-%d-%u.part", static_cast<int>(getpid()), count.fetch_add(1));
  const std::string name = place.filename().string();  // as much of it as there is room for
  return place.parent_path() / ("." + name.substr(0, kLongestName - 1 - rest.size()) + rest);
}

bool claimPart(int descriptor) {
  if (isLocked(descriptor)) return false;
  struct stat status {};
  return fstat(descriptor, &status) != 0 || status.st_nlink > 0;
}

void removeLeftParts(const std::filesystem::path& folder) {
  if (!isFirstLook(folder)) return;
  std::error_code error;
  const auto here = folder.empty() ? std::filesystem::path(".") : folder;
  for (std::filesystem::directory_iterator entry(here, error), end; !error && entry != end;
       entry.increment(error)) {
    if (isPartName(entry->path().filename().native())) removeUnlessLocked(entry->path());
  }
}
