// Clicks, keys and pictures of the switch with two positions.
#include "editor/controls/cpsonoffbutton.h"

#include "controltest.h"

namespace {

using namespace controltest;

class OnOffButton : public ControlTest {
 protected:
  CPSOnOffButton* make() {
    return add(
        new CPSOnOffButton(area, &listener, 7, stackedImages({kImage0, kImage1, kImage2}, 10, 8)));
  }
  CColor shown() { return pixel(45, 54); }

  const CRect area{40, 50, 50, 58};
  const CPoint inside{45, 54}, outside{100, 100};
};

TEST_F(OnOffButton, EachLeftPressTogglesAndTellsOnce) {
  CPSOnOffButton* button = make();
  EXPECT_TRUE(press(inside));
  EXPECT_EQ(button->getValue(), 1.0F);
  release(inside);
  click(inside);
  click(inside);
  EXPECT_EQ(listener.values, (std::vector<float>{1.0F, 0.0F, 1.0F}));
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(OnOffButton, AControlClickTogglesLikeAnyOther) {
  make();
  click(inside, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(listener.values, std::vector<float>{1.0F});
}

TEST_F(OnOffButton, OtherButtonsAreLeftToOthers) {
  CPSOnOffButton* button = make();
  EXPECT_FALSE(press(inside, MouseButton::Right));
  EXPECT_FALSE(press(inside, MouseButton::Middle));
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(button->getValue(), 0.0F);
}

TEST_F(OnOffButton, ShowsOffHoverAndOn) {
  make();
  EXPECT_EQ(shown(), kImage0);
  move(inside);
  EXPECT_EQ(shown(), kImage1);
  click(inside);
  EXPECT_EQ(shown(), kImage2);
  move(outside);
  EXPECT_EQ(shown(), kImage2);
  click(inside);
  EXPECT_EQ(shown(), kImage0);
}

TEST_F(OnOffButton, AValueInBetweenShowsTheFirstImageUnderThePointerToo) {
  CPSOnOffButton* button = make();
  for (const float value : {0.5F, 0.25F, 0.999F}) {
    button->setValue(value);
    EXPECT_EQ(shown(), kImage0);
    move(inside);
    EXPECT_EQ(shown(), kImage0);
    move(outside);
  }
}

TEST_F(OnOffButton, AThirdOfTheBitmapIsCutToWholePixels) {
  // 26 pixels: thirds of 8, two rows are left over.
  const auto bitmap = bitmapOf(10, 26, [](int, int y) {
    return y < 8 ? kImage0 : y < 16 ? kImage1 : kImage2;
  });
  auto* button = add(new CPSOnOffButton(area, &listener, 7, bitmap));
  move(inside);
  EXPECT_EQ(pixel(45, 50), kImage1);
  button->setValue(1);
  EXPECT_EQ(pixel(45, 50), kImage2);
}

TEST_F(OnOffButton, NoKeyActs) {
  CPSOnOffButton* button = make();
  frame->setFocusView(button);
  EXPECT_FALSE(key(VirtualKey::Return));
  EXPECT_FALSE(key(VirtualKey::Space));
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(OnOffButton, WithoutABitmapOrAListenerItStillWorks) {
  auto* button = add(new CPSOnOffButton(area, nullptr, 7, nullptr));
  click(inside);
  EXPECT_EQ(button->getValue(), 1.0F);
  EXPECT_EQ(shown(), kBack);
}

}  // namespace
