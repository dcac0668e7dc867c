// The effect's window as `widen --editor` shows it.
#include <signal.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "places.h"
#include "tests/host/program.h"
#include "windowhost.h"

namespace {

bool comesTrue(const std::function<bool()>& condition) {
  for (int wait = 0; wait < 500; ++wait) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

class WidenEditor : public ProgramTest {
 protected:
  ~WidenEditor() override {
    if (process > 0) kill(process, SIGKILL);
  }

  // The only window on the screen, once it is there.
  xcb_window_t topWindow() {
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(
        display.link(), xcb_query_tree(display.link(), display.root()), nullptr);
    const xcb_window_t found = xcb_query_tree_children_length(tree) == 1
                                   ? xcb_query_tree_children(tree)[0]
                                   : xcb_window_t{0};
    std::free(tree);
    return found;
  }

  void start(std::vector<std::string> words) {
    words.insert(words.begin(), "--editor");
    process = startProgram(folder, words);
    ASSERT_TRUE(comesTrue([this] { return display.picture(kWindow) == expected; }));
    window = topWindow();
    ASSERT_NE(window, 0U);
  }

  // As a window manager does when the user presses the closing button.
  Outcome close() {
    const auto atom = [this](const std::string& name) {
      const auto length = static_cast<std::uint16_t>(name.size());
      xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
          display.link(), xcb_intern_atom(display.link(), 1, length, name.data()), nullptr);
      const xcb_atom_t found = reply->atom;
      std::free(reply);
      return found;
    };
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(display.link(), 0, window, 0, reinterpret_cast<const char*>(&message));
    display.sync();
    const Outcome outcome = waitForProgram(process, folder);
    process = 0;
    return outcome;
  }

  static Picture takeExpected() {
    WindowHost host;
    host.openEditor();
    host.moveAway();
    return host.picture();
  }

  // without a window manager, at the screen's corner
  static constexpr Area kWindow{0, 0, places::kWidth, 251};
  Picture expected = takeExpected();
  TestDisplay display;
  xcb_window_t window = 0;
  int process = 0;
};

}  // namespace

TEST_F(WidenEditor, ShowsTheWindowInItsSizeUntilItIsClosed) {
  ASSERT_EQ(expected.height, kWindow.bottom);
  start({});
  xcb_get_geometry_reply_t* size =
      xcb_get_geometry_reply(display.link(), xcb_get_geometry(display.link(), window), nullptr);
  EXPECT_EQ(size->width, places::kWidth);
  EXPECT_EQ(size->height, kWindow.bottom);
  std::free(size);
  const Outcome outcome = close();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.error, "");
  EXPECT_FALSE(display.exists(window));
}

TEST_F(WidenEditor, SavesTheStateThatTheUserLeft) {
  start({"--save-state", "left.chunk"});
  const Picture before = display.picture(places::kProcessSwitch);
  display.moveTo(places::kProcessSwitch.centreX(), places::kProcessSwitch.top + 8);
  display.press(1);
  display.release(1);
  ASSERT_TRUE(comesTrue([&] { return !(display.picture(places::kProcessSwitch) == before); }));
  EXPECT_EQ(close().status, 0);
  const std::string parameters = widen({"--state", "left.chunk", "--list-params"}).out;
  const std::string untouched = widen({"--list-params"}).out;
  EXPECT_NE(parameters, "");
  EXPECT_NE(parameters, untouched);
  EXPECT_EQ(parameters, widen({"--process", "off", "--list-params"}).out);
}

TEST_F(WidenEditor, SaysThatThereIsNoDisplay) {
  expectRefusal(runProgram(folder, {"--editor"}, {{{"DISPLAY", ""}}, 0}), 1, "no display");
}
