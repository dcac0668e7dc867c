// Clicks, keys and pictures of the push button.
#include "editor/controls/cpskickbutton.h"

#include "controltest.h"

namespace {

using namespace controltest;

class KickButton : public ControlTest {
 protected:
  CPSKickButton* make(bool requireDoubleClick, CPoint offset = {}) {
    const auto bitmap = stackedImages({kImage0, kImage1, kImage2}, 12, 14, offset);
    auto* button = add(new CPSKickButton(CRect(20, 30, 32, 44), &listener, 1014, 14, bitmap, offset,
                                         requireDoubleClick));
    button->setClock([this] { return time; });
    return button;
  }
  CColor shown() { return pixel(26, 37); }
  void pressAt(std::uint64_t milliseconds, MouseButton mouseButton = MouseButton::Left,
               std::initializer_list<ModifierKey> modifiers = {}, CPoint where = {26, 37}) {
    time = milliseconds;
    click(where, mouseButton, modifiers);
  }

  const CPoint inside{26, 37}, outside{100, 100};
  std::uint64_t time = 1000;  // ms
};

TEST_F(KickButton, ShowsItsImagesIdleUnderThePointerAndPressed) {
  make(false);
  EXPECT_EQ(shown(), kImage0);
  move(inside);
  EXPECT_EQ(shown(), kImage1);
  press(inside);
  EXPECT_EQ(shown(), kImage2);
  release(inside);
  EXPECT_EQ(shown(), kImage1);
  move(outside);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(KickButton, FillsItsRectangleAndNothingElse) {
  make(false);
  const Picture picture(frame, frame->getViewSize());
  for (const CPoint corner : {CPoint(20, 30), CPoint(31, 30), CPoint(20, 43), CPoint(31, 43)}) {
    EXPECT_EQ(picture.at(corner.x, corner.y), kImage0);
  }
  for (const CPoint beside : {CPoint(19, 30), CPoint(32, 30), CPoint(20, 29), CPoint(20, 44)}) {
    EXPECT_EQ(picture.at(beside.x, beside.y), kBack);
  }
}

TEST_F(KickButton, ReadsItsImagesFromTheOffsetOn) {
  make(false, CPoint(3, 5));
  EXPECT_EQ(pixel(20, 30), kImage0);
  move(inside);
  EXPECT_EQ(pixel(20, 30), kImage1);
  press(inside);
  EXPECT_EQ(pixel(20, 30), kImage2);
  EXPECT_EQ(pixel(31, 43), kImage2);
}

TEST_F(KickButton, StaysPressedWhileThePointerIsDraggedAway) {
  make(false);
  move(inside);
  press(inside);
  move(outside, MouseButton::Left);
  EXPECT_EQ(shown(), kImage2);
  release(outside);
  move(outside);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(KickButton, SendsOneOnThePressAndNothingOnTheRelease) {
  CPSKickButton* button = make(false);
  EXPECT_TRUE(press(inside));
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
  EXPECT_EQ(button->getValue(), 1.0F);
  release(inside);
  EXPECT_EQ(listener.values.size(), 1U);
  EXPECT_EQ(button->getValue(), 0.0F);
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(KickButton, SwallowsOtherButtonsWithoutActing) {
  make(false);
  for (const MouseButton other : {MouseButton::Right, MouseButton::Middle}) {
    EXPECT_TRUE(press(inside, other));
    EXPECT_EQ(shown(), kImage0);
    release(inside, other);
  }
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(KickButton, TheControlKeyChangesNothingWithoutDoubleClick) {
  make(false);
  click(inside, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
}

TEST_F(KickButton, ASingleClickSendsNothingWhereADoubleClickIsRequired) {
  make(true);
  EXPECT_TRUE(press(inside));
  EXPECT_EQ(shown(), kImage0);
  release(inside);
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(KickButton, ADoubleClickSendsOne) {
  CPSKickButton* button = make(true);
  pressAt(1000);
  time = 1150;
  press(inside);
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
  EXPECT_EQ(shown(), kImage2);
  release(inside);
  EXPECT_EQ(listener.values.size(), 1U);
  EXPECT_EQ(button->getValue(), 0.0F);
}

TEST_F(KickButton, AControlDoubleClickSendsAHalf) {
  make(true);
  pressAt(1000, MouseButton::Left, {ModifierKey::Control});
  EXPECT_TRUE(listener.values.empty());
  pressAt(1150, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(listener.values, std::vector<float>{0.5F});
}

TEST_F(KickButton, TheSecondPressDecidesWhatAControlDoubleClickMeans) {
  make(true);
  pressAt(1000, MouseButton::Left, {ModifierKey::Control});
  pressAt(1150);
  pressAt(2000);
  pressAt(2150, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(listener.values, (std::vector<float>{1.0F, 0.5F}));
}

TEST_F(KickButton, OneControlClickNeverActsWhereADoubleClickIsRequired) {
  CPSKickButton* button = make(true);
  for (int i = 0; i < 10; ++i) {
    pressAt(1000U + 1000U * static_cast<unsigned>(i), MouseButton::Left, {ModifierKey::Control});
  }
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(button->getValue(), 0.0F);
}

TEST_F(KickButton, ClicksTooFarApartInTimeOrPlaceSendNothing) {
  make(true);
  pressAt(1000);
  pressAt(1401);
  pressAt(5000, MouseButton::Left, {}, CPoint(21, 31));
  pressAt(5001, MouseButton::Left, {}, CPoint(27, 31));
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(KickButton, ADoubleClickIsFoundAfterALoneClickWithoutAnyMotion) {
  make(true);
  pressAt(1000);
  pressAt(3000);
  pressAt(3100);
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
}

TEST_F(KickButton, ThreeQuickClicksAreOneDoubleClick) {
  make(true);
  pressAt(1000);
  pressAt(1100);
  pressAt(1200);
  EXPECT_EQ(listener.values.size(), 1U);
}

TEST_F(KickButton, TheOtherButtonIsNoHalfOfADoubleClick) {
  make(true);
  pressAt(1000, MouseButton::Right);
  pressAt(1050);
  pressAt(1100, MouseButton::Right);
  pressAt(1150);
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(KickButton, TheToolkitsDoubleClickFlagAloneSendsNothing) {
  make(true);
  press(inside, MouseButton::Left, {}, 2);
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(KickButton, NoKeyActs) {
  for (const bool requireDoubleClick : {false, true}) {
    CPSKickButton* button = make(requireDoubleClick);
    frame->setFocusView(button);
    ASSERT_EQ(frame->getFocusView(), button);
    for (const VirtualKey virt :
         {VirtualKey::Return, VirtualKey::Enter, VirtualKey::Space, VirtualKey::Up}) {
      EXPECT_FALSE(key(virt));
      EXPECT_FALSE(key(virt, {ModifierKey::Control}));
    }
    EXPECT_TRUE(listener.values.empty());
    EXPECT_EQ(button->getValue(), 0.0F);
  }
}

TEST_F(KickButton, LeavesTheKeyboardWhereItWas) {
  make(false);
  click(inside);
  EXPECT_EQ(frame->getFocusView(), nullptr);
}

TEST_F(KickButton, TheListenerMayShowItReleasedBeforeTheRelease) {
  CPSKickButton* button = make(false);
  listener.then = [button](CControl*) {
    button->pressed = false;
    button->setDirty();
  };
  move(inside);
  press(inside);
  EXPECT_EQ(shown(), kImage1);
}

TEST_F(KickButton, ACancelledPressIsReleasedSilently) {
  CPSKickButton* button = make(false);
  press(inside);
  cancelMouse();
  EXPECT_EQ(listener.values.size(), 1U);
  EXPECT_EQ(button->getValue(), 0.0F);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(KickButton, ChangesRedrawTheButtonOnly) {
  CPSKickButton* button = make(false);
  root->redrawn.clear();
  move(inside);
  press(inside);
  release(inside);
  move(outside);
  ASSERT_EQ(root->redrawn.size(), 4U);
  for (const CRect& area : root->redrawn) EXPECT_EQ(area, button->getViewSize());
}

TEST_F(KickButton, WithoutABitmapOrAListenerItStillWorks) {
  auto* button =
      add(new CPSKickButton(CRect(20, 30, 32, 44), nullptr, 1, 14, nullptr, CPoint(), false));
  press(inside);
  EXPECT_EQ(button->getValue(), 1.0F);
  EXPECT_EQ(shown(), kBack);
  EXPECT_FALSE(button->isDirty());
  release(inside);
  EXPECT_EQ(button->getValue(), 0.0F);
}

}  // namespace
