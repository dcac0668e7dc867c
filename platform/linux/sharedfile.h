// One small file that several processes replace as a whole: bounded reading, a lock, and replacing
// in one step.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace sharedfile {

enum class Reading {
  done,
  absent,
  unreadable,  // it may hold something: leave it alone
  tooLarge,
};

// Reads at most `limit` bytes; `out` is only set on `done`. Needs no lock: a file is only ever
// replaced as a whole.
Reading read(const std::string& path, std::size_t limit, std::string& out);

// The lock beside the file, held by one thread of one process at a time while the object lives.
class Lock {
 public:
  // path: the lock's own file, made where missing and never removed.
  Lock(const std::string& path, std::chrono::milliseconds longestWait);
  ~Lock();
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  bool isHeld() const { return file >= 0; }
  // False where the file system knows no locks: others may write at the same time.
  bool excludes() const { return exclusive; }

 private:
  int file = -1;
  bool exclusive = true;
};

// Both only while the lock is held.

// Puts the content in the file's place and on disk: whoever reads, or cuts the power, finds the old
// content or the new one. alone: nobody else writes at the same time. False: the file is as it was.
bool replace(const std::string& path, const std::string& content, bool alone = true);
// Gives the file another name in the same folder, so that its user can still look at it.
bool keepAside(const std::string& path);

}  // namespace sharedfile
