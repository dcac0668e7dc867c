// Sliders under hand, wheel and keys: where the handle goes, and what the host hears.
#include <string>

#include "windowtest.h"

namespace {

using places::handleX;
using places::handleY;

constexpr float kOnePixel = 1.0F / places::kSliderTravel;
constexpr int kWheelUp = 4, kWheelDown = 5, kWheelLeft = 6, kWheelRight = 7;  // X11's buttons

class Sliders : public WindowTest {
 protected:
  Sliders() {
    for (int index = 0; index < 3; ++index) host.setParameter(index, 0.5F);
    host.openEditor();
    host.forgetCalls();
  }

  // begin, automate and end by their first letters.
  std::string gestures() {
    std::string letters;
    for (const HostCall& call : host.gestureCalls()) {
      letters += call.opcode == audioMasterBeginEdit ? 'b'
                 : call.opcode == audioMasterEndEdit ? 'e'
                                                     : 'a';
    }
    return letters;
  }
  void set(VstInt32 index, float value) {
    host.setParameter(index, value);
    host.settle();
    host.forgetCalls();
  }
  void wheel(int button, int times = 1) {
    for (int i = 0; i < times; ++i) {
      host.display.press(button);
      host.display.release(button);
    }
    host.idle();
  }
  bool waitForTheEndOfTheBurst() {
    return host.idleUntil([this] { return gestures().back() == 'e'; });
  }
  // The slider's column in which its handle begins, counted from its left end: the first one that
  // is not as in the picture with the handle at the other end.
  int handleColumn(int index) {
    const float value = host.parameter(index);
    const Picture now = host.picture();
    host.setParameter(index, value < 0.5F ? 1.0F : 0.0F);
    const Picture other = host.picture();
    host.setParameter(index, value);
    host.settle();
    const Area area = places::slider(index);
    const int first = value < 0.5F ? area.left + 20 : area.left;  // beside the other end's handle
    for (int x = first; x < area.right; ++x) {
      if (!sameIn({x, area.top, x + 1, area.bottom}, now, other)) return x - area.left;
    }
    return -1;
  }

  WindowHost host;
};

}  // namespace

TEST_F(Sliders, AClickOnAHandleChangesNothing) {
  for (VstInt32 index = 0; index < 3; ++index) {
    for (const float value : {0.333F, 0.123456F, 0.0F, 1.0F}) {
      set(index, value);
      host.moveAway();
      const Picture before = host.picture();
      host.click(handleX(value), handleY(index));
      host.idle(2);
      EXPECT_EQ(host.parameter(index), value);
      EXPECT_EQ(gestures(), "be");
      host.moveAway();
      EXPECT_EQ(host.picture(), before);
      host.click(handleX(value), handleY(index), 3);  // or the next would be a double click
    }
  }
}

TEST_F(Sliders, ShiftDuringADragDoesNotJump) {
  for (VstInt32 index = 0; index < 3; ++index) {
    set(index, 0.5F);
    host.moveTo(handleX(0.5F), handleY(index));
    host.press();
    host.moveTo(handleX(0.5F) + 48, handleY(index));
    EXPECT_NEAR(host.parameter(index), 0.2F, 1e-6F);
    host.keyDown(XKB_KEY_Shift_L);
    host.moveTo(handleX(0.5F) + 64, handleY(index));
    EXPECT_NEAR(host.parameter(index), 0.19F, 1e-6F);
    host.keyUp(XKB_KEY_Shift_L);
    host.moveTo(handleX(0.5F) + 63, handleY(index));
    EXPECT_NEAR(host.parameter(index), 0.19F + kOnePixel, 1e-6F);
    host.release();
    EXPECT_NEAR(host.parameter(index), 0.19F + kOnePixel, 1e-6F);
  }
}

