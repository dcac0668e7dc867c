// The file dialog on the desktop's dialog program.
#include "editor/base/filedialog.h"

#include <strings.h>
#include <unistd.h>

#include "editor/base/linux/filechoice.h"
#include "platform/linux/childprogram.h"
#include "platform/linux/desktopdialog.h"
#include "platform/paths.h"

namespace {

bool endsWithExtension(const std::string& path, const std::string& extension) {
  const std::string ending = "." + extension;
  return path.size() >= ending.size() &&
         strcasecmp(path.c_str() + path.size() - ending.size(), ending.c_str()) == 0;
}

}  // namespace

struct FileDialog::System {
  enum class Step { choosing, confirming };

  FileDialogRequest request;
  std::vector<desktopdialog::Program> programs;  // still to be tried, the one in use first
  ChildProgram program;
  Step step = Step::choosing;
  State state = State::running;
  std::string path;

  // Shows the dialog with the first program that starts.
  void choose() {
    step = Step::choosing;
    for (; !programs.empty(); programs.erase(programs.begin())) {
      if (program.start(fileChoice(programs.front(), request))) return;
    }
    state = State::unavailable;
  }

  void programEnded() {
    const desktopdialog::Answer answer =
        desktopdialog::answerOf(program.exitStatus(), program.output());
    if (step == Step::confirming) {
      confirmed(answer);
    } else if (answer == desktopdialog::Answer::accepted) {
      accepted(program.output());
    } else if (answer == desktopdialog::Answer::declined) {
      state = State::cancelled;
    } else {
      programs.erase(programs.begin());
      choose();
    }
  }

  void accepted(std::string output) {
    // one: a name may end with a new line itself
    if (!output.empty() && output.back() == '\n') output.pop_back();
    // with a zero in it, it would be another file's name to the system
    const bool isFile = !output.empty() && output[0] == '/' && output.back() != '/' &&
                        output.find('\0') == std::string::npos;
    if (!isFile) {
      state = State::cancelled;
      return;
    }
    path = output;
    state = State::chosen;
    if (!request.save || endsWithExtension(path, request.extension)) return;
    path += "." + request.extension;
    // The program has asked about the name that was typed, not about this one.
    if (access(path.c_str(), F_OK) != 0) return;
    state = State::running;
    step = Step::confirming;
    const std::string text = namePart(path) + "\nThis file exists already. Replace it?";
    if (!program.start(desktopdialog::question(programs.front(), request.title, text)))
      chooseAgain();
  }

  void confirmed(desktopdialog::Answer answer) {
    if (answer == desktopdialog::Answer::accepted) {
      state = State::chosen;
    } else {
      chooseAgain();
    }
  }

  // With the whole name proposed, about which the program asks itself.
  void chooseAgain() {
    request.folder = folderPart(path);
    request.proposedName = namePart(path);
    choose();
  }
};

FileDialog::FileDialog() = default;
FileDialog::~FileDialog() = default;

void FileDialog::start(const FileDialogRequest& request) {
  system = std::make_unique<System>();
  system->request = request;
  if (desktopdialog::hasDisplay()) system->programs = desktopdialog::filePrograms();
  system->choose();
}

FileDialog::State FileDialog::poll() {
  if (!system) return State::none;
  if (system->state == State::running && system->program.poll() == ChildProgram::State::ended) {
    system->programEnded();
  }
  return system->state;
}

std::string FileDialog::path() const {
  return system ? system->path : std::string();
}

void FileDialog::cancel() {
  system.reset();
}
