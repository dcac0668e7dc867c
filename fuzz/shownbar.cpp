// The window is a frame of the toolkit's that is in no window of a system.
#include "fuzz/shownbar.h"

#include <memory>

#include "editor/base/toolkitlibrary.h"
#include "editor/window/adeditor.h"
#include "fuzz/madechoice.h"
#include "fuzz/require.h"
#include "fuzz/wholeeffect.h"
#include "vstgui.h"

namespace fuzz {
namespace {

class ShownEditor : public ADEditor {
 public:
  explicit ShownEditor(Trelvan* owner) : ADEditor(owner) {
    constexpr VSTGUI::CCoord kWidth = 302, kHeight = 251;  // pixels, the window's
    frame = new VSTGUI::CFrame(VSTGUI::CRect(0, 0, kWidth, kHeight), this);
  }
  ~ShownEditor() override {
    endFileOperation();
    frame->forget();
    frame = nullptr;
  }
  ShownEditor(const ShownEditor&) = delete;
  ShownEditor& operator=(const ShownEditor&) = delete;

 private:
  const ToolkitLibrary toolkit;
};

// The effect's, in the place of the one that it was made with.
CPresetSystemEditor& shownEditor() {
  static CPresetSystemEditor* const editor = [] {
    auto* made = new ShownEditor(&wholeEffect());
    wholeEffect().setEditor(made);
    chooseFile(chosenFile().path());
    return made;
  }();
  return *editor;
}

}  // namespace

MemoryFile& chosenFile() {
  static MemoryFile file;
  return file;
}

void press(FileButton button, bool reversed) {
  CPresetSystemEditor& editor = shownEditor();
  switch (button) {
    case FileButton::loadBank:
      editor.loadBank(reversed);
      break;
    case FileButton::loadPreset:
      editor.loadPreset(reversed);
      break;
    case FileButton::saveBank:
      editor.saveBank();
      break;
    case FileButton::savePreset:
      editor.savePreset();
      break;
  }
  require(editor.fileOperationRunning(), "the button starts an operation");
  editor.completeFileOperation();
  require(!editor.fileOperationRunning(), "which is over with the user's choice");
}

}  // namespace fuzz
