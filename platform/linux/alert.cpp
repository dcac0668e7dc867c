// The alert, shown by the desktop's dialog program.
#include "platform/alert.h"

#include <string>
#include <utility>
#include <vector>

#include "platform/linux/childprogram.h"
#include "platform/linux/desktopdialog.h"

struct Alert::System {
  std::string message;
  std::vector<desktopdialog::Program> programs;  // still to be tried, the one in use first
  ChildProgram program;
  State state = State::running;

  // With the first program that starts. Where memory runs out the next poll tries again.
  void show() {
    for (; !programs.empty(); programs.erase(programs.begin())) {
      if (program.start(desktopdialog::warning(programs.front(), "Trelvan", message))) return;
    }
    state = State::unavailable;
  }

  void look() {
    switch (program.poll()) {
      case ChildProgram::State::running:
        return;
      case ChildProgram::State::none:
        return show();
      case ChildProgram::State::ended:
        break;
    }
    if (desktopdialog::answerOf(program.exitStatus(), program.output()) !=
        desktopdialog::Answer::unusable) {
      state = State::dismissed;
      return;
    }
    program.end();
    programs.erase(programs.begin());
    show();
  }
};

Alert::Alert() = default;
Alert::~Alert() = default;

void Alert::start(const char* message) {
  auto starting = std::make_unique<System>();
  starting->message = message != nullptr ? message : "";
  if (desktopdialog::hasDisplay()) starting->programs = desktopdialog::alertPrograms();
  starting->show();
  system = std::move(starting);
}

Alert::State Alert::poll() {
  if (!system) return State::none;
  if (system->state == State::running) system->look();
  return system->state;
}

void Alert::cancel() {
  system.reset();
}
