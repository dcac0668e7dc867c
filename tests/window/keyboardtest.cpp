// Whose the keyboard is: the host's, but while a name is typed or the list of presets is open.
#include <functional>

#include "windowtest.h"

namespace {

constexpr int kMiddleX = 140, kPlainY = 206;     // of the window, where there is no control
constexpr int kOutsideX = 310, kOutsideY = 270;  // in the host's own area

// What a person does before the space bar.
struct Situation {
  const char* name;
  std::function<void(WindowHost&)> reach;
};

void drag(WindowHost& host) {
  host.moveTo(places::handleX(host.parameter(0)), places::handleY(0));
  host.press();
  host.moveTo(places::handleX(0.75F), places::handleY(0));
  host.release();
}

void startName(WindowHost& host) {
  host.click(places::kName);
  host.type("wide");
}

void openList(WindowHost& host) {
  host.click(places::kMenu);
}

const Situation kSituations[] = {
    {"in a window just opened", [](WindowHost&) {}},
    {"with the pointer over it", [](WindowHost& host) { host.hover(places::kPhaseSwitch); }},
    {"after a slider was dragged", drag},
    {"after a slider was clicked",
     [](WindowHost& host) { host.click(places::handleX(host.parameter(0)), places::handleY(0)); }},
    {"after a switch was clicked", [](WindowHost& host) { host.click(places::kPhaseSwitch); }},
    {"after a step", [](WindowHost& host) { host.click(places::kRockerRight); }},
    {"after a preset was chosen",
     [](WindowHost& host) {
       openList(host);
       host.click(places::listEntry(9));
     }},
    {"after a preset was chosen by keys",
     [](WindowHost& host) {
       openList(host);
       host.key(XKB_KEY_Down);
       host.key(XKB_KEY_Return);
     }},
    {"after the list was left by Escape",
     [](WindowHost& host) {
       openList(host);
       host.key(XKB_KEY_Escape);
     }},
    {"after the list was left by a click",
     [](WindowHost& host) {
       openList(host);
       host.click(kOutsideX, kOutsideY);
     }},
    {"after a name was entered",
     [](WindowHost& host) {
       startName(host);
       host.key(XKB_KEY_Return);
     }},
    {"after a name was left by Escape",
     [](WindowHost& host) {
       startName(host);
       host.key(XKB_KEY_Escape);
     }},
    {"after a name was left by a click",
     [](WindowHost& host) {
       startName(host);
       host.click(kMiddleX, kPlainY);
     }},
    {"after a name was entered and another one begun and left at once",
     [](WindowHost& host) {
       startName(host);
       host.display.tap(XKB_KEY_Return);
       host.click(places::kName);
       host.key(XKB_KEY_Escape);
     }},
    {"after the about panel was left by Escape",
     [](WindowHost& host) {
       host.click(places::kAbout);
       host.settle();
       host.key(XKB_KEY_Escape);
     }},
    {"after the about panel was left by a click",
     [](WindowHost& host) {
       host.click(places::kAbout);
       host.settle();
       host.click(places::kAboutPanel);
     }},
    {"after a default was stored",
     [](WindowHost& host) { host.doubleClick(places::kDefaultBank); }},
    {"after a memory was stored", [](WindowHost& host) { host.click(places::kStoreA); }},
    {"after the wheel", [](WindowHost& host) { host.wheel(places::slider(0), 2); }},
    {"after a click on nothing", [](WindowHost& host) { host.click(kMiddleX, kPlainY); }},
    {"after the window was closed over a name",
     [](WindowHost& host) {
       startName(host);
       host.closeEditor();
     }},
};

// The keys that the windows of the host's program get, which are ours to ask for.
class Keyboard : public WindowTest {
 protected:
  // A window of the host's inside its own, as programs have for their keyboard.
  void makeSibling() {
    sibling = xcb_generate_id(link());
    xcb_create_window(link(), XCB_COPY_FROM_PARENT, sibling, host.parent(), 318, 278, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(link(), sibling);
    listenTo(sibling);
  }

  xcb_connection_t* link() { return host.display.link(); }
  void listenTo(xcb_window_t window) {
    const std::uint32_t keys = XCB_EVENT_MASK_KEY_PRESS;
    xcb_change_window_attributes(link(), window, XCB_CW_EVENT_MASK, &keys);
    host.display.sync();
  }

  // The windows that hear of key presses; what has come so far is forgotten.
  std::vector<xcb_window_t> receiversOf(std::uint32_t keysym) {
    takeKeys();
    host.key(keysym);
    host.idle(2);
    return takeKeys();
  }
  std::vector<xcb_window_t> takeKeys() {
    host.display.sync();
    std::vector<xcb_window_t> receivers;
    while (xcb_generic_event_t* event = xcb_poll_for_event(link())) {
      if ((event->response_type & 0x7F) == XCB_KEY_PRESS)
        receivers.push_back(reinterpret_cast<xcb_key_press_event_t*>(event)->event);
      std::free(event);
    }
    return receivers;
  }

  // The keyboard is given to `holder` before each situation.
  void expectTheKeyboardLeftTo(xcb_window_t holder, xcb_window_t receiver) {
    for (const Situation& situation : kSituations) {
      SCOPED_TRACE(situation.name);
      host.display.focus(holder);
      ASSERT_TRUE(host.openEditor());
      host.hover({kMiddleX, kPlainY, kMiddleX, kPlainY});
      situation.reach(host);
      host.idle(2);
      EXPECT_THAT(receiversOf(XKB_KEY_space), testing::ElementsAre(receiver));
      EXPECT_EQ(host.display.focused(), holder);
      if (host.isEditorOpen()) host.closeEditor();
    }
  }

  WindowHost host;
  xcb_window_t sibling = 0;
};

}  // namespace

TEST_F(Keyboard, IsTheHostsWindowsAfterEverythingThatAPersonDoes) {
  listenTo(host.parent());
  expectTheKeyboardLeftTo(host.parent(), host.parent());
}

TEST_F(Keyboard, IsAnotherWindowsInTheHostsThatHadIt) {
  makeSibling();
  expectTheKeyboardLeftTo(sibling, sibling);
}

TEST_F(Keyboard, IsAnotherTopLevelWindowsThatHadIt) {
  host.focusOther();
  const xcb_window_t other = host.display.focused();
  listenTo(other);
  expectTheKeyboardLeftTo(other, other);
}

TEST_F(Keyboard, IsTheHostsWhereTheKeysFollowThePointer) {
  listenTo(host.parent());
  expectTheKeyboardLeftTo(XCB_INPUT_FOCUS_POINTER_ROOT, host.parent());
}

TEST_F(Keyboard, IsTheWindowsWhileANameIsTyped) {
  listenTo(host.parent());
  host.focusParent();
  host.openEditor();
  host.click(places::kName);
  host.moveAway();
  EXPECT_TRUE(receiversOf(XKB_KEY_space).empty());
  EXPECT_TRUE(receiversOf(XKB_KEY_x).empty());
  takeKeys();
  host.key(XKB_KEY_Return);
  EXPECT_TRUE(takeKeys().empty());
  EXPECT_EQ(host.programName(), " x");
}

TEST_F(Keyboard, IsTheWindowsWhileTheListIsOpen) {
  listenTo(host.parent());
  host.focusParent();
  host.openEditor();
  openList(host);
  host.moveAway();
  EXPECT_TRUE(receiversOf(XKB_KEY_space).empty());
  EXPECT_TRUE(receiversOf(XKB_KEY_Down).empty());
  EXPECT_TRUE(receiversOf(XKB_KEY_Return).empty());
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(Keyboard, GoesToTheHostsWindowWhereItsHolderHasGone) {
  makeSibling();
  listenTo(host.parent());
  host.display.focus(sibling);
  host.openEditor();
  startName(host);
  host.display.destroyWindow(sibling);
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(), "wide");
  EXPECT_EQ(host.display.focused(), host.parent());
  EXPECT_THAT(receiversOf(XKB_KEY_space), testing::ElementsAre(host.parent()));
}

// It was given back in between, which is no loss.
TEST_F(Keyboard, IsTheWindowsForANameBegunInThePassThatEndsAnother) {
  host.focusOther();
  host.openEditor();
  startName(host);
  host.display.tap(XKB_KEY_Return);
  host.display.press(1);
  host.display.release(1);
  host.idle(3);
  EXPECT_EQ(host.programName(), "wide");
  host.type("r");
  host.key(XKB_KEY_Return);
  EXPECT_NE(host.programName(), "wide");
}

TEST_F(Keyboard, StaysWithWhoeverHasTakenItMeanwhile) {
  host.focusParent();
  host.openEditor();
  startName(host);
  host.focusOther();
  const xcb_window_t other = host.display.focused();
  host.settle();
  EXPECT_EQ(host.programName(), "wide");
  EXPECT_EQ(host.display.focused(), other);
}

// The toolkit counts the modifiers from the keys that it sees, and sees few.
TEST_F(Keyboard, ModifiersOfANameAreThoseThatAreHeld) {
  host.focusParent();
  host.openEditor();
  host.keyDown(XKB_KEY_Shift_L);  // a key of the host's
  host.click(places::kName);
  host.type("a");
  host.keyUp(XKB_KEY_Shift_L);
  host.type("b");
  host.keyDown(XKB_KEY_Control_L);
  host.key(XKB_KEY_q);  // confirms
  host.keyUp(XKB_KEY_Control_L);
  EXPECT_EQ(host.programName(), "Ab");
  host.key(XKB_KEY_Caps_Lock);
  startName(host);
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(), "WIDE");
  host.key(XKB_KEY_Caps_Lock);
  startName(host);
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(), "wide");
}

