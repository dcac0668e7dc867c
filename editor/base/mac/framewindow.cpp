// Opens the toolkit's frame in a host's NSView. The application's run loop brings it its events.
#include "editor/base/framewindow.h"

#include "vstgui.h"

struct FrameWindow::System {
  VSTGUI::CFrame* frame;
};

FrameWindow::FrameWindow() = default;

FrameWindow::~FrameWindow() {
  close();
}

bool FrameWindow::open(VSTGUI::CFrame* frame, void* hostWindow) {
  auto opening = std::make_unique<System>(System{frame});
  if (!frame->open(hostWindow, VSTGUI::PlatformType::kNSView)) return false;
  system = std::move(opening);
  return true;
}

// A control's callback may ask for this while the toolkit is on its way through the frame's views.
void FrameWindow::close() {
  const std::unique_ptr<System> ending = std::move(system);
  if (!ending) return;
  VSTGUI::CFrame* closing = ending->frame;
  if (!closing->doAfterEventProcessing([closing] { closing->close(); })) closing->close();
}

void FrameWindow::pump() {}

void FrameWindow::during(const std::function<void()>& work) {
  work();
}

bool FrameWindow::keyboardLost() {
  return false;  // the text entry's own window sees it
}
