// A file that comes into being under another name and takes its own only when it is complete.
#pragma once

#include <filesystem>

// In the target's folder, so that the last step is a rename. Whatever happens before keep(), the
// half-written file goes: with the object, and with the program on SIGINT, SIGTERM, SIGHUP, a crash
// or an effect's exit(); what a killed program left in the folder goes with the next one. Any
// thread, one thread an object.
class TemporaryFile {
 public:
  // replace: an existing file may be. A link is followed, also one that leads to nothing yet: what
  // it points to is made or replaced. Throws Failure where the target is in the way or its folder
  // cannot be written to.
  TemporaryFile(const std::filesystem::path& target, bool replace);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  int descriptor() const { return handle; }  // open for reading and writing; stays this object's

  // Gives the complete file its name once it is on disk. Throws Failure.
  void keep();

 private:
  int begin();  // returns 0, or the system's error; EEXIST: another name is to be tried

  std::filesystem::path target;  // as named by the person, for messages
  bool replace;
  std::filesystem::path place;      // where it points to
  std::filesystem::path temporary;  // empty: kept
  int slot = -1;                    // among the files that a signal removes
  int handle = -1;
};

// Refuses a target that is there already, unless it may be replaced, and one that is
// no regular file.
void checkTarget(const std::filesystem::path& target, bool replace);
// The same, and refuses one whose folder cannot be written to, by a file made there and removed.
void checkCanBeMade(const std::filesystem::path& target, bool replace);
