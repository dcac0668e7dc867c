// A plain X11 window for an effect's own, on a connection of its own.
#include "host/vst/plainwindow.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <string_view>

#include "host/base/failure.h"
#include "platform/validtext.h"

namespace {

// "widen" for whoever starts it, and the name by which window managers keep settings.
constexpr std::string_view kClass("widen\0Widen\0", 12);

// What WM_NAME is for programs that know no other: a byte a character, as far as there is one.
std::string latin1(const std::string& utf8) {
  std::string text;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const bool isLatin = byte < 0xC4U;  // C2 and C3 begin the characters up to U+00FF
    if (byte < 0x80U) {
      text += utf8[i];
    } else if (!continuesCharacter(utf8[i])) {
      const unsigned last = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0U;
      text += isLatin ? static_cast<char>((byte & 0x03U) << 6U | (last & 0x3FU)) : '?';
    }
  }
  return text;
}

struct Disconnect {
  void operator()(xcb_connection_t* open) const { xcb_disconnect(open); }
};

}  // namespace

struct PlainWindow::System {
  xcb_atom_t atom(const char* name);
  void setText(xcb_atom_t property, xcb_atom_t type, const std::string& text);
  void setNames(const std::string& title);
  void setSizeHints(int width, int height);

  std::unique_ptr<xcb_connection_t, Disconnect> connection{xcb_connect(nullptr, nullptr)};
  xcb_window_t window = XCB_WINDOW_NONE;
  xcb_atom_t closing = XCB_ATOM_NONE;
};

PlainWindow::PlainWindow(int width, int height, const std::string& title)
    : system(std::make_unique<System>()) {
  xcb_connection_t* connection = system->connection.get();
  if (xcb_connection_has_error(connection) != 0) {
    throw Failure("no display to show the window on (is DISPLAY set?)");
  }
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  const xcb_window_t window = xcb_generate_id(connection);
  system->window = window;
  const std::uint32_t background = screen->black_pixel;
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0,
                    static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_BACK_PIXEL,
                    &background);
  system->setNames(title);
  system->setSizeHints(width, height);
  const xcb_atom_t protocols = system->atom("WM_PROTOCOLS");
  system->closing = system->atom("WM_DELETE_WINDOW");
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, protocols, XCB_ATOM_ATOM, 32, 1,
                      &system->closing);
  xcb_map_window(connection, window);
  xcb_flush(connection);
}

PlainWindow::~PlainWindow() = default;

void* PlainWindow::handle() const {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(system->window));
}

xcb_atom_t PlainWindow::System::atom(const char* name) {
  const auto length = static_cast<std::uint16_t>(std::strlen(name));
  xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
      connection.get(), xcb_intern_atom(connection.get(), 0, length, name), nullptr);
  const xcb_atom_t found = reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
  std::free(reply);
  return found;
}

void PlainWindow::System::setText(xcb_atom_t property, xcb_atom_t type, const std::string& text) {
  xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                      static_cast<std::uint32_t>(text.size()), text.data());
}

void PlainWindow::System::setNames(const std::string& title) {
  const std::string name = validText(title);
  const xcb_atom_t utf8 = atom("UTF8_STRING");
  setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, latin1(name));
  setText(XCB_ATOM_WM_ICON_NAME, XCB_ATOM_STRING, latin1(name));
  setText(atom("_NET_WM_NAME"), utf8, name);
  setText(atom("_NET_WM_ICON_NAME"), utf8, name);
  setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, std::string(kClass));
}

// Tells the window manager that the effect's window has one size only.
void PlainWindow::System::setSizeHints(int width, int height) {
  constexpr std::uint32_t kMinimumAndMaximum = (1U << 4) | (1U << 5);  // flags of WM_NORMAL_HINTS
  const auto w = static_cast<std::uint32_t>(width);
  const auto h = static_cast<std::uint32_t>(height);
  const std::uint32_t hints[18] = {kMinimumAndMaximum, 0, 0, 0, 0, w, h, w, h};
  xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                      XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
}

void PlainWindow::resize(int width, int height) {
  system->setSizeHints(width, height);
  const std::uint32_t size[] = {static_cast<std::uint32_t>(width),
                                static_cast<std::uint32_t>(height)};
  xcb_configure_window(system->connection.get(), system->window,
                       XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
  xcb_flush(system->connection.get());
}

bool PlainWindow::wanted() {
  while (xcb_generic_event_t* event = xcb_poll_for_event(system->connection.get())) {
    // the high bit: sent by a client
    const bool message = (event->response_type & 0x7F) == XCB_CLIENT_MESSAGE;
    const bool close =
        message &&
        reinterpret_cast<xcb_client_message_event_t*>(event)->data.data32[0] == system->closing;
    std::free(event);
    if (close) return false;
  }
  return xcb_connection_has_error(system->connection.get()) == 0;
}