TEST_F(Sliders, APointerBeyondTheEndFindsTheHandleAgainWhereItLeftIt) {
  host.moveTo(handleX(0.5F), handleY(0));
  host.press();
  host.moveTo(handleX(0.5F) + 200, handleY(0));
  EXPECT_EQ(host.parameter(0), 0.0F);
  host.moveTo(handleX(0.5F) + 81, handleY(0));
  EXPECT_EQ(host.parameter(0), 0.0F);
  host.moveTo(handleX(0.5F) + 60, handleY(0));
  EXPECT_NEAR(host.parameter(0), 0.5F - 60 * kOnePixel, 1e-6F);
  host.moveTo(handleX(0.5F), handleY(0));
  EXPECT_EQ(host.parameter(0), 0.5F);
  host.release();
}

TEST_F(Sliders, TheWheelUpIsMoreAndSidewaysTheHandleGoesWithIt) {
  host.hover(places::slider(0));
  const int middle = handleColumn(0);
  wheel(kWheelUp);
  EXPECT_EQ(host.parameter(0), 0.6F);
  wheel(kWheelDown, 3);
  EXPECT_EQ(host.parameter(0), 0.3F);
  wheel(kWheelRight);
  EXPECT_EQ(host.parameter(0), 0.2F);
  EXPECT_EQ(handleColumn(0), middle + 48);
  wheel(kWheelLeft, 6);
  EXPECT_EQ(host.parameter(0), 0.8F);
  EXPECT_EQ(handleColumn(0), middle - 48);
}

TEST_F(Sliders, TheWheelWithShiftIsTenTimesFiner) {
  host.hover(places::slider(2));
  host.keyDown(XKB_KEY_Shift_L);
  wheel(kWheelUp);
  EXPECT_EQ(host.parameter(2), 0.51F);
  wheel(kWheelRight, 2);
  EXPECT_EQ(host.parameter(2), 0.49F);
  host.keyUp(XKB_KEY_Shift_L);
}

TEST_F(Sliders, ABurstOfTheWheelIsOneGesture) {
  host.hover(places::slider(1));
  for (int i = 0; i < 3; ++i) wheel(kWheelUp);
  EXPECT_EQ(gestures(), "baaa");
  ASSERT_TRUE(waitForTheEndOfTheBurst());
  EXPECT_EQ(gestures(), "baaae");
  wheel(kWheelDown);
  ASSERT_TRUE(waitForTheEndOfTheBurst());
  EXPECT_EQ(gestures(), "baaaebae");
}

TEST_F(Sliders, AWindowThatClosesInABurstEndsItsGestureOnce) {
  host.hover(places::slider(1));
  wheel(kWheelUp);
  host.closeEditor();
  EXPECT_EQ(gestures(), "bae");
  host.openEditor();
  host.idleFor(700);  // ms, longer than a burst lasts
  EXPECT_EQ(gestures(), "bae");
}

TEST_F(Sliders, APressInABurstBeginsAGestureOfItsOwn) {
  host.moveTo(handleX(0.6F), handleY(0));
  wheel(kWheelUp);
  host.press();
  host.moveTo(handleX(0.6F) + 16, handleY(0));
  host.idleFor(700);
  EXPECT_EQ(gestures(), "baeba");
  host.release();
  EXPECT_EQ(gestures(), "baebae");
  EXPECT_NEAR(host.parameter(0), 0.5F, 1e-6F);
}

TEST_F(Sliders, ArrowKeysGoTheWayOfTheHandAndUpIsMore) {
  host.click(handleX(0.5F), handleY(0));
  const auto key = [this](VstInt32 virt, float modifiers = 0) {
    host.forgetCalls();
    EXPECT_EQ(host.dispatch(effEditKeyDown, 0, virt, nullptr, modifiers), 1);
    host.dispatch(effEditKeyUp, 0, virt, nullptr, modifiers);
    EXPECT_EQ(gestures(), "bae");
    return host.parameter(0);
  };
  constexpr VstInt32 kLeft = 11, kUp = 12, kRight = 13, kDown = 14;  // the interface's numbers
  constexpr float kShift = 1;
  EXPECT_EQ(key(kRight), 0.4F);
  EXPECT_EQ(key(kLeft), 0.5F);
  EXPECT_EQ(key(kUp), 0.6F);
  EXPECT_EQ(key(kDown), 0.5F);
  EXPECT_EQ(key(kRight, kShift), 0.49F);
}

