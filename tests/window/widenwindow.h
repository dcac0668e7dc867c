// A run of `widen --editor` on the test's screen, and what its window tells the window manager.
#pragma once

#include <signal.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "testdisplay.h"
#include "tests/host/program.h"

class WidenWindow : public ProgramTest {
 protected:
  ~WidenWindow() override {
    if (process > 0) {
      kill(process, SIGKILL);
      waitForProgram(process, folder);
    }
  }

  static bool comesTrue(const std::function<bool()>& condition) {
    for (int wait = 0; wait < 500; ++wait) {
      if (condition()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
  }

  // The only window on the screen, once it is shown: until then it is still being described.
  xcb_window_t topWindow() {
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(
        display.link(), xcb_query_tree(display.link(), display.root()), nullptr);
    const xcb_window_t found = xcb_query_tree_children_length(tree) == 1
                                   ? xcb_query_tree_children(tree)[0]
                                   : xcb_window_t{0};
    std::free(tree);
    xcb_get_window_attributes_reply_t* reply = xcb_get_window_attributes_reply(
        display.link(), xcb_get_window_attributes(display.link(), found), nullptr);
    const bool shown = reply != nullptr && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    std::free(reply);
    return shown ? found : xcb_window_t{0};
  }

  void start(std::vector<std::string> words, const Surroundings& surroundings = {}) {
    words.insert(words.begin(), "--editor");
    process = startProgram(folder, words, surroundings);
    ASSERT_TRUE(comesTrue([this] { return (window = topWindow()) != 0; }));
  }

  xcb_atom_t atom(const std::string& name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
        display.link(), xcb_intern_atom(display.link(), 0, length, name.data()), nullptr);
    const xcb_atom_t found = reply->atom;
    std::free(reply);
    return found;
  }

  // The bytes of a property of the window, if it has the type.
  std::string property(const std::string& name, const std::string& type) {
    constexpr std::uint32_t kMost = 1024;  // words of 4 bytes
    xcb_get_property_reply_t* reply = xcb_get_property_reply(
        display.link(),
        xcb_get_property(display.link(), 0, window, atom(name), atom(type), 0, kMost), nullptr);
    const std::string value(static_cast<const char*>(xcb_get_property_value(reply)),
                            static_cast<std::size_t>(xcb_get_property_value_length(reply)));
    std::free(reply);
    return value;
  }

  // In pixels, "302x251"; empty where the window is gone.
  std::string size() {
    xcb_get_geometry_reply_t* reply =
        xcb_get_geometry_reply(display.link(), xcb_get_geometry(display.link(), window), nullptr);
    if (reply == nullptr) return {};
    const std::string text = std::to_string(reply->width) + "x" + std::to_string(reply->height);
    std::free(reply);
    return text;
  }

  // As a window manager does when the user presses the closing button.
  Outcome close() {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(display.link(), 0, window, 0, reinterpret_cast<const char*>(&message));
    display.sync();
    return end();
  }

  Outcome end() {
    const Outcome outcome = waitForProgram(process, folder);
    process = 0;
    return outcome;
  }

  TestDisplay display;
  xcb_window_t window = 0;
  int process = 0;
};
