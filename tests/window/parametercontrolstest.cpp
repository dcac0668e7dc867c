// Sliders, switches and displays, worked with the mouse: what the host hears, and what
// the window shows.
#include <algorithm>
#include <cmath>

#include "tests/support/hostsettings.h"
#include "windowtest.h"

namespace {

using places::handleX;
using places::handleY;

constexpr float kOnePixel = 1.0F / places::kSliderTravel;

void expectGesture(const std::vector<HostCall>& calls, VstInt32 index) {
  ASSERT_GE(calls.size(), 2U);
  EXPECT_EQ(calls.front().opcode, audioMasterBeginEdit);
  EXPECT_EQ(calls.back().opcode, audioMasterEndEdit);
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i].index, index);
    if (i == 0 || i + 1 == calls.size()) continue;
    EXPECT_EQ(calls[i].opcode, audioMasterAutomate);
  }
}

class ParameterControls : public WindowTest {
 protected:
  ParameterControls() {
    for (int index = 0; index < 3; ++index) host.setParameter(index, 0.5F);
    host.openEditor();
    host.forgetCalls();
  }

  void dragTo(int index, float from, float to) {
    host.moveTo(handleX(from), handleY(index));
    host.press();
    host.moveTo(handleX(to), handleY(index));
    host.release();
  }

  WindowHost host;
};

}  // namespace

TEST_F(ParameterControls, ADragIsOneGestureWithOneAutomationPerMovement) {
  for (VstInt32 index = 0; index < 3; ++index) {
    SCOPED_TRACE(index);
    host.forgetCalls();
    host.moveTo(handleX(0.5F), handleY(index));
    host.press();
    // the press may take the handle's whole pixel
    const std::size_t atPress = host.calls(audioMasterAutomate).size();
    constexpr int kSteps[] = {5, 12, 31, -7, -40, 3};  // pixels from the middle
    std::size_t expected = atPress;
    for (const int step : kSteps) {
      host.moveTo(handleX(0.5F) + step, handleY(index));
      const std::vector<HostCall> automated = host.calls(audioMasterAutomate);
      ASSERT_EQ(automated.size(), ++expected);
      EXPECT_EQ(automated.back().index, index);
      const float value = 0.5F - static_cast<float>(step) * kOnePixel;  // 1 is at the left
      EXPECT_NEAR(automated.back().opt, value, kOnePixel);
      EXPECT_EQ(host.parameter(index), automated.back().opt);
    }
    host.idle(5);
    host.release();
    host.idle(5);
    EXPECT_EQ(host.calls(audioMasterAutomate).size(), expected);
    expectGesture(host.gestureCalls(), index);
  }
}

TEST_F(ParameterControls, TheValueOneIsAtTheLeftAndZeroAtTheRight) {
  for (VstInt32 index = 0; index < 3; ++index) {
    dragTo(index, 0.5F, 1.5F);  // far beyond the end
    EXPECT_EQ(host.parameter(index), 1.0F);
    dragTo(index, 1.0F, -0.5F);
    EXPECT_EQ(host.parameter(index), 0.0F);
  }
}

TEST_F(ParameterControls, ADragChangesTheSliderAndItsDisplayAndNothingElse) {
  for (int index = 0; index < 3; ++index) {
    SCOPED_TRACE(index);
    const Picture before = host.picture();
    dragTo(index, 0.5F, 0.8F);
    host.moveAway();
    const Picture after = host.picture();
    EXPECT_FALSE(sameIn(places::slider(index), before, after));
    EXPECT_FALSE(sameIn(places::valueDisplay(index), before, after));
    const Area row{places::slider(index).left, places::slider(index).top, places::kWidth,
                   places::slider(index).bottom};
    EXPECT_TRUE(row.contains(differingArea(before, after))) << differingArea(before, after);
  }
}

TEST_F(ParameterControls, ThePictureOfADragIsThatOfTheSameValueFromTheHost) {
  dragTo(1, 0.5F, 0.2F);
  host.moveAway();
  const Picture dragged = host.picture();
  const float value = host.parameter(1);
  host.setParameter(1, 0.9F);
  EXPECT_FALSE(host.picture() == dragged);
  host.setParameter(1, value);
  EXPECT_EQ(host.picture(), dragged);
}

TEST_F(ParameterControls, APressBesideTheHandleDoesNothing) {
  const Picture before = host.picture();
  for (int index = 0; index < 3; ++index) {
    host.click(handleX(0.9F), handleY(index));
    host.click(handleX(0.1F), handleY(index), 3);
  }
  host.moveAway();
  EXPECT_TRUE(host.gestureCalls().empty());
  EXPECT_EQ(host.picture(), before);
}

TEST_F(ParameterControls, AControlClickOnASliderSetsTheMiddle) {
  for (VstInt32 index = 0; index < 3; ++index) {
    SCOPED_TRACE(index);
    host.setParameter(index, 0.8F);
    host.settle();
    host.forgetCalls();
    host.keyDown(XKB_KEY_Control_L);
    host.click(handleX(0.8F), handleY(index));
    host.keyUp(XKB_KEY_Control_L);
    EXPECT_EQ(host.parameter(index), 0.5F);
    const std::vector<HostCall> automated = host.calls(audioMasterAutomate);
    ASSERT_EQ(automated.size(), 1U);
    EXPECT_EQ(automated[0].index, index);
    EXPECT_EQ(automated[0].opt, 0.5F);
    expectGesture(host.gestureCalls(), index);
  }
}

