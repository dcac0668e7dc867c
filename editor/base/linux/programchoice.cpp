// Runs the dialog program, and the next one where it does not work.
#include "editor/base/linux/programchoice.h"

#include <utility>

#include "editor/base/linux/filechoice.h"
#include "platform/paths.h"

ProgramChoice::ProgramChoice(std::vector<desktopdialog::Program> installed)
    : programs(std::move(installed)) {}

void ProgramChoice::choose(const FileDialogRequest& request) {
  asked = request;
  confirming = false;
  program.end();
  state = State::running;
  show();
}

// With the first program that starts. Where memory runs out, the next poll tries again.
void ProgramChoice::show() {
  for (; !programs.empty(); programs.erase(programs.begin())) {
    if (program.start(fileChoice(programs.front(), asked))) return;
  }
  state = State::unavailable;
}

bool ProgramChoice::askToReplace(const FileDialogRequest& request, const std::string& path) {
  const std::string text = namePart(path) + "\nThis file exists already. Replace it?";
  if (!program.start(desktopdialog::question(programs.front(), request.title, text))) return false;
  confirming = true;
  state = State::running;
  return true;
}

FileMeans::State ProgramChoice::poll() {
  if (state != State::running) return state;
  switch (program.poll()) {
    case ChildProgram::State::running:
      return state;
    case ChildProgram::State::none:
      show();
      return state;
    case ChildProgram::State::ended:
      break;
  }
  const desktopdialog::Answer answer =
      desktopdialog::answerOf(program.exitStatus(), program.output());
  if (answer == desktopdialog::Answer::accepted) {
    state = State::accepted;
  } else if (answer == desktopdialog::Answer::declined || confirming) {
    state = State::declined;
  } else {
    program.end();
    programs.erase(programs.begin());
    show();
  }
  return state;
}

std::string ProgramChoice::path() const {
  std::string output = program.output();
  // one: a name may end with a new line itself
  if (!output.empty() && output.back() == '\n') output.pop_back();
  // with a zero in it, it would be another file's name to the system
  const bool isPath = !output.empty() && output[0] == '/' && output.back() != '/' &&
                      output.find('\0') == std::string::npos;
  return isPath ? output : std::string();
}
