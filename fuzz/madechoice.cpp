// The file dialog's seam without a desktop: each dialog ends at once with the path that was named.
#include "fuzz/madechoice.h"

#include "editor/base/filedialog.h"

namespace {

std::string chosenPath;

}  // namespace

void fuzz::chooseFile(const std::string& path) {
  chosenPath = path;
}

struct FileDialog::System {};

FileDialog::FileDialog() = default;
FileDialog::~FileDialog() = default;

void FileDialog::start(const FileDialogRequest& /*request*/) {
  system = std::make_unique<System>();
}

FileDialog::State FileDialog::poll() {
  return system ? State::chosen : State::none;
}

std::string FileDialog::path() const {
  return system ? chosenPath : std::string();
}

void FileDialog::cancel() {
  system.reset();
}
