// Opens the toolkit's one X connection and holds it for the library's life.
#include "editor/base/linux/sharedrunloop.h"

#include <cairo/cairo-xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "editor/base/linux/servername.h"
#include "lib/platform/linux/x11platform.h"

namespace {

using VSTGUI::X11::RunLoop;

struct Shared {
  VSTGUI::SharedPointer<IdleRunLoop> loop;
  std::string server;  // that the toolkit is connected to
};
Shared* shared = nullptr;

// The toolkit uses its connection without a look at whether it came to be, so one of the same kind
// is tried first. The server sees its end before it sees the next one's beginning: a last place is
// free again.
bool displayTakesOneMore() {
  xcb_connection_t* tried = xcb_connect(nullptr, nullptr);
  const bool taken = xcb_connection_has_error(tried) == 0;
  xcb_disconnect(tried);
  return taken;
}

bool isUsable() {
  return shared->server == serverName() &&
         xcb_connection_has_error(RunLoop::instance().getXcbConnection()) == 0;
}

// The visual that the toolkit takes for its windows.
xcb_visualtype_t* visualOf(const xcb_screen_t& screen) {
  for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0;
       xcb_depth_next(&depth)) {
    for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0;
         xcb_visualtype_next(&visual)) {
      if (visual.data->visual_id == screen.root_visual) return visual.data;
    }
  }
  return nullptr;
}

}  // namespace

VSTGUI::SharedPointer<IdleRunLoop> sharedRunLoop() {
  return shared != nullptr ? shared->loop : nullptr;
}

VSTGUI::SharedPointer<IdleRunLoop> openSharedRunLoop() {
  if (shared != nullptr && !isUsable()) {
    if (RunLoopUse::any()) return nullptr;
    closeSharedRunLoop();
  }
  if (shared == nullptr) {
    if (!displayTakesOneMore()) return nullptr;
    auto made = std::make_unique<Shared>(Shared{VSTGUI::makeOwned<IdleRunLoop>(), serverName()});
    made->loop->makeRoom();
    RunLoop::init(made->loop);
    shared = made.release();
  }
  if (!isUsable()) return nullptr;
  shared->loop->makeRoom();
  return shared->loop;
}

// Asks the drawing library, which takes no palette for instance. The device that it has for the
// toolkit's connection ends with that: the library aborts the process when a connection is closed
// and another one comes to lie at its address.
bool canDrawIn(xcb_window_t window) {
  xcb_connection_t* link = RunLoop::instance().getXcbConnection();
  xcb_visualtype_t* visual = visualOf(*xcb_setup_roots_iterator(xcb_get_setup(link)).data);
  if (visual == nullptr) return false;
  cairo_surface_t* surface = cairo_xcb_surface_create(link, window, visual, 1, 1);
  const bool can = cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS;
  if (can) RunLoop::instance().setDevice(cairo_surface_get_device(surface));
  cairo_surface_destroy(surface);
  return can;
}

void finishRequests() {
  xcb_connection_t* link = RunLoop::instance().getXcbConnection();
  std::free(xcb_get_input_focus_reply(link, xcb_get_input_focus(link), nullptr));  // any question
}

void closeSharedRunLoop() {
  if (shared == nullptr) return;
  RunLoop::exit();
  delete shared;
  shared = nullptr;
}