TEST_F(Keyboard, TypesByTheMapThatItHasAtThatTime) {
  host.focusParent();
  host.openEditor();
  startName(host);
  host.key(XKB_KEY_Return);  // the toolkit has read the map
  const xcb_keysym_t umlauts[] = {XKB_KEY_odiaeresis, XKB_KEY_Odiaeresis};
  const std::uint8_t someKey = 97;  // that no map of a PC's keyboard has a letter on
  xcb_change_keyboard_mapping(link(), 1, someKey, 2, umlauts);
  host.display.sync();
  host.click(places::kName);
  host.key(XKB_KEY_odiaeresis);
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(), "\xC3\xB6");
}

// A host that idles seldom hands over several keys at once.
TEST_F(Keyboard, AKeyAfterTheOneThatEndsTheListChangesNothing) {
  host.focusParent();
  host.openEditor();
  openList(host);
  host.display.tap(XKB_KEY_Down);
  host.display.tap(XKB_KEY_Return);
  host.display.tap(XKB_KEY_Down);
  host.idle(3);
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(Keyboard, ASecondReturnAfterTheListDoesNotOpenItAgain) {
  listenTo(host.parent());
  host.focusParent();
  host.openEditor();
  openList(host);
  host.display.tap(XKB_KEY_Return);
  host.display.tap(XKB_KEY_Return);
  host.idle(3);
  EXPECT_THAT(receiversOf(XKB_KEY_space), testing::ElementsAre(host.parent()));
}

// Two windows in one of the host's, or without a window manager.
TEST_F(Keyboard, IsTheHostsAfterTwoWindowsHadItOneAfterTheOther) {
  WindowHost second(1);
  listenTo(host.parent());
  host.focusParent();
  host.openEditor();
  second.openEditor();
  host.click(places::kAbout);
  host.settle();
  second.click(places::kAbout);
  second.settle();
  host.click(places::kAboutPanel);
  host.settle();
  second.click(places::kAboutPanel);
  second.settle();
  EXPECT_EQ(host.display.focused(), host.parent());
}
