// A window of the host's for an effect's window to open in: an X11 window.
#include "host/validate/means/parentwindow.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "host/base/failure.h"

namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

struct Disconnect {
  void operator()(xcb_connection_t* open) const { xcb_disconnect(open); }
};

}  // namespace

struct ParentWindow::System {
  std::unique_ptr<xcb_connection_t, Disconnect> connection{xcb_connect(nullptr, nullptr)};
  const xcb_screen_t* screen = nullptr;
  xcb_window_t window = XCB_NONE;

  std::vector<xcb_window_t> childrenOf(xcb_window_t of) {
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), of), nullptr));
    if (tree == nullptr) return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
  }
  Owned<xcb_get_geometry_reply_t> geometryOf(xcb_window_t of) {
    return Owned<xcb_get_geometry_reply_t>(
        xcb_get_geometry_reply(connection.get(), xcb_get_geometry(connection.get(), of), nullptr));
  }
  // Also waits until the server has done what was asked before.
  bool isVisible(xcb_window_t of) {
    const Owned<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection.get(), xcb_get_window_attributes(connection.get(), of), nullptr));
    return attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
  }
};

void ParentWindow::needDisplay(Trial& trial) {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool works = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  if (!works) trial.leaveOut("no display (is DISPLAY set?)");
}

void ParentWindow::needNamedDisplay(Trial&) {}

ParentWindow::ParentWindow(HostCallback::Size size, bool shown) : system(new System) {
  xcb_connection_t* connection = system->connection.get();
  if (xcb_connection_has_error(connection) != 0)
    throw Failure("no display to show the window on (is DISPLAY set?)");
  system->screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  system->window = xcb_generate_id(connection);
  // No window manager moves it, gives it the keyboard or keeps it waiting.
  const std::uint32_t values[] = {system->screen->black_pixel, 1};
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, system->window, system->screen->root, 0, 0,
                    static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height),
                    0, XCB_WINDOW_CLASS_INPUT_OUTPUT, system->screen->root_visual,
                    XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
  if (shown) show();
  system->isVisible(system->window);
}

ParentWindow::~ParentWindow() = default;  // the window goes with its connection

void* ParentWindow::handle() const {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(system->window));
}

void ParentWindow::show() {
  xcb_map_window(system->connection.get(), system->window);
  system->isVisible(system->window);
}

bool ParentWindow::isShown() {
  return system->isVisible(system->window);
}

void ParentWindow::resize(HostCallback::Size size) {
  const std::uint32_t values[] = {static_cast<std::uint32_t>(size.width),
                                  static_cast<std::uint32_t>(size.height)};
  xcb_configure_window(system->connection.get(), system->window,
                       XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
  system->isVisible(system->window);
}

void ParentWindow::destroy() {
  xcb_destroy_window(system->connection.get(), system->window);
  system->isVisible(system->screen->root);
}

std::vector<ParentWindow::Child> ParentWindow::children() {
  std::vector<Child> all;
  for (const xcb_window_t child : system->childrenOf(system->window)) {
    const auto geometry = system->geometryOf(child);
    if (geometry != nullptr)
      all.push_back({{geometry->width, geometry->height}, system->isVisible(child)});
  }
  return all;
}

bool ParentWindow::isPainted() {
  const auto geometry = system->geometryOf(system->window);
  if (geometry == nullptr) return true;
  const auto width = std::min(geometry->width, system->screen->width_in_pixels);
  const auto height = std::min(geometry->height, system->screen->height_in_pixels);
  // Of the parent, whose picture has its children's in it; only what is on the screen has pixels.
  const Owned<xcb_get_image_reply_t> image(
      xcb_get_image_reply(system->connection.get(),
                          xcb_get_image(system->connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                        system->window, 0, 0, width, height, ~0U),
                          nullptr));
  constexpr int kPixel = 4;  // bytes, at the depths that screens have
  if (image == nullptr) return true;
  const std::uint8_t* pixels = xcb_get_image_data(image.get());
  for (int at = kPixel; at + kPixel <= xcb_get_image_data_length(image.get()); at += kPixel) {
    if (std::memcmp(pixels, pixels + at, kPixel) != 0) return true;
  }
  return false;
}

bool ParentWindow::cutConnection(bool furthestInside) {
  auto inside = system->childrenOf(system->window);
  if (inside.empty()) return false;
  xcb_window_t victim = inside.front();
  while (furthestInside && !(inside = system->childrenOf(victim)).empty()) victim = inside.front();
  xcb_kill_client(system->connection.get(), victim);
  system->isVisible(system->screen->root);
  return true;
}
