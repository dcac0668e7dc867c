// The file dialog on what the desktop has: a dialog program, else the portal.
#include "editor/base/filedialog.h"

#include <strings.h>
#include <unistd.h>

#include <utility>

#include "editor/base/linux/portalchoice.h"
#include "editor/base/linux/programchoice.h"
#include "platform/linux/desktopdialog.h"
#include "platform/paths.h"

namespace {

bool endsWithExtension(const std::string& path, const std::string& extension) {
  const std::string ending = "." + extension;
  return path.size() >= ending.size() &&
         strcasecmp(path.c_str() + path.size() - ending.size(), ending.c_str()) == 0;
}

// No bus is asked where there is a program. Null: there is nothing to show anything on.
std::unique_ptr<FileMeans> usableMeans() {
  if (!desktopdialog::hasDisplay()) return nullptr;
  std::vector<desktopdialog::Program> programs = desktopdialog::filePrograms();
  if (programs.empty()) return std::make_unique<PortalChoice>();
  return std::make_unique<ProgramChoice>(std::move(programs));
}

}  // namespace

struct FileDialog::System {
  enum class Step { choosing, confirming, choosingAgain };

  FileDialogRequest request;
  std::unique_ptr<FileMeans> means;
  Step step = Step::choosing;
  State state = State::running;
  std::string path;

  // One step; what it could not do for want of memory the next one does.
  void look() {
    if (step == Step::choosingAgain) return chooseAgain();
    const FileMeans::State outcome = means->poll();
    if (outcome == FileMeans::State::running) return;
    if (outcome == FileMeans::State::unavailable) {
      state = State::unavailable;
    } else if (step == Step::confirming) {
      confirmed(outcome);
    } else if (outcome == FileMeans::State::accepted) {
      accepted();
    } else {
      state = State::cancelled;
    }
  }

  void accepted() {
    path = means->path();
    if (path.empty()) {
      state = State::cancelled;
    } else if (!request.save || endsWithExtension(path, request.extension)) {
      state = State::chosen;
    } else {
      addExtension();
    }
  }

  // The means has asked about the name that was typed, not about this one.
  void addExtension() {
    path += "." + request.extension;
    if (means->isOnlyFile()) return chooseAgain();
    if (access(path.c_str(), F_OK) != 0) {
      state = State::chosen;
    } else if (means->askToReplace(request, path)) {
      step = Step::confirming;
    } else {
      chooseAgain();
    }
  }

  void confirmed(FileMeans::State outcome) {
    if (outcome == FileMeans::State::accepted) {
      state = State::chosen;
    } else {
      chooseAgain();
    }
  }

  // With the whole name proposed, about which the means asks itself.
  void chooseAgain() {
    step = Step::choosingAgain;
    request.proposedName = namePart(path);
    if (!means->isOnlyFile()) request.folder = folderPart(path);
    means->choose(request);
    step = Step::choosing;
  }
};

FileDialog::FileDialog() = default;
FileDialog::~FileDialog() = default;

void FileDialog::start(const FileDialogRequest& request) {
  auto starting = std::make_unique<System>();
  starting->request = request;
  starting->means = usableMeans();
  if (starting->means) {
    starting->means->choose(request);
  } else {
    starting->state = State::unavailable;
  }
  system = std::move(starting);
}

FileDialog::State FileDialog::poll() {
  if (!system) return State::none;
  if (system->state == State::running) system->look();
  return system->state;
}

std::string FileDialog::path() const {
  return system ? system->path : std::string();
}

void FileDialog::cancel() {
  system.reset();
}