TEST_F(ParameterControls, ControlAndAnotherModifierAreAnOrdinaryPress) {
  host.setParameter(0, 0.8F);
  host.settle();
  host.keyDown(XKB_KEY_Control_L);
  host.keyDown(XKB_KEY_Shift_L);
  host.click(handleX(0.8F), handleY(0));
  host.keyUp(XKB_KEY_Shift_L);
  host.keyUp(XKB_KEY_Control_L);
  EXPECT_NEAR(host.parameter(0), 0.8F, kOnePixel);
}

TEST_F(ParameterControls, AControlClickOnDisplaysAndTheMeterDoesNothing) {
  const Picture before = host.picture();
  host.keyDown(XKB_KEY_Control_L);
  for (const Area& caption : places::kCaptions) host.click(caption);
  for (int index = 0; index < 3; ++index) host.click(places::valueDisplay(index));
  host.click(places::kMeter);
  host.keyUp(XKB_KEY_Control_L);
  host.moveAway();
  EXPECT_TRUE(host.gestureCalls().empty());
  EXPECT_EQ(host.picture(), before);
}

// Parameters 3 and 4 of factory preset 0: process on, phase off.
TEST_F(ParameterControls, AClickTurnsASwitchInOneGesture) {
  struct Switch {
    VstInt32 index;
    Area place;
    float first;
  };
  for (const Switch& turned :
       {Switch{3, places::kProcessSwitch, 1.0F}, Switch{4, places::kPhaseSwitch, 0.0F}}) {
    SCOPED_TRACE(turned.index);
    ASSERT_EQ(host.parameter(turned.index), turned.first);
    const Picture before = host.picture();
    for (const float expected : {1.0F - turned.first, turned.first}) {
      host.forgetCalls();
      host.click(turned.place);
      EXPECT_EQ(host.parameter(turned.index), expected);
      const std::vector<HostCall> automated = host.calls(audioMasterAutomate);
      ASSERT_EQ(automated.size(), 1U);
      EXPECT_EQ(automated[0].opt, expected);
      expectGesture(host.gestureCalls(), turned.index);
      host.moveAway();
      const Picture after = host.picture();
      EXPECT_EQ(sameIn(turned.place, before, after), expected == turned.first);
      EXPECT_TRUE(turned.place.contains(differingArea(before, after)) || after == before);
    }
  }
}

TEST_F(ParameterControls, ASwitchIsNeverBetweenItsPositions) {
  host.keyDown(XKB_KEY_Control_L);
  host.click(places::kProcessSwitch);
  host.keyUp(XKB_KEY_Control_L);
  EXPECT_TRUE(host.parameter(3) == 0.0F || host.parameter(3) == 1.0F) << host.parameter(3);
  host.click(places::kPhaseSwitch, 3);
  EXPECT_EQ(host.parameter(4), 0.0F);
}

TEST_F(ParameterControls, AReleaseOutsideLeavesTheSwitch) {
  host.hover(places::kPhaseSwitch);
  host.press();
  host.moveTo(140, 140);
  host.release();
  EXPECT_EQ(host.parameter(4), 0.0F);
  EXPECT_TRUE(host.calls(audioMasterAutomate).empty());
}

// Arrows that the host hands on move the slider that was clicked: each one a gesture of its own.
TEST_F(ParameterControls, ArrowKeysOfTheHostsMoveTheSliderThatWasClicked) {
  constexpr VstIntPtr kUp = 12;  // the interface's number of the key
  host.click(handleX(0.5F), handleY(0));
  host.forgetCalls();
  host.key(XKB_KEY_Up);
  ASSERT_TRUE(host.calls(audioMasterAutomate).empty()) << "typed ones are the host's";
  host.dispatch(effEditKeyDown, 0, kUp);
  const std::vector<HostCall> automated = host.calls(audioMasterAutomate);
  ASSERT_EQ(automated.size(), 1U);
  EXPECT_NE(automated[0].opt, 0.5F);
  EXPECT_EQ(host.parameter(0), automated[0].opt);
  expectGesture(host.gestureCalls(), 0);
}

// The host may set a value while the mouse is on the slider: the value that it set is the
// one that stays.
TEST_F(ParameterControls, AHostThatSetsItsOwnValueDuringADragIsShown) {
  host.moveTo(handleX(0.5F), handleY(0));
  host.press();
  host.moveTo(handleX(0.7F), handleY(0));
  host.setParameter(0, 0.1F);
  host.idle(2);
  host.release();
  host.moveAway();
  EXPECT_EQ(host.parameter(0), 0.1F);
  const Picture after = host.picture();
  host.setParameter(0, 0.6F);
  host.settle();
  host.setParameter(0, 0.1F);
  EXPECT_EQ(host.picture(), after);
}

// At these values the base frequency is a whole number of hertz, and a hair less where the host's
// thread rounds downward, which the display would cut to the hertz below.
TEST_F(ParameterControls, CaptionsAndValuesAreTheSameUnderEveryRounding) {
  for (const float value : {0.165985F, 0.33197F, 0.448353F, 0.491769F}) {
    for (int index = 0; index < 3; ++index) host.setParameter(index, value);
    const Picture expected = host.picture();
    for (const int rounding : kRoundings) {
      const ScopedRounding hosts(rounding);
      WindowHost other(1);
      for (int index = 0; index < 3; ++index) other.setParameter(index, value);
      other.openEditor();
      EXPECT_EQ(other.picture(), expected) << value;
    }
  }
}
