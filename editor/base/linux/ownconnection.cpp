// Makes the connection where there is none to share, and gives each window its events.
#include "editor/base/linux/ownconnection.h"

#include <algorithm>
#include <cstdlib>

#include "editor/base/linux/servername.h"

namespace {

OwnConnection* latest = nullptr;  // its windows own it

}  // namespace

std::shared_ptr<OwnConnection> OwnConnection::shared() {
  if (latest != nullptr && !latest->isBroken() && latest->server == serverName())
    return latest->shared_from_this();
  std::shared_ptr<OwnConnection> made(new OwnConnection);
  if (made->isBroken()) return nullptr;
  latest = made.get();
  return made;
}

OwnConnection::OwnConnection() : server(serverName()), connection(xcb_connect(nullptr, nullptr)) {}

OwnConnection::~OwnConnection() {
  if (latest == this) latest = nullptr;
  xcb_flush(connection);
  xcb_disconnect(connection);
}

void OwnConnection::add(FocusListener* listener) {
  listeners.push_back({listener, 0});
}

void OwnConnection::listen(FocusListener* listener, xcb_window_t window) noexcept {
  for (Listening& each : listeners) {
    if (each.listener == listener) each.window = window;
  }
  const std::uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
  xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
  xcb_flush(connection);
}

void OwnConnection::forget(FocusListener* listener) noexcept {
  std::erase_if(listeners, [listener](const Listening& each) { return each.listener == listener; });
}

void OwnConnection::handOutEvents() {
  while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
    const auto type = event->response_type & 0x7F;  // the high bit marks events sent by clients
    if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
      const auto* focus = reinterpret_cast<const xcb_focus_in_event_t*>(event);
      for (const Listening& each : listeners) {
        if (each.window == focus->event) each.listener->focusChanged(*focus);
      }
    }
    std::free(event);
  }
}
