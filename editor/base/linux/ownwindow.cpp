// Asks for the window, and whether it came to be.
#include "editor/base/linux/ownwindow.h"

#include <cstdlib>
#include <utility>

OwnWindow::OwnWindow(std::shared_ptr<OwnConnection> shared, xcb_window_t parent,
                     std::uint16_t width, std::uint16_t height)
    : connection(std::move(shared)) {
  if (!isOnScreen(parent)) return;
  xcb_connection_t* link = connection->link();
  window = xcb_generate_id(link);
  const std::uint32_t values[] = {0, screen().default_colormap};  // border pixel, colour map
  const xcb_void_cookie_t asked =
      xcb_create_window_checked(link, screen().root_depth, window, parent, 0, 0, width, height, 0,
                                XCB_WINDOW_CLASS_INPUT_OUTPUT, screen().root_visual,
                                XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
  xcb_map_window(link, window);
  xcb_generic_error_t* refused = xcb_request_check(link, asked);
  there = refused == nullptr && !connection->isBroken();
  std::free(refused);
}

OwnWindow::~OwnWindow() {
  if (there) xcb_destroy_window(connection->link(), window);
  xcb_flush(connection->link());
}

void OwnWindow::show(xcb_window_t inner) const {
  xcb_map_window(connection->link(), inner);
  xcb_flush(connection->link());
}

// The toolkit draws with the visual of the server's first screen, whichever one DISPLAY names.
const xcb_screen_t& OwnWindow::screen() const {
  return *xcb_setup_roots_iterator(xcb_get_setup(connection->link())).data;
}

bool OwnWindow::isOnScreen(xcb_window_t parent) const {
  xcb_connection_t* link = connection->link();
  xcb_get_geometry_reply_t* place =
      xcb_get_geometry_reply(link, xcb_get_geometry(link, parent), nullptr);
  const bool on = place != nullptr && place->root == screen().root;
  std::free(place);
  return on;
}