TEST_F(Sliders, ADoubleClickSetsWhatAControlClickSets) {
  for (VstInt32 index = 0; index < 3; ++index) {
    set(index, 0.9F);
    host.keyDown(XKB_KEY_Control_L);
    host.click(handleX(0.9F), handleY(index));
    host.keyUp(XKB_KEY_Control_L);
    const float reset = host.parameter(index);
    EXPECT_EQ(gestures(), "bae");
    set(index, 0.9F);
    const int x = handleX(0.9F);
    host.doubleClick({x, handleY(index), x, handleY(index)});
    host.idle(2);
    EXPECT_EQ(host.parameter(index), reset);
    EXPECT_EQ(gestures(), "bebae");  // the first click's gesture, as of any click
    set(index, 0.9F);
    host.doubleClick(places::slider(index));  // beside the handle
    EXPECT_EQ(host.parameter(index), reset);
    EXPECT_EQ(gestures(), "bae");
  }
}

TEST_F(Sliders, ThousandsOfMotionsBetweenTwoPassesAreOneAutomation) {
  host.moveTo(handleX(0.5F), handleY(0));
  host.press();
  const Area window = host.screenArea();
  for (int i = 0; i < 4000; ++i)
    host.display.moveTo(window.left + handleX(0.5F) + i % 71, window.top + handleY(0));
  host.idle();
  EXPECT_EQ(gestures(), "ba");
  EXPECT_NEAR(host.parameter(0), 0.5F - 3999 % 71 * kOnePixel, 1e-6F);
  for (int i = 0; i < 50; ++i)
    host.display.moveTo(window.left + handleX(0.5F) + i, window.top + handleY(0));
  host.display.release(1);
  host.idle();
  EXPECT_EQ(gestures(), "baae");
  EXPECT_NEAR(host.parameter(0), 0.5F - 49 * kOnePixel, 1e-6F);
}

TEST_F(Sliders, AWindowThatClosesInADragEndsItsGestureOnce) {
  host.moveTo(handleX(0.5F), handleY(0));
  host.press();
  host.moveTo(handleX(0.5F) + 10, handleY(0));
  host.closeEditor();
  EXPECT_EQ(gestures(), "bae");
  host.release();
  host.openEditor();
  EXPECT_EQ(gestures(), "bae");
  EXPECT_NEAR(host.parameter(0), 0.5F - 10 * kOnePixel, 1e-6F);
}

// From inside the call that tells of the motion.
TEST_F(Sliders, AHostThatClosesTheWindowAsItHearsOfAMotionHearsTheEnd) {
  host.moveTo(handleX(0.5F), handleY(0));
  host.press();
  host.onCall = [this](const HostCall& call) {
    if (call.opcode == audioMasterAutomate && host.isEditorOpen()) host.closeEditor();
  };
  host.moveTo(handleX(0.5F) + 10, handleY(0));
  host.onCall = nullptr;
  EXPECT_FALSE(host.isEditorOpen());
  EXPECT_EQ(gestures(), "bae");
  host.release();
}

TEST_F(Sliders, TheHandleUnderThePointerIsLit) {
  for (int index = 0; index < 3; ++index) {
    host.moveAway();
    const Picture dark = host.picture();
    host.moveTo(handleX(0.9F), handleY(index));
    const Picture lit = host.picture();
    EXPECT_FALSE(sameIn(places::slider(index), dark, lit));
    const Area handle{handleX(0.5F) - 8, places::slider(index).top, handleX(0.5F) + 8,
                      places::slider(index).bottom};
    EXPECT_TRUE(handle.contains(differingArea(dark, lit))) << differingArea(dark, lit);
    host.moveTo(handleX(0.5F), handleY(index));
    host.press();
    host.moveTo(handleX(0.5F), 10);
    EXPECT_EQ(host.picture(), lit);
    host.release();
    EXPECT_EQ(host.picture(), dark);
  }
}
