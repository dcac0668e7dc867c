// A desktop's settings at the X server: the resources, and a manager that publishes XSETTINGS.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/xsettingsbytes.h"

// Both are set as long as it lives, on the first screen, by a connection of its own.
class SettingsManager {
 public:
  SettingsManager() : connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection) != 0) throw std::runtime_error("no display");
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  }
  ~SettingsManager() {
    xcb_delete_property(connection, root, XCB_ATOM_RESOURCE_MANAGER);
    sync();
    xcb_disconnect(connection);
  }
  SettingsManager(const SettingsManager&) = delete;
  SettingsManager& operator=(const SettingsManager&) = delete;

  void setResources(const std::string& text) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, root, XCB_ATOM_RESOURCE_MANAGER,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.data());
    sync();
  }
  void setResourceDpi(int dpi) { setResources("Xft.dpi:\t" + std::to_string(dpi) + "\n"); }

  // Takes the selection with the first one.
  void publish(const std::vector<unsigned char>& bytes) {
    const xcb_atom_t name = atom("_XSETTINGS_SETTINGS");
    takeSelection();
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, name, name, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    sync();
  }
  void publishDpi(double dpi) {
    XSettingsBytes settings;
    settings.number("Xft/DPI", static_cast<std::int32_t>(dpi * 1024));
    publish(settings.bytes());
  }

  // Its window is destroyed, as that of a manager that ends.
  void resign() {
    if (window != 0) xcb_destroy_window(connection, window);
    window = 0;
    sync();
  }

 private:
  xcb_atom_t atom(const std::string& name) {
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr);
    if (reply == nullptr) throw std::runtime_error("no atom " + name);
    const xcb_atom_t found = reply->atom;
    std::free(reply);
    return found;
  }
  void takeSelection() {
    if (window != 0) return;
    window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection, window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
  }
  void sync() {  // any question will do: its answer comes after everything before it
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
  }

  xcb_connection_t* connection;
  xcb_window_t root = 0;
  xcb_window_t window = 0;
};
