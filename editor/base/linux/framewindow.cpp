// Opens the toolkit's frame in a host's X11 window, inside a window of our own.
#include "editor/base/framewindow.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>

#include "editor/base/linux/sharedrunloop.h"
#include "lib/platform/platform_x11.h"
#include "vstgui.h"

namespace {

using Clock = std::chrono::steady_clock;

// A window in the host's, on a connection apart from the toolkit's, so that what we ask for on it
// does not mix with its events.
class OwnWindow {
 public:
  // The window has the root's depth and visual: in a host's window with an alpha channel the
  // toolkit's own would inherit the depth and stay blank. It also takes the toolkit's window with
  // it when it goes, which the toolkit leaves there.
  OwnWindow(xcb_window_t parent, std::uint16_t width, std::uint16_t height)
      : connection(xcb_connect(nullptr, &screenNumber)) {
    if (xcb_connection_has_error(connection) != 0) return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber) xcb_screen_next(&screens);
    const xcb_screen_t& screen = *screens.data;
    window = xcb_generate_id(connection);
    const std::uint32_t values[] = {0, screen.default_colormap};  // border pixel, colour map
    const xcb_void_cookie_t asked =
        xcb_create_window_checked(connection, screen.root_depth, window, parent, 0, 0, width,
                                  height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual,
                                  XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
    xcb_map_window(connection, window);
    xcb_generic_error_t* refused = xcb_request_check(connection, asked);
    there = refused == nullptr && xcb_connection_has_error(connection) == 0;
    std::free(refused);
  }
  ~OwnWindow() {
    if (there) xcb_destroy_window(connection, window);
    xcb_flush(connection);
    xcb_disconnect(connection);
  }
  OwnWindow(const OwnWindow&) = delete;
  OwnWindow& operator=(const OwnWindow&) = delete;

  bool isThere() const { return there; }  // false: no display, or the host's window is none
  xcb_window_t id() const { return window; }
  xcb_connection_t* link() const { return connection; }

 private:
  int screenNumber = 0;
  xcb_connection_t* connection;
  xcb_window_t window = 0;
  bool there = false;
};

// Watches where the keyboard goes: the toolkit does not.
class FocusWatch {
 public:
  void watch(xcb_connection_t* connection, xcb_window_t window) {
    const std::uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection);
  }

  // Window managers focus the top-level window first on every click, so a loss to an ancestor
  // counts only when the focus has not come back after a moment.
  bool lost(xcb_connection_t* connection) {
    constexpr auto kRefocusTime = std::chrono::milliseconds(150);
    bool gone = false;
    while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
      const auto type = event->response_type & 0x7F;  // the high bit marks events sent by clients
      const auto* focus = reinterpret_cast<const xcb_focus_out_event_t*>(event);
      const bool real =
          focus->mode == XCB_NOTIFY_MODE_NORMAL || focus->mode == XCB_NOTIFY_MODE_WHILE_GRABBED;
      if (type == XCB_FOCUS_IN) {
        lostToAncestor.reset();
      } else if (type == XCB_FOCUS_OUT && real) {
        if (focus->detail == XCB_NOTIFY_DETAIL_NONLINEAR) gone = true;
        if (focus->detail == XCB_NOTIFY_DETAIL_ANCESTOR) lostToAncestor = Clock::now();
      }
      std::free(event);
    }
    if (lostToAncestor && Clock::now() - *lostToAncestor > kRefocusTime) gone = true;
    if (gone) lostToAncestor.reset();
    return gone;
  }

 private:
  std::optional<Clock::time_point> lostToAncestor;
};

}  // namespace

struct FrameWindow::System {
  std::shared_ptr<OwnWindow> own;
  // Of the frame and then our window; made while there is memory, as an end may not fail.
  IdleRunLoop::Actions ending;
  FocusWatch focus;
};

FrameWindow::FrameWindow() = default;

FrameWindow::~FrameWindow() {
  close();
}

bool FrameWindow::open(VSTGUI::CFrame* frame, void* hostWindow) {
  const auto parent = static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>(hostWindow));
  const auto width = static_cast<std::uint16_t>(frame->getWidth());
  const auto height = static_cast<std::uint16_t>(frame->getHeight());
  const auto made = std::make_shared<OwnWindow>(parent, width, height);
  if (!made->isThere()) return false;
  auto opening = std::make_unique<System>();
  opening->own = made;
  opening->ending.emplace_back([frame, window = made] { frame->close(); });
  VSTGUI::X11::FrameConfig config;
  config.runLoop = openSharedRunLoop();
  if (!config.runLoop) return false;
  auto* handle = reinterpret_cast<void*>(static_cast<std::uintptr_t>(made->id()));
  if (!frame->open(handle, VSTGUI::PlatformType::kX11EmbedWindowID, &config)) return false;
  keepDrawingDevice();
  if (auto* platform = dynamic_cast<VSTGUI::X11::IX11Frame*>(frame->getPlatformFrame())) {
    opening->focus.watch(made->link(), platform->getX11WindowID());
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

void FrameWindow::pump() {
  sharedRunLoop()->pump();
}

void FrameWindow::during(const std::function<void()>& work) {
  sharedRunLoop()->during(work);
}

bool FrameWindow::keyboardLost() {
  return system && system->focus.lost(system->own->link());
}
