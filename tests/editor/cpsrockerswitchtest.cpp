// Clicks, wheel, keys and pictures of the rocker.
#include "editor/controls/cpsrockerswitch.h"

#include "controltest.h"

namespace {

using namespace controltest;

class RockerSwitch : public ControlTest {
 protected:
  RockerSwitch() {
    const auto bitmap = stackedImages({kImage0, kImage1, kImage2, kImage3, kImage4}, 31, 14);
    rocker = add(
        new CPSRockerSwitch(CRect(219, 221, 250, 235), &listener, 1001, 14, bitmap, CPoint(), 1));
  }
  CColor shown() { return pixel(220, 222); }

  CPSRockerSwitch* rocker;
  // The middle lies at (219 + 250) / 2 = 234.5.
  const CPoint left{225, 228}, right{245, 228}, outside{100, 100};
};

TEST_F(RockerSwitch, APressSendsItsSideOnceAndTheReleaseNothing) {
  EXPECT_TRUE(press(left));
  EXPECT_EQ(rocker->getValue(), -1.0F);
  release(left);
  EXPECT_EQ(rocker->getValue(), 0.0F);
  click(right);
  EXPECT_EQ(listener.values, (std::vector<float>{-1.0F, 1.0F}));
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(RockerSwitch, TheMiddleBelongsToTheRight) {
  click(CPoint(234.4, 228));
  click(CPoint(234.5, 228));
  EXPECT_EQ(listener.values, (std::vector<float>{-1.0F, 1.0F}));
}

TEST_F(RockerSwitch, AControlClickIsAClickLikeAnyOther) {
  click(left, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(listener.values, std::vector<float>{-1.0F});
}

TEST_F(RockerSwitch, OtherButtonsAreLeftToOthers) {
  EXPECT_FALSE(press(left, MouseButton::Right));
  EXPECT_FALSE(press(left, MouseButton::Middle));
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(rocker->getValue(), 0.0F);
}

TEST_F(RockerSwitch, TheHoverImageFollowsThePointerFromHalfToHalf) {
  EXPECT_EQ(shown(), kImage0);
  move(left);
  EXPECT_EQ(shown(), kImage1);
  move(right);
  EXPECT_EQ(shown(), kImage2);
  move(left);
  EXPECT_EQ(shown(), kImage1);
  move(outside);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(RockerSwitch, StaysPressedOnItsSideUntilTheRelease) {
  move(left);
  press(left);
  EXPECT_EQ(shown(), kImage3);
  move(right, MouseButton::Left);
  EXPECT_EQ(shown(), kImage3);
  move(outside, MouseButton::Left);
  EXPECT_EQ(shown(), kImage3);
  EXPECT_EQ(listener.values.size(), 1U);
  release(outside);
  move(outside);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(RockerSwitch, ShowsThePressWithoutAnyMotionBeforeIt) {
  press(left);
  EXPECT_EQ(shown(), kImage3);
  release(left);
  press(right);
  EXPECT_EQ(shown(), kImage4);
}

TEST_F(RockerSwitch, ADragDoesNotMoveTheHoverImage) {
  move(left);
  press(left);
  move(right, MouseButton::Left);
  release(right);
  EXPECT_EQ(shown(), kImage1);
  move(right);
  EXPECT_EQ(shown(), kImage2);
}

TEST_F(RockerSwitch, ComesBackToTheHoverImageOnTheRelease) {
  move(right);
  press(right);
  EXPECT_EQ(shown(), kImage4);
  release(right);
  EXPECT_EQ(shown(), kImage2);
}

TEST_F(RockerSwitch, ReadsItsImagesFromTheBitmapsCorner) {
  const auto bitmap = stackedImages({kImage0, kImage1, kImage2, kImage3, kImage4}, 31, 14);
  add(new CPSRockerSwitch(CRect(0, 0, 31, 14), &listener, 1, 14, bitmap, CPoint(3, 5), 1));
  EXPECT_EQ(pixel(0, 0), kImage0);
  EXPECT_EQ(pixel(30, 13), kImage0);
}

TEST_F(RockerSwitch, NoKeyActs) {
  frame->setFocusView(rocker);
  for (const VirtualKey virt :
       {VirtualKey::Left, VirtualKey::Right, VirtualKey::Up, VirtualKey::Return}) {
    EXPECT_FALSE(key(virt));
  }
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(rocker->getValue(), 0.0F);
}

TEST_F(RockerSwitch, EachWheelClickIsOnePress) {
  EXPECT_TRUE(wheel(left, 1));
  EXPECT_EQ(rocker->getValue(), 0.0F);
  wheel(right, -1);
  wheel(right, -1);
  EXPECT_EQ(listener.values, (std::vector<float>{-1.0F, 1.0F, 1.0F}));
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(RockerSwitch, TheWheelWaitsWhileTheMouseHoldsIt) {
  press(left);
  wheel(left, -1);
  EXPECT_EQ(rocker->getValue(), -1.0F);
  EXPECT_EQ(listener.values.size(), 1U);
}

TEST_F(RockerSwitch, ACancelledPressIsReleasedSilently) {
  press(left);
  cancelMouse();
  EXPECT_EQ(rocker->getValue(), 0.0F);
  EXPECT_EQ(listener.values.size(), 1U);
}

}  // namespace
