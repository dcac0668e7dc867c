// Typing a value over its display.
#include <string>

#include "windowtest.h"

namespace {

using places::handleX;
using places::handleY;

constexpr VstInt32 kWidth = 0, kFrequency = 1, kEmphasis = 2;

class ValueEntry : public WindowTest {
 protected:
  ValueEntry() {
    for (int index = 0; index < 3; ++index) host.setParameter(index, 0.5F);
    host.openEditor();
    host.moveAway();
    before = host.picture();
    host.forgetCalls();
  }

  static Area display(int index) { return places::valueDisplay(index); }
  void open(int index) {
    host.doubleClick(display(index));
    host.settle();
  }
  // The text takes the old one's place.
  void type(int index, const std::string& text) {
    open(index);
    host.type(text);
    host.key(XKB_KEY_Return);
    host.idle(2);
  }
  std::string gestures() {
    std::string letters;
    for (const HostCall& call : host.gestureCalls()) {
      letters += call.opcode == audioMasterBeginEdit ? 'b'
                 : call.opcode == audioMasterEndEdit ? 'e'
                                                     : 'a';
    }
    return letters;
  }
  void expectUntouched() {
    for (int index = 0; index < 3; ++index) EXPECT_EQ(host.parameter(index), 0.5F);
    EXPECT_EQ(gestures(), "");
    host.moveAway();
    EXPECT_EQ(host.picture(), before);
  }

  WindowHost host;
  Picture before;
};

}  // namespace

TEST_F(ValueEntry, ReturnSetsWhatWasTypedInOneGesture) {
  type(kWidth, "35");
  EXPECT_EQ(host.parameter(kWidth), 0.35F);
  EXPECT_EQ(gestures(), "bae");
  for (const HostCall& call : host.gestureCalls()) EXPECT_EQ(call.index, kWidth);
  type(kEmphasis, "0,4%");
  EXPECT_EQ(host.parameter(kEmphasis), 0.004F);
  type(kFrequency, "0.5 kHz");
  EXPECT_NEAR(host.parameter(kFrequency), std::sqrt(480.0F / 980.0F), 1e-5F);
  type(kFrequency, "1k");
  EXPECT_EQ(host.parameter(kFrequency), 1.0F);
  type(kFrequency, "7Hz");
  EXPECT_EQ(host.parameter(kFrequency), 0.0F);
  type(kWidth, "12345");
  EXPECT_EQ(host.parameter(kWidth), 1.0F);
}

TEST_F(ValueEntry, SliderAndDisplayShowIt) {
  type(kWidth, "80");
  host.moveAway();
  const Picture typed = host.picture();
  EXPECT_FALSE(sameIn(places::slider(kWidth), before, typed));
  EXPECT_FALSE(sameIn(display(kWidth), before, typed));
  host.setParameter(kWidth, 0.5F);
  host.settle();
  host.setParameter(kWidth, 0.8F);
  EXPECT_EQ(host.picture(), typed);
}

TEST_F(ValueEntry, OneClickOpensNothing) {
  host.click(display(kWidth));
  host.idleFor(1000);  // ms, longer than a double click
  host.click(display(kWidth));
  host.type("7");
  host.key(XKB_KEY_Return);
  expectUntouched();
}

TEST_F(ValueEntry, OpensWithWhatIsShownAllSelected) {
  open(kFrequency);
  host.moveAway();
  const Picture selected = host.picture();
  EXPECT_TRUE(display(kFrequency).contains(differingArea(before, selected)));
  EXPECT_FALSE(selected == before);
  host.key(XKB_KEY_End);  // nothing is selected any more
  host.key(XKB_KEY_BackSpace);
  host.key(XKB_KEY_BackSpace);
  host.type("0");  // "2650", of "265Hz"
  host.key(XKB_KEY_Return);
  host.idle(2);
  EXPECT_EQ(host.parameter(kFrequency), 1.0F);
}

TEST_F(ValueEntry, TheTextStandsWhereTheDisplaysDoes) {
  open(kWidth);
  host.key(XKB_KEY_End);
  host.moveAway();
  // but for the caret after it: whatever the picture, the first letters are the same
  const Area letters{display(kWidth).left, display(kWidth).top, display(kWidth).left + 12,
                     display(kWidth).bottom};
  EXPECT_TRUE(sameIn(letters, before, host.picture()));
}

