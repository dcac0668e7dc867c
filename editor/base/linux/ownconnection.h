// The X connection of our own windows, apart from the toolkit's: the toolkit reads all events of
// its own, and throws away those that say where the keyboard goes.
#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <string>
#include <vector>

// Hears of a window's keyboard focus.
class FocusListener {
 public:
  virtual void focusChanged(const xcb_focus_in_event_t& event) = 0;

 protected:
  ~FocusListener() = default;
};

// One for all windows in the process. The first window makes it, and it goes with the last one. On
// the thread of the windows.
class OwnConnection : public std::enable_shared_from_this<OwnConnection> {
 public:
  // Another one than the others' where that has broken, or where DISPLAY has come to name another
  // server. Null: there is no server, or it takes no more connections.
  static std::shared_ptr<OwnConnection> shared();

  ~OwnConnection();
  OwnConnection(const OwnConnection&) = delete;
  OwnConnection& operator=(const OwnConnection&) = delete;

  xcb_connection_t* link() const { return connection; }
  bool isBroken() const { return xcb_connection_has_error(connection) != 0; }

  // Not owned, and forgotten by its owner. It hears nothing until it listens to a window, for which
  // no memory is needed any more.
  void add(FocusListener* listener);
  void listen(FocusListener* listener, xcb_window_t window) noexcept;
  void forget(FocusListener* listener) noexcept;
  void handOutEvents();  // those that have arrived, to whom they are for

 private:
  OwnConnection();

  struct Listening {
    FocusListener* listener;
    xcb_window_t window;  // 0: none yet
  };

  std::string server;
  xcb_connection_t* connection;
  std::vector<Listening> listeners;
};
