// Drags, clicks, wheel and keys of a slider that is mirrored, as the window's are, and of one that
// is not.
#include "editor/controls/cparameterslider.h"

#include "controltest.h"

namespace {

using namespace controltest;

constexpr double kLeft = 63, kTop = 51, kRight = 239, kHandle = 16, kHeight = 23;  // pixels
constexpr float kPixel = 1.0F / 160;                                               // of the travel

class ParameterSlider : public ControlTest {
 protected:
  ParameterSlider() { make(VSTGUI::CSlider::kRight); }

  void make(std::int32_t style) {
    const auto handle = stackedImages({kImage0}, 16, 23);
    const auto lit = stackedImages({kImage1}, 16, 23);
    const auto back = stackedImages({kImage2}, 302, 251);
    slider = add(new CParameterSlider(CRect(kLeft, kTop, kRight, kTop + kHeight), &listener, 0, 63,
                                      223, handle, back, CPoint(), style));
    slider->setLitHandle(lit);
    slider->setSliderMode(VSTGUI::CSliderMode::Touch);
    slider->setValue(0.5F);
    frame->setFocusView(slider);
  }
  static CPoint at(double x) { return {x, kTop + 10}; }
  bool moveFine(double x) {
    VSTGUI::MouseMoveEvent event(at(x), MouseButton::Left);
    event.modifiers.add(ModifierKey::Shift);
    frame->dispatchEvent(event);
    return event.consumed;
  }
  bool wheelBy(double deltaX, double deltaY, bool fine = false) {
    VSTGUI::MouseWheelEvent event;
    event.mousePosition = at(150);
    event.deltaX = deltaX;
    event.deltaY = deltaY;
    if (fine) event.modifiers.add(ModifierKey::Shift);
    frame->dispatchEvent(event);
    return event.consumed;
  }
  // The handle's left edge in the picture.
  double shownAt(const CColor& colour) {
    const Picture picture(frame, frame->getViewSize());
    for (double x = kLeft; x < kRight; ++x) {
      if (picture.at(x, kTop + 5) == colour) return x;
    }
    return -1;
  }

