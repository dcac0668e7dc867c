// The file dialog as the toolkit's own selector, which shows the system's panel.
#include "editor/base/filedialog.h"

#include "lib/cfileselector.h"
#include "lib/cvstguitimer.h"
#include "platform/validtext.h"
#include "vstgui.h"

namespace {

// The toolkit makes nil of other bytes, and the panel ends the process for it.
bool isText(const std::string& bytes) {
  return validText(bytes) == bytes;
}

// One panel. It is held by what runs it as well as by the dialog: the panel runs an event loop of
// its own, in which a host may do anything, end the dialog's owner included.
struct Panel {
  FileDialogRequest request;
  FileDialog::State state = FileDialog::State::running;
  bool wanted = true;
  std::string path;
  VSTGUI::SharedPointer<VSTGUI::CNewFileSelector> selector;  // while it is up

  void run() {
    if (!wanted) return;
    const auto style = request.save ? VSTGUI::CNewFileSelector::kSelectSaveFile
                                    : VSTGUI::CNewFileSelector::kSelectFile;
    selector = VSTGUI::owned(VSTGUI::CNewFileSelector::create(nullptr, style));
    if (!selector) {
      state = FileDialog::State::unavailable;
      return;
    }
    selector->setTitle(request.title.c_str());
    if (!request.folder.empty() && isText(request.folder))
      selector->setInitialDirectory(request.folder.c_str());
    selector->setDefaultExtension(
        VSTGUI::CFileExtension(request.typeName.c_str(), request.extension.c_str()));
    selector->setAllowMultiFileSelection(false);
    if (request.save && isText(request.proposedName))
      selector->setDefaultSaveName(request.proposedName.c_str());
    selector->runModal();
    state = FileDialog::State::cancelled;
    if (selector->getNumSelectedFiles() == 1) {
      path = selector->getSelectedFile(0);
      state = FileDialog::State::chosen;
    }
    selector = nullptr;
  }

  void end() {
    wanted = false;
    if (selector) selector->cancel();
  }
};

}  // namespace

struct FileDialog::System {
  std::shared_ptr<Panel> panel = std::make_shared<Panel>();

  System() = default;
  ~System() { panel->end(); }
  System(const System&) = delete;
  System& operator=(const System&) = delete;
};

FileDialog::FileDialog() = default;
FileDialog::~FileDialog() = default;

// The panel comes up from the run loop, when nothing of the toolkit's or the host's is on the stack
// any more.
void FileDialog::start(const FileDialogRequest& request) {
  system = std::make_unique<System>();
  system->panel->request = request;
  VSTGUI::Call::later([panel = system->panel] { panel->run(); });
}

FileDialog::State FileDialog::poll() {
  return system ? system->panel->state : State::none;
}

std::string FileDialog::path() const {
  return system ? system->panel->path : std::string();
}

void FileDialog::cancel() {
  system.reset();
}
