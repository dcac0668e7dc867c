// Clicks, keys and pictures of the load and save buttons.
#include "editor/controls/csaveloadbutton.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class SaveLoadButton : public ControlTest {
 protected:
  CSaveLoadButton* make(CPoint offset = {}, bool withListener = true) {
    const auto bitmap = stackedImages({kImage0, kImage1, kImage2}, 12, 14, offset);
    return add(new CSaveLoadButton(CRect(71, 214, 83, 228), withListener ? &listener : nullptr,
                                   1004, 14, bitmap, offset));
  }
  CColor shown() { return pixel(71, 214); }

  const CPoint inside{77, 220}, outside{100, 100};
};

TEST_F(SaveLoadButton, APlainRightClickSendsAHalf) {
  make();
  EXPECT_TRUE(press(inside, MouseButton::Right));
  EXPECT_EQ(listener.values, std::vector<float>{0.5F});
}

TEST_F(SaveLoadButton, ALeftClickSendsOne) {
  make();
  EXPECT_TRUE(press(inside));
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
}

TEST_F(SaveLoadButton, AnyModifierOrOtherButtonMakesARightClickAnOrdinaryOne) {
  make();
  for (const ModifierKey modifier : {ModifierKey::Shift, ModifierKey::Control, ModifierKey::Alt}) {
    click(inside, MouseButton::Right, {modifier});
    EXPECT_EQ(listener.values.back(), 1.0F);
  }
  CPoint where = inside;
  CSaveLoadButton* other = make();
  other->onMouseDown(where, VSTGUI::CButtonState(VSTGUI::kRButton | VSTGUI::kLButton));
  EXPECT_EQ(listener.values.back(), 1.0F);
  EXPECT_EQ(listener.values.size(), 4U);
}

TEST_F(SaveLoadButton, AControlClickSendsOne) {
  make();
  click(inside, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
}

TEST_F(SaveLoadButton, TheSecondOfTwoQuickRightClicksIsARightClickToo) {
  make();
  press(inside, MouseButton::Right, {}, 1);
  press(inside, MouseButton::Right, {}, 2);
  EXPECT_EQ(listener.values, (std::vector<float>{0.5F, 0.5F}));
}

TEST_F(SaveLoadButton, TheValueIsZeroAgainRightAfterTheCall) {
  CSaveLoadButton* button = make();
  float during = 0;
  listener.then = [&](CControl* control) { during = control->getValue(); };
  press(inside);
  EXPECT_EQ(during, 1.0F);
  EXPECT_EQ(button->getValue(), 0.0F);
  release(inside);
  EXPECT_EQ(listener.values.size(), 1U);
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(SaveLoadButton, OtherButtonsAreLeftToOthers) {
  make();
  EXPECT_FALSE(press(inside, MouseButton::Middle));
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(SaveLoadButton, WithoutAListenerPressesAreLeftToOthers) {
  make({}, false);
  EXPECT_FALSE(press(inside));
  EXPECT_FALSE(press(inside, MouseButton::Right));
}

TEST_F(SaveLoadButton, ShowsIdleHoverAndTheCall) {
  make();
  CColor during;
  listener.then = [&](CControl*) { during = shown(); };
  EXPECT_EQ(shown(), kImage0);
  press(inside);
  EXPECT_EQ(during, kImage2);
  EXPECT_EQ(shown(), kImage0);
  move(inside);
  EXPECT_EQ(shown(), kImage1);
  press(inside, MouseButton::Right);
  EXPECT_EQ(during, kImage2);
  EXPECT_EQ(shown(), kImage1);
  move(outside);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(SaveLoadButton, ReadsItsImagesFromTheOffsetOn) {
  make(CPoint(2, 4));
  EXPECT_EQ(shown(), kImage0);
  EXPECT_EQ(pixel(82, 227), kImage0);
  move(inside);
  EXPECT_EQ(shown(), kImage1);
}

TEST_F(SaveLoadButton, NoKeyActs) {
  CSaveLoadButton* button = make();
  frame->setFocusView(button);
  EXPECT_FALSE(key(VirtualKey::Return));
  EXPECT_FALSE(key(VirtualKey::Space));
  EXPECT_TRUE(listener.values.empty());
}

}  // namespace
