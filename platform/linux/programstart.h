// The start of another program, in two steps: what needs memory, and what needs none.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// The environment without what hosts put there for themselves: a host's own libraries and modules
// break other programs.
std::vector<std::string> cleanedEnvironment();

// One thread at a time.
class ProgramStart {
 public:
  // arguments: the program's full path first.
  explicit ProgramStart(const std::vector<std::string>& arguments);

  // The program has the cleaned environment, none of the host's open files, no error stream and
  // default signal handling. input, output: a file, or -1 for nobody's. group: the process group
  // that it joins; 0: one of its own. Returns its number; 0: it could not be started.
  pid_t start(int input, int output, pid_t group) noexcept;

 private:
  std::vector<std::string> argumentStrings;
  std::vector<std::string> environmentStrings;
  std::vector<char*> argumentPointers;  // into the strings, then a null
  std::vector<char*> environmentPointers;
};
