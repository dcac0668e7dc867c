// The effect's window in an X11 window.
#include "host/vst/editorwindow.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>

#include "host/base/failure.h"

namespace {

constexpr auto kIdleInterval = std::chrono::milliseconds(20);  // 50 Hz, as the quicker hosts do

// The connection and the window on it, which the user closes through the window manager.
class PlainWindow {
 public:
  PlainWindow(int width, int height, const std::string& title)
      : connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection.get()) != 0) {
      throw Failure("no display to show the window on (is DISPLAY set?)");
    }
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data;
    window = xcb_generate_id(connection.get());
    const std::uint32_t background = screen->black_pixel;
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, screen->root, 0, 0,
                      static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_BACK_PIXEL,
                      &background);
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(title.size()), title.data());
    fixSize(width, height);
    const xcb_atom_t protocols = atom("WM_PROTOCOLS");
    closing = atom("WM_DELETE_WINDOW");
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, protocols, XCB_ATOM_ATOM,
                        32, 1, &closing);
    xcb_map_window(connection.get(), window);
    xcb_flush(connection.get());
  }

  void* handle() const { return reinterpret_cast<void*>(static_cast<std::uintptr_t>(window)); }

  void resize(int width, int height) {
    fixSize(width, height);
    const std::uint32_t size[] = {static_cast<std::uint32_t>(width),
                                  static_cast<std::uint32_t>(height)};
    xcb_configure_window(connection.get(), window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_flush(connection.get());
  }

  // False once the user wants it closed, or the display is gone.
  bool wanted() {
    while (xcb_generic_event_t* event = xcb_poll_for_event(connection.get())) {
      // the high bit: sent by a client
      const bool message = (event->response_type & 0x7F) == XCB_CLIENT_MESSAGE;
      const bool close =
          message &&
          reinterpret_cast<xcb_client_message_event_t*>(event)->data.data32[0] == closing;
      std::free(event);
      if (close) return false;
    }
    return xcb_connection_has_error(connection.get()) == 0;
  }

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* open) const { xcb_disconnect(open); }
  };

  xcb_atom_t atom(const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        connection.get(), xcb_intern_atom(connection.get(), 0, length, name), nullptr);
    const xcb_atom_t found = reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
    std::free(reply);
    return found;
  }

  // Tells the window manager that the effect's window has one size only.
  void fixSize(int width, int height) {
    constexpr std::uint32_t kMinimumAndMaximum = (1U << 4) | (1U << 5);  // flags of WM_NORMAL_HINTS
    const auto w = static_cast<std::uint32_t>(width);
    const auto h = static_cast<std::uint32_t>(height);
    const std::uint32_t hints[18] = {kMinimumAndMaximum, 0, 0, 0, 0, w, h, w, h};
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
  }

  std::unique_ptr<xcb_connection_t, Disconnect> connection;
  xcb_window_t window = 0;
  xcb_atom_t closing = XCB_ATOM_NONE;
};

// Effects are asked for their size before and after opening: some know it only then.
HostCallback::Size windowSize(Effect& effect) {
  ERect* rect = nullptr;
  effect.dispatch(effEditGetRect, 0, 0, &rect);
  // until it knows
  if (rect == nullptr || rect->right <= rect->left || rect->bottom <= rect->top) return {320, 200};
  return {rect->right - rect->left, rect->bottom - rect->top};
}

}  // namespace

void showEditor(Effect& effect, HostCallback& callback, const std::string& title) {
  if ((effect.record().flags & effFlagsHasEditor) == 0)
    throw Failure(effect.plugin() + " has no window");
  const HostCallback::Size before = windowSize(effect);
  PlainWindow window(before.width, before.height, title);
  if (effect.dispatch(effEditOpen, 0, 0, window.handle()) == 0) {
    throw Failure(effect.plugin() + " did not open its window");
  }
  const HostCallback::Size size = windowSize(effect);
  if (size.width != before.width || size.height != before.height)
    window.resize(size.width, size.height);
  while (window.wanted()) {
    effect.dispatch(effEditIdle);
    if (const auto asked = callback.takeWindowSize()) window.resize(asked->width, asked->height);
    std::this_thread::sleep_for(kIdleInterval);
  }
  effect.dispatch(effEditClose);
}
