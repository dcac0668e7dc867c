// Wheel and keys of a slider that is mirrored, as the window's are, and of one that is not.
#include <vector>

#include "parameterslidertest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

using SliderSteps = ParameterSlider;

TEST_F(SliderSteps, KeysGoTheWayOfTheHandAndUpIsMore) {
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

TEST_F(SliderSteps, AKeyAtTheEndTellsNothing) {
  slider->setValue(1.0F);
  EXPECT_TRUE(key(VirtualKey::Up));
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(SliderSteps, TheWheelGoesTheWayOfTheHandAndUpIsMore) {
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

TEST_F(SliderSteps, ATouchPadsPartsAreOneGesture) {
  for (int i = 0; i < 30; ++i) wheelBy(0, 0.1);
  EXPECT_EQ(slider->getValue(), 0.8F);
  EXPECT_EQ(editor.gestures, 1);
  EXPECT_TRUE(slider->isEditing());
}

TEST_F(SliderSteps, AWheelAtTheEndBeginsNoGesture) {
  slider->setValue(0.0F);
  EXPECT_TRUE(wheelBy(0, -1));
  EXPECT_EQ(editor.gestures, 0);
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(SliderSteps, WheelAndKeysWaitWhileTheMouseHoldsTheHandle) {
  press(at(150));
  EXPECT_TRUE(wheelBy(0, 1));
  EXPECT_TRUE(key(VirtualKey::Up));
  EXPECT_EQ(slider->getValue(), 0.5F);
  EXPECT_TRUE(slider->isEditing());
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(SliderSteps, AKeyAfterTheWheelIsAGestureOfItsOwn) {
  wheelBy(0, 1);
  key(VirtualKey::Up);
  EXPECT_EQ(editor.gestures, 2);
  EXPECT_FALSE(slider->isEditing());
  EXPECT_EQ(listener.values, (std::vector<float>{0.6F, 0.7F}));
}

}  // namespace