  CParameterSlider* slider = nullptr;
};

TEST_F(ParameterSlider, APressWithoutMotionChangesNothing) {
  for (const float value : {0.333F, 0.0F, 1.0F, 0.9999F}) {
    slider->setValue(value);
    const CPoint onHandle = at(kLeft + (1.0 - static_cast<double>(value)) * 160 + 7);
    EXPECT_TRUE(press(onHandle));
    EXPECT_TRUE(slider->isEditing()) << value;
    release(onHandle);
    EXPECT_FALSE(slider->isEditing());
    slider->sendMotion();
    EXPECT_EQ(slider->getValue(), value);
    press(CPoint(5, 5), MouseButton::Right);  // or the next press would be a double click
    press(onHandle, MouseButton::Right);
  }
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(ParameterSlider, TheHandleFollowsTheGrip) {
  press(at(150));  // the handle is at 143
  for (const double step : {1.0, 13.0, 47.0, -60.0, -12.0}) {
    move(at(150 + step), MouseButton::Left);
    EXPECT_NEAR(slider->getValue(), 0.5F - static_cast<float>(step) * kPixel, 1e-6F);
    EXPECT_EQ(shownAt(kImage1), 143 + step);
  }
}

TEST_F(ParameterSlider, ManyMotionsAreOneChangeAndTheLastOneCounts) {
  press(at(150));
  for (int x = 151; x <= 190; ++x) move(at(x), MouseButton::Left);
  EXPECT_TRUE(listener.values.empty());
  slider->sendMotion();
  ASSERT_EQ(listener.values.size(), 1U);
  EXPECT_FLOAT_EQ(listener.values[0], 0.25F);
  slider->sendMotion();
  EXPECT_EQ(listener.values.size(), 1U);
  move(at(170), MouseButton::Left);
  release(at(166));
  ASSERT_EQ(listener.values.size(), 2U);
  EXPECT_FLOAT_EQ(listener.values[1], 0.4F);
}

TEST_F(ParameterSlider, TheLastMotionIsToldBeforeTheGestureEnds) {
  class Order : public VSTGUI::IControlListener {
   public:
    void valueChanged(CControl*) override { calls += "value "; }
    void controlBeginEdit(CControl*) override { calls += "begin "; }
    void controlEndEdit(CControl*) override { calls += "end "; }
    std::string calls;
  } order;
  slider->setListener(&order);
  press(at(150));
  move(at(160), MouseButton::Left);
  move(at(161), MouseButton::Left);
  slider->endEdit();  // as the closing window does
  slider->endEdit();
  EXPECT_EQ(order.calls, "begin value end ");
  slider->setListener(&listener);
}

TEST_F(ParameterSlider, AHostsValueDuringADragStaysUntilTheNextMotion) {
  press(at(150));
  move(at(160), MouseButton::Left);
  slider->sendMotion();
  slider->setValue(0.9F);
  slider->sendMotion();
  release(at(160));
  EXPECT_EQ(slider->getValue(), 0.9F);
  EXPECT_EQ(listener.values.size(), 1U);
}

TEST_F(ParameterSlider, AHostsValueBetweenMotionAndItsChangeIsOvertaken) {
  press(at(150));
  move(at(166), MouseButton::Left);
  slider->setValue(0.9F);
  slider->sendMotion();
  ASSERT_EQ(listener.values.size(), 1U);
  EXPECT_FLOAT_EQ(listener.values[0], 0.4F);
  EXPECT_FLOAT_EQ(slider->getValue(), 0.4F);
}

TEST_F(ParameterSlider, ShiftInTheMiddleOfADragDoesNotJump) {
  press(at(150));
  move(at(198), MouseButton::Left);
  EXPECT_FLOAT_EQ(slider->getValue(), 0.2F);
  moveFine(198);
  EXPECT_FLOAT_EQ(slider->getValue(), 0.2F);
  moveFine(166);
  EXPECT_FLOAT_EQ(slider->getValue(), 0.22F);
  move(at(166), MouseButton::Left);
  EXPECT_FLOAT_EQ(slider->getValue(), 0.22F);
  move(at(165), MouseButton::Left);
  EXPECT_FLOAT_EQ(slider->getValue(), 0.22F + kPixel);
}

TEST_F(ParameterSlider, ACancelledDragTakesTheValueBackAndTellsSoOnce) {
  press(at(150));
  move(at(166), MouseButton::Left);
  slider->sendMotion();
  move(at(150), MouseButton::Left);
  EXPECT_TRUE(key(VirtualKey::Escape));
  EXPECT_EQ(slider->getValue(), 0.5F);
  ASSERT_EQ(listener.values.size(), 2U);
  EXPECT_EQ(listener.values[1], 0.5F);
  EXPECT_FALSE(slider->isEditing());
  EXPECT_FALSE(key(VirtualKey::Escape));
}

TEST_F(ParameterSlider, ACancelledPressTellsNothing) {
  press(at(150));
  cancelMouse();
  EXPECT_TRUE(listener.values.empty());
  EXPECT_FALSE(slider->isEditing());
}

TEST_F(ParameterSlider, APressBesideTheHandleOrOfAnotherButtonDoesNothing) {
  click(at(142));
  click(at(160));
  click(at(150), MouseButton::Right);
  move(at(190), MouseButton::Left);
  EXPECT_EQ(editor.gestures, 0);
  EXPECT_EQ(slider->getValue(), 0.5F);
}

TEST_F(ParameterSlider, ADoubleClickAnywhereOnItSetsTheDefaultAtTheSecondPress) {
  for (const double x : {70.0, 200.0}) {
    slider->setDefaultValue(0.25F);
    slider->setValue(0.9F);
    listener.values.clear();
    click(at(x));
    EXPECT_TRUE(listener.values.empty());
    press(at(x));
    EXPECT_EQ(listener.values, std::vector<float>{0.25F});
    EXPECT_FALSE(slider->isEditing());
    move(at(120), MouseButton::Left);
    release(at(120));
    EXPECT_EQ(slider->getValue(), 0.25F);
  }
}

TEST_F(ParameterSlider, AnotherButtonBetweenTwoClicksMakesThemSingle) {
  slider->setValue(0.9F);
  click(at(200));
  click(at(200), MouseButton::Right);
  click(at(200));
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(ParameterSlider, KeysGoTheWayOfTheHandAndUpIsMore) {
  struct Step {
    VirtualKey key;
    float mirrored, plain;
  };
  for (const bool mirrored : {true, false}) {
    if (!mirrored) make(VSTGUI::CSlider::kLeft);
    for (const Step& step :
         {Step{VirtualKey::Up, 0.6F, 0.6F}, Step{VirtualKey::Down, 0.4F, 0.4F},
          Step{VirtualKey::Right, 0.4F, 0.6F}, Step{VirtualKey::Left, 0.6F, 0.4F}}) {
      slider->setValue(0.5F);
      EXPECT_TRUE(key(step.key));
      EXPECT_EQ(slider->getValue(), mirrored ? step.mirrored : step.plain);
      EXPECT_FALSE(slider->isEditing());
    }
  }
  slider->setValue(0.5F);
  key(VirtualKey::Up, {ModifierKey::Shift});
  EXPECT_EQ(slider->getValue(), 0.51F);
  EXPECT_FALSE(key(VirtualKey::Return));
}

TEST_F(ParameterSlider, AKeyAtTheEndTellsNothing) {
  slider->setValue(1.0F);
  EXPECT_TRUE(key(VirtualKey::Up));
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(ParameterSlider, TheWheelGoesTheWayOfTheHandAndUpIsMore) {
  struct Turn {
    double right, up;
    float mirrored, plain;
  };
  for (const bool mirrored : {true, false}) {
    if (!mirrored) make(VSTGUI::CSlider::kLeft);
    for (const Turn& turn :
         {Turn{0, 1, 0.6F, 0.6F}, Turn{0, -2, 0.3F, 0.3F}, Turn{1, 0, 0.4F, 0.6F},
          Turn{-1, 0, 0.6F, 0.4F}, Turn{0.3, 1, 0.6F, 0.6F}, Turn{-2, 1, 0.7F, 0.3F}}) {
      slider->setValue(0.5F);
      EXPECT_TRUE(wheelBy(turn.right, turn.up));
      EXPECT_EQ(slider->getValue(), mirrored ? turn.mirrored : turn.plain);
    }
  }
  slider->setValue(0.5F);
  wheelBy(0, -1, true);
  EXPECT_EQ(slider->getValue(), 0.49F);
  EXPECT_FALSE(wheelBy(0, 0));
}

TEST_F(ParameterSlider, ATouchPadsPartsAreOneGesture) {
  for (int i = 0; i < 30; ++i) wheelBy(0, 0.1);
  EXPECT_EQ(slider->getValue(), 0.8F);
  EXPECT_EQ(editor.gestures, 1);
  EXPECT_TRUE(slider->isEditing());
}

TEST_F(ParameterSlider, AWheelAtTheEndBeginsNoGesture) {
  slider->setValue(0.0F);
  EXPECT_TRUE(wheelBy(0, -1));
  EXPECT_EQ(editor.gestures, 0);
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(ParameterSlider, WheelAndKeysWaitWhileTheMouseHoldsTheHandle) {
  press(at(150));
  EXPECT_TRUE(wheelBy(0, 1));
  EXPECT_TRUE(key(VirtualKey::Up));
  EXPECT_EQ(slider->getValue(), 0.5F);
  EXPECT_TRUE(slider->isEditing());
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(ParameterSlider, AKeyAfterTheWheelIsAGestureOfItsOwn) {
  wheelBy(0, 1);
  key(VirtualKey::Up);
  EXPECT_EQ(editor.gestures, 2);
  EXPECT_FALSE(slider->isEditing());
  EXPECT_EQ(listener.values, (std::vector<float>{0.6F, 0.7F}));
}

TEST_F(ParameterSlider, TheHandleIsLitUnderThePointerAndWhileItIsDragged) {
  EXPECT_EQ(shownAt(kImage0), 143);
  move(at(70));
  EXPECT_EQ(shownAt(kImage1), 143);
  move(CPoint(5, 5));
  EXPECT_EQ(shownAt(kImage0), 143);
  move(at(150));
  press(at(150));
  CPoint where;
  slider->onMouseExited(where, VSTGUI::CButtonState());  // as a window manager's grab makes it
  EXPECT_EQ(shownAt(kImage1), 143);
  move(CPoint(150, 200), MouseButton::Left);
  EXPECT_EQ(shownAt(kImage1), 143);
  release(CPoint(150, 200));
  EXPECT_EQ(shownAt(kImage0), 143);
}

// A value is seldom a whole pixel: 1 - 0.575 in single precision is a hair less than 0.425.
TEST_F(ParameterSlider, TheHandleStandsWhereTheDragLeftIt) {
  for (int pixel = 0; pixel <= 160; ++pixel) {
    slider->setValue(1.0F - static_cast<float>(pixel) / 160.0F);
    EXPECT_EQ(shownAt(kImage0), kLeft + pixel);
  }
}

}  // namespace
