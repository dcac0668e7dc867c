// Renaming the current preset in the field of the preset bar: how the entry opens and how it ends.
#include "nameentry.h"

TEST_F(Name, ReturnConfirmsWhatWasTypedInPlaceOfTheOldName) {
  const Picture before = list();
  startEntry();
  host.type("wide 7");
  host.key(XKB_KEY_Return);
  expectConfirmed("wide 7");
  const Picture renamed = host.picture();
  EXPECT_TRUE(places::kName.contains(differingArea(closed, renamed)))
      << differingArea(closed, renamed);
  EXPECT_FALSE(renamed == closed);
  const Picture after = list();
  EXPECT_FALSE(after == before);
  EXPECT_TRUE(places::listEntry(0).contains(differingArea(before, after)))
      << differingArea(before, after);
}

TEST_F(Name, EnterOnTheNumberPadConfirms) {
  startEntry();
  host.type("pad");
  host.key(XKB_KEY_KP_Enter);
  expectConfirmed("pad");
}

TEST_F(Name, EscapeKeepsTheOldName) {
  startEntry();
  host.type("gone");
  host.key(XKB_KEY_Escape);
  expectCancelled();
}

TEST_F(Name, ReturnWithoutTypingKeepsTheNameAndTellsTheHost) {
  startEntry();
  host.key(XKB_KEY_Return);
  expectConfirmed("init");
  EXPECT_EQ(host.picture(), closed);
}

TEST_F(Name, EveryMouseButtonOpensTheEntry) {
  constexpr int kMiddle = 2;
  constexpr int kRight = 3;
  for (const int button : {kMiddle, kRight}) {
    SCOPED_TRACE(button);
    startEntry(button);
    const std::string name = "button " + std::to_string(button);
    host.type(name);
    host.key(XKB_KEY_Return);
    expectConfirmed(name);
  }
}

TEST_F(Name, AClickElsewhereConfirmsAndDoesNothingElse) {
  for (const Area& place :
       {places::kPhaseSwitch, places::kAbout, places::kMenu, places::kRockerRight, places::kStoreA,
        places::slider(0), Area{140, 205, 142, 207}}) {
    SCOPED_TRACE(place);
    const std::string name = "click " + std::to_string(place.left);
    startEntry();
    host.type(name);
    host.click(place);
    expectConfirmed(name);
    EXPECT_EQ(host.parameter(4), 0.0F);
    EXPECT_EQ(host.currentPreset(), 0);
    EXPECT_EQ(preferences(), "");
  }
  // And nothing stays open: the window looks as before but for the name.
  startEntry();
  host.type("init");
  host.key(XKB_KEY_Return);
  host.moveAway();
  EXPECT_EQ(host.picture(), closed);
}

TEST_F(Name, AClickInTheHostsOwnAreaConfirms) {
  startEntry();
  host.type("outside");
  host.click(310, 270);
  expectConfirmed("outside");
}

TEST_F(Name, AClickIntoTheFieldGoesOnEditing) {
  startEntry();
  host.type("abcd");
  host.click(places::kName.right - 5, places::kName.centreY());  // the caret goes after the text
  host.type("e");
  EXPECT_EQ(host.programName(), "init");
  host.key(XKB_KEY_Return);
  expectConfirmed("abcde");
}

TEST_F(Name, TheTextStandsStillWhenTheEntryOpens) {
  startEntry();
  host.moveAway();
  EXPECT_FALSE(host.pictureNow() == closed);  // all of it is selected
  host.key(XKB_KEY_End);
  // whenever the caret is not to be seen
  EXPECT_TRUE(host.idleUntil([&] { return host.pictureNow() == closed; }));
}

TEST_F(Name, EditingKeysWork) {
  startEntry();
  host.type("abc");
  host.key(XKB_KEY_Left);
  host.key(XKB_KEY_BackSpace);
  host.type("x");
  host.key(XKB_KEY_Home);
  host.key(XKB_KEY_Delete);
  host.key(XKB_KEY_End);
  host.type("Z");
  host.key(XKB_KEY_Return);
  expectConfirmed("xcZ");
}