// Displays are wider than what the window shows of them. All is selected, since a caret blinks.
TEST_F(ValueEntry, WhatIsTypedLastIsSeenThoughTheTextIsWiderThanItsPlace) {
  const auto typed = [this](const std::string& text) {
    open(kFrequency);
    host.type(text);
    host.key(XKB_KEY_Home);
    host.keyDown(XKB_KEY_Shift_L);
    host.key(XKB_KEY_End);
    host.keyUp(XKB_KEY_Shift_L);
    host.moveAway();
    const Picture picture = host.picture();
    host.key(XKB_KEY_Escape);
    host.settle();
    return picture;
  };
  EXPECT_FALSE(sameIn(display(kFrequency), typed("123456782"), typed("123456783")));
  expectUntouched();
}

TEST_F(ValueEntry, ConfirmingTheTextAsItIsChangesNothing) {
  host.setParameter(kWidth, 0.333F);
  host.settle();
  open(kWidth);
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.parameter(kWidth), 0.333F);
  open(kWidth);
  host.key(XKB_KEY_End);
  host.type("1");
  host.key(XKB_KEY_BackSpace);
  host.click(150, 20);
  EXPECT_EQ(host.parameter(kWidth), 0.333F);
  EXPECT_EQ(gestures(), "");
}

TEST_F(ValueEntry, EscapeKeepsTheValue) {
  open(kWidth);
  host.type("80");
  host.key(XKB_KEY_Escape);
  expectUntouched();
}

TEST_F(ValueEntry, NonsenseKeepsTheValue) {
  for (const std::string text : {"x", "nan", "inf", " ", "80 Hz", "1e2", "1,234.5", "-"}) {
    type(kWidth, text);
    EXPECT_EQ(host.parameter(kWidth), 0.5F) << text;
  }
  open(kWidth);
  host.key(XKB_KEY_BackSpace);
  host.key(XKB_KEY_Return);
  expectUntouched();
}

TEST_F(ValueEntry, AClickElsewhereConfirmsAndDoesNothingElse) {
  open(kWidth);
  host.type("80");
  host.click(places::kPhaseSwitch);
  EXPECT_EQ(host.parameter(kWidth), 0.8F);
  EXPECT_EQ(host.parameter(4), 0.0F);
  EXPECT_EQ(gestures(), "bae");
}

TEST_F(ValueEntry, AnotherWindowThatTakesTheKeyboardConfirms) {
  open(kWidth);
  host.type("80");
  host.focusOther();
  EXPECT_TRUE(host.idleUntil([this] { return host.parameter(kWidth) == 0.8F; }));
  host.idle(2);
  EXPECT_EQ(gestures(), "bae");
}

TEST_F(ValueEntry, AWindowThatClosesForgetsTheText) {
  open(kWidth);
  host.type("80");
  host.closeEditor();
  EXPECT_EQ(host.parameter(kWidth), 0.5F);
  EXPECT_EQ(gestures(), "");
  host.openEditor();
  expectUntouched();
}

TEST_F(ValueEntry, AHostThatClosesTheWindowAsItHearsOfTheValueHearsTheEnd) {
  open(kWidth);
  host.type("80");
  host.onCall = [this](const HostCall& call) {
    if (call.opcode == audioMasterAutomate && host.isEditorOpen()) host.closeEditor();
  };
  host.key(XKB_KEY_Return);
  host.onCall = nullptr;
  EXPECT_FALSE(host.isEditorOpen());
  EXPECT_EQ(host.parameter(kWidth), 0.8F);
  EXPECT_EQ(gestures(), "bae");
}

TEST_F(ValueEntry, AHostsValueMeanwhileGivesWayToTheTypedOne) {
  open(kWidth);
  host.type("80");
  host.setParameter(kWidth, 0.1F);
  host.settle();
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.parameter(kWidth), 0.8F);
}

TEST_F(ValueEntry, AValueTypedInABurstOfTheWheelIsAGestureOfItsOwn) {
  host.wheel(places::slider(kWidth), 1);
  type(kWidth, "80");
  host.idleFor(700);  // ms, longer than a burst lasts
  EXPECT_EQ(gestures(), "baebae");
}

TEST_F(ValueEntry, KeysOfTheFieldReachNoSlider) {
  host.click(handleX(0.5F), handleY(kWidth));
  host.forgetCalls();
  open(kFrequency);
  host.key(XKB_KEY_Up);
  host.key(XKB_KEY_Left);
  host.key(XKB_KEY_Escape);
  expectUntouched();
}
