// The effect's window as `widen --editor` shows it.
#include <gmock/gmock.h>
#include <signal.h>

#include <array>
#include <cstring>
#include <map>

#include "places.h"
#include "widenwindow.h"
#include "windowhost.h"

namespace {

class WidenEditor : public WidenWindow {
 protected:
  void start(const std::vector<std::string>& words) {
    WidenWindow::start(words);
    ASSERT_TRUE(comesTrue([this] { return display.picture(kWindow) == expected; }));
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
};

// With an effect whose window is empty.
class WidenFrame : public WidenWindow {
 protected:
  void start(const std::map<std::string, std::string>& environment) {
    WidenWindow::start({"--plugin", plugin("shown")}, {environment});
  }
  bool becomes(const std::string& asked) {
    return comesTrue([&] { return size() == asked; });
  }
  ~WidenFrame() override {
    if (process > 0) close();
  }
};

}  // namespace

TEST_F(WidenEditor, ShowsTheWindowInItsSizeUntilItIsClosed) {
  ASSERT_EQ(expected.height, kWindow.bottom);
  start({});
  EXPECT_EQ(size(), "302x251");
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

// What is done in the window would be lost.
TEST_F(WidenEditor, RefusesAStateThatCannotBeSavedBeforeItOpens) {
  writeText(in("old.chunk"), "old");
  const auto refuses = [this](const std::string& file, const std::string& text) {
    expectRefusal(widen({"--editor", "--save-state", file}), 1, text);
    EXPECT_EQ(names(), std::vector<std::string>{"old.chunk"});
  };
  refuses("old.chunk", "old.chunk: is already there (--force replaces it)");
  refuses("no/such/folder/new.chunk", "new.chunk: cannot be written (there is no folder");
  expectRefusal(widen({"--editor", "--save-state", "s", "--plugin", plugin("shown")},
                      {{{"WIDEN_TEST_DOES", "nostate"}}}),
                1, "keeps no state that could be saved");
  start({"--save-state", "old.chunk", "--force"});
  EXPECT_EQ(textOf(in("old.chunk")), "old") << "until the window is closed";
  EXPECT_EQ(close().status, 0);
  EXPECT_GT(textOf(in("old.chunk")).size(), 3U);
}

TEST_F(WidenEditor, SavesTheStateWhenASignalEndsIt) {
  start({"--save-state", "left.chunk"});
  const Picture before = display.picture(places::kProcessSwitch);
  display.moveTo(places::kProcessSwitch.centreX(), places::kProcessSwitch.top + 8);
  display.press(1);
  display.release(1);
  ASSERT_TRUE(comesTrue([&] { return !(display.picture(places::kProcessSwitch) == before); }));
  kill(process, SIGTERM);
  EXPECT_EQ(end().status, -SIGTERM);
  EXPECT_EQ(widen({"--state", "left.chunk", "--list-params"}).out,
            widen({"--process", "off", "--list-params"}).out);
}

TEST_F(WidenEditor, SaysThatThereIsNoDisplay) {
  expectRefusal(runProgram(folder, {"--editor"}, {{{"DISPLAY", ""}}, 0}), 1, "no display");
}

// A name is bytes of the effect's; the window manager gets text.
TEST_F(WidenFrame, IsNamedAfterTheEffect) {
  start({{"WIDEN_TEST_NAME", "Br\xC3\xB6te \xE2\x99\xAB\xFF"}});
  EXPECT_EQ(property("_NET_WM_NAME", "UTF8_STRING"), "Br\xC3\xB6te \xE2\x99\xAB\xEF\xBF\xBD");
  EXPECT_EQ(property("_NET_WM_ICON_NAME", "UTF8_STRING"), property("_NET_WM_NAME", "UTF8_STRING"));
  EXPECT_EQ(property("WM_NAME", "STRING"), "Br\xF6te ??") << "what is not in Latin-1";
  EXPECT_EQ(property("WM_CLASS", "STRING"), std::string("widen\0Widen\0", 12));
}

TEST_F(WidenFrame, IsNamedAfterTheFileOfAnEffectWithoutAName) {
  start({});
  EXPECT_EQ(property("_NET_WM_NAME", "UTF8_STRING"), "shown");
}

TEST_F(WidenFrame, ShowsTrelvanUnderItsName) {
  WidenWindow::start({});
  EXPECT_EQ(property("_NET_WM_NAME", "UTF8_STRING"), "Orv Trelvan");
}

TEST_F(WidenFrame, IsClosedByAMessageAndHasOneSize) {
  start({});
  const xcb_atom_t closing = atom("WM_DELETE_WINDOW");
  std::string bytes(sizeof closing, 0);
  std::memcpy(bytes.data(), &closing, sizeof closing);
  EXPECT_EQ(property("WM_PROTOCOLS", "ATOM"), bytes);
  ASSERT_TRUE(becomes("200x100"));
  const std::string hints = property("WM_NORMAL_HINTS", "WM_SIZE_HINTS");
  std::array<std::uint32_t, 18> words{};
  ASSERT_EQ(hints.size(), sizeof words);
  std::memcpy(words.data(), hints.data(), sizeof words);
  // Smallest size and largest size, in this order after the flags and four words of no use.
  constexpr std::uint32_t kSmallestAndLargest = 0x10 | 0x20;
  EXPECT_EQ(words[0], kSmallestAndLargest);
  EXPECT_THAT(std::vector<std::uint32_t>(words.begin() + 5, words.begin() + 9),
              ::testing::ElementsAre(200, 100, 200, 100));
}

TEST_F(WidenFrame, TakesTheSizeThatTheEffectAsksFor) {
  start({{"WIDEN_TEST_DOES", "resize"}});
  ASSERT_TRUE(becomes("400x300"));
  // As long as the effect's own words do not change, what it asked for stays.
  std::this_thread::sleep_for(std::chrono::milliseconds(600));
  EXPECT_EQ(size(), "400x300");
}

TEST_F(WidenFrame, TakesTheSizeThatTheEffectHasWithoutAWord) {
  start({{"WIDEN_TEST_DOES", "resize"}, {"WIDEN_TEST_MORE", "1"}});
  EXPECT_TRUE(becomes("333x222"));
}