TEST_F(Name, KeysOfTheFieldReachNothingBehindIt) {
  host.click(places::handleX(0.5F), places::handleY(0));  // the slider has the keyboard
  const float value = host.parameter(0);
  startEntry();
  for (const std::uint32_t key :
       {XKB_KEY_Up, XKB_KEY_Down, XKB_KEY_Tab, XKB_KEY_Left, XKB_KEY_Right})
    host.key(key);
  host.key(XKB_KEY_Escape);
  EXPECT_EQ(host.parameter(0), value);
  EXPECT_TRUE(host.gestureCalls().empty());
}

// Another preset would get the name that was meant for this one.
TEST_F(Name, TheWheelMeanwhileChoosesNoOtherPresetAndMovesNoSlider) {
  const std::string second = host.programName(1);
  const float value = host.parameter(0);
  startEntry();
  host.type("mine");
  host.wheel(places::kRockerRight, -1);
  host.wheel(places::slider(0), 2);
  host.idle(2);
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_EQ(host.parameter(0), value);
  host.key(XKB_KEY_Return);
  expectConfirmed("mine");
  EXPECT_EQ(host.programName(1), second);
  host.wheel(places::kRockerRight, -1);
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(Name, AControlKeyConfirmsInsteadOfActing) {
  for (const char letter : {'a', 'c', 'v', 'q'}) {
    SCOPED_TRACE(letter);
    startEntry();
    host.type("name");
    host.keyDown(XKB_KEY_Control_L);
    EXPECT_TRUE(host.calls(audioMasterUpdateDisplay).empty());  // the modifier alone does nothing
    host.key(static_cast<std::uint32_t>(letter));
    host.keyUp(XKB_KEY_Control_L);
    expectConfirmed("name");
  }
}

TEST_F(Name, AnotherProgramsWindowThatTakesTheKeyboardConfirms) {
  startEntry();
  host.type("focus");
  host.focusOther();
  host.settle();
  expectConfirmed("focus");
}

TEST_F(Name, TheHostsWindowThatKeepsTheKeyboardConfirms) {
  startEntry();
  host.type("parent");
  host.focusParent();
  host.idleFor(300);  // a moment is waited for the keyboard to come back
  expectConfirmed("parent");
}

TEST_F(Name, TheHostsWindowThatGivesTheKeyboardBackLeavesTheEntryOpen) {
  startEntry();
  host.type("ab");
  const xcb_window_t field = host.display.focused();
  host.focusParent();
  host.idle(2);
  host.display.focus(field);
  host.idleFor(300);
  host.type("c");
  EXPECT_TRUE(host.calls(audioMasterUpdateDisplay).empty());
  host.key(XKB_KEY_Return);
  expectConfirmed("abc");
}

TEST_F(Name, AControlClickOpensTheEntryLikeAnyClick) {
  host.keyDown(XKB_KEY_Control_L);
  host.click(places::kName);
  host.keyUp(XKB_KEY_Control_L);
  host.settle();
  host.forgetCalls();
  host.type("ctrl");
  host.key(XKB_KEY_Return);
  expectConfirmed("ctrl");
}

TEST_F(Name, TheSecondPressOfADoubleClickIsSwallowed) {
  host.doubleClick(places::kName);
  host.settle();
  host.forgetCalls();
  host.type("twice");
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.calls(audioMasterUpdateDisplay).size(), 1U);
}

TEST_F(Name, TheRenamedPresetIsTheCurrentOne) {
  host.click(places::kRockerRight);
  startEntry();
  host.type("second");
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(0), "init");
  EXPECT_EQ(host.programName(1), "second");
}

TEST_F(Name, ADoubleClickIntoTheFieldSelectsAllOfIt) {
  startEntry();
  host.type("abc");
  host.doubleClick(places::kName);
  host.type("d");
  host.key(XKB_KEY_Return);
  expectConfirmed("d");
}

TEST_F(Name, KeysThatTheHostHandsOnReachTheField) {
  constexpr int kReturn = 4;  // the interface's number of the key
  startEntry();
  host.key(XKB_KEY_x);
  for (const int character : {'o', 'k'}) {
    EXPECT_EQ(host.dispatch(effEditKeyDown, character), 1);
    host.dispatch(effEditKeyUp, character);
  }
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kReturn), 1);
  expectConfirmed("xok");
}
