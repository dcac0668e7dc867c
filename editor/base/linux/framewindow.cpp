// Opens the toolkit's frame in a host's X11 window, inside a window of our own.
#include "editor/base/framewindow.h"

#include <cstdint>
#include <memory>
#include <utility>

#include "editor/base/linux/focuswatch.h"
#include "editor/base/linux/openfiles.h"
#include "editor/base/linux/ownwindow.h"
#include "editor/base/linux/sharedrunloop.h"
#include "editor/base/linux/windowinput.h"
#include "lib/platform/platform_x11.h"
#include "vstgui.h"

struct FrameWindow::System {
  explicit System(std::shared_ptr<OwnWindow> made) : own(std::move(made)), focus(own->link()) {}

  std::shared_ptr<OwnWindow> own;
  // Of the frame and then our window; made while there is memory, as an end may not fail.
  IdleRunLoop::Actions ending;
  FocusWatch focus;
  xcb_window_t unshown = 0;  // the toolkit's, until the first pump
};

FrameWindow::FrameWindow() = default;

FrameWindow::~FrameWindow() {
  close();
}

bool FrameWindow::open(VSTGUI::CFrame* frame, void* hostWindow) {
  const auto parent = static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>(hostWindow));
  const auto width = static_cast<std::uint16_t>(frame->getWidth());
  const auto height = static_cast<std::uint16_t>(frame->getHeight());
  if (!areFilesLeft()) return false;
  const auto connection = OwnConnection::shared();
  if (!connection) return false;
  const auto made = std::make_shared<OwnWindow>(connection, parent, width, height);
  if (!made->isThere()) return false;
  VSTGUI::X11::FrameConfig config;
  config.runLoop = openSharedRunLoop();
  if (!config.runLoop || !canDrawIn(made->id())) return false;
  loadFonts();
  auto opening = std::make_unique<System>(made);
  const auto input = std::make_shared<WindowInput>(frame, made->id());
  opening->ending.emplace_back(
      [frame, input, window = made, use = RunLoopUse()] { frame->close(); });
  auto* handle = reinterpret_cast<void*>(static_cast<std::uintptr_t>(made->id()));
  if (!frame->open(handle, VSTGUI::PlatformType::kX11EmbedWindowID, &config)) return false;
  finishRequests();
  if (auto* platform = dynamic_cast<VSTGUI::X11::IX11Frame*>(frame->getPlatformFrame())) {
    opening->unshown = platform->getX11WindowID();
    input->opened(opening->unshown);
    opening->focus.watch(made->id());
  }
  system = std::move(opening);
  return true;
}

void FrameWindow::close() {
  const std::unique_ptr<System> closing = std::move(system);
  if (!closing) return;
  closing->own.reset();
  sharedRunLoop()->runOutsidePump(std::move(closing->ending));
}

// The toolkit shows its window when a property of it changes, which it knows by the number that the
// first server of the process has given the property; another server's is another.
void FrameWindow::pump() {
  const auto own = system->own;  // this may be gone afterwards
  const xcb_window_t shown = std::exchange(system->unshown, 0);
  sharedRunLoop()->pump();
  if (shown != 0) own->show(shown);
}

void FrameWindow::during(const std::function<void()>& work) {
  sharedRunLoop()->during(work);
}

bool FrameWindow::keyboardLost() {
  return system && system->focus.lost();
}
