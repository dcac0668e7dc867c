// Opens the toolkit's frame in a host's NSView. The application's run loop brings it its events.
#include "editor/base/framewindow.h"
#include "vstgui.h"

namespace {

class FrameWindowMac final : public FrameWindow {
 public:
  ~FrameWindowMac() override { close(); }

  bool open(VSTGUI::CFrame* opened, void* hostWindow) override {
    if (!opened->open(hostWindow, VSTGUI::PlatformType::kNSView)) return false;
    frame = opened;
    return true;
  }

  // A control's callback may ask for this while the toolkit is on its way through the frame's views.
  void close() override {
    VSTGUI::CFrame* closing = frame;
    frame = nullptr;
    if (closing == nullptr) return;
    if (!closing->doAfterEventProcessing([closing] { closing->close(); })) closing->close();
  }

  void pump() override {}

  bool keyboardLost() override { return false; }  // the text entry's own window sees it

 private:
  VSTGUI::CFrame* frame = nullptr;
};

}  // namespace

std::unique_ptr<FrameWindow> FrameWindow::create() {
  return std::make_unique<FrameWindowMac>();
}
