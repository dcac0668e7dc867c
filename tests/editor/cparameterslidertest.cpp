// Drags and clicks of a slider, and where its handle stands.
#include "editor/controls/cparameterslider.h"

#include <string>
#include <vector>

#include "parameterslidertest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

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

TEST_F(ParameterSlider, ACancelledMotionThatHasNotBeenToldGivesWayToTheOldValue) {
  press(at(150));
  move(at(166), MouseButton::Left);
  slider->setValue(0.5F);  // the host's
  cancelMouse();
  EXPECT_EQ(slider->getValue(), 0.5F);
  EXPECT_EQ(listener.values, std::vector<float>{0.5F});
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

TEST_F(ParameterSlider, QuickNudgesAreNoDoubleClick) {
  press(at(150));
  move(at(153), MouseButton::Left);
  release(at(153));
  press(at(153));
  EXPECT_TRUE(slider->isEditing());
  EXPECT_FLOAT_EQ(slider->getValue(), 0.5F - 3 * kPixel);
  release(at(153));
}

TEST_F(ParameterSlider, AHandThatTremblesCanDoubleClick) {
  slider->setDefaultValue(0.25F);
  press(at(150));
  move(at(152), MouseButton::Left);
  release(at(151));
  press(at(151));
  EXPECT_EQ(slider->getValue(), 0.25F);
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
  click(CPoint(150, 200), MouseButton::Right);
  press(at(150), MouseButton::Right);  // or the next would be a double click
  press(at(150));
  slider->onMouseExited(where, VSTGUI::CButtonState());
  release(at(150));
  EXPECT_EQ(shownAt(kImage0), 143) << "nobody would say that the pointer leaves once more";
  move(CPoint(5, 5));
  move(at(150));
  click(at(150), MouseButton::Right);  // or the next would be a double click
  press(at(150));
  release(at(150));
  EXPECT_EQ(shownAt(kImage1), 143);
}

// Twice as large the window has pixels between ours. What the handle looks like at its edges is
// left to the toolkit, and is the same wherever it stands.
TEST_F(ParameterSlider, OnALargeScreenTheHandleStandsOnItsPixels) {
  frame->setZoom(2);
  const auto handleAround = [this](int pixel) {  // of the screen, from the travel's left end
    slider->setValue(1.0F - static_cast<float>(pixel) / 320.0F);
    const Picture picture(frame, frame->getViewSize());
    std::vector<CColor> row;
    for (int x = pixel - 4; x < pixel + 36; ++x)
      row.push_back(picture.at(2 * kLeft + x, 2 * kTop + 10));
    return row;
  };
  const std::vector<CColor> expected = handleAround(100);
  EXPECT_EQ(expected.front(), kImage2);
  EXPECT_EQ(expected[10], kImage0);
  for (const int pixel : {5, 101, 162, 163, 250, 315}) EXPECT_EQ(handleAround(pixel), expected);
}

// A value is seldom a whole pixel: 1 - 0.575 in single precision is a hair less than 0.425.
TEST_F(ParameterSlider, TheHandleStandsWhereTheDragLeftIt) {
  for (int pixel = 0; pixel <= 160; ++pixel) {
    slider->setValue(1.0F - static_cast<float>(pixel) / 160.0F);
    EXPECT_EQ(shownAt(kImage0), kLeft + pixel);
  }
}

}  // namespace
