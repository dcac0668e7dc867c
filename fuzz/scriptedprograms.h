// Programs that a fuzz target's input plays: the calls that start a program and ask for its end,
// linked in the place of the system's.
#pragma once

#include <string>
#include <vector>

#include "fuzz/inputreader.h"

namespace fuzz {

// From here on every program that is started takes from `input` whether it starts, what it writes,
// piece by piece, and how it ends; and so does every question whether a file is there. Null: none
// starts. No process is ever made.
void playPrograms(InputReader* input);

// What has been started so far, in order.
struct PlayedProgram {
  std::vector<std::string> arguments;
  std::string output;    // all that it has written
  bool running = true;   // neither ended by itself nor by a signal
  bool unknown = false;  // somebody else has taken its exit status
  int status = 0;        // as waitpid returns it
};
const std::vector<PlayedProgram>& playedPrograms();

// Whether a shell waits for the host's end, to take the running program with it.
bool isProgramGuarded();

// Which file was asked for last, and what the input said.
struct FileQuestion {
  std::string path;
  bool isThere = false;
};
const FileQuestion& lastFileQuestion();

}  // namespace fuzz
