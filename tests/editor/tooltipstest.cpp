// When a tooltip shows, where, and what takes it away.
#include "editor/controls/tooltips.h"

#include <cmath>

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class Plain : public CControl {
 public:
  Plain(const CRect& size, std::int32_t tag) : CControl(size, nullptr, tag) {}
  void draw(VSTGUI::CDrawContext*) override {}
  VSTGUI::CMouseEventResult onMouseDown(CPoint&, const VSTGUI::CButtonState&) override {
    return VSTGUI::kMouseEventHandled;
  }
  CLASS_METHODS_NOCOPY(Plain, CControl)
};

class TooltipsTest : public ControlTest {
 protected:
  TooltipsTest() {
    add(new Plain(kFirst, 1));
    add(new Plain(kSecond, 2));
    add(new Plain(kSilent, 3));
    tips.emplace(
        *root->getFrame(), *root,
        [this](std::int32_t tag) { return ++asked, tag == 3 ? "" : "one line\nand another"; },
        [this] { return allowed; });
    tips->setClock([this] { return now; });
  }
  ~TooltipsTest() override { tips.reset(); }

  bool shownAfter(std::uint64_t ms) {
    now += ms;
    tips->idle();
    return tips->isShown();
  }
  bool rest(CPoint where) {
    move(where);
    return shownAfter(700);
  }
  // the tooltip's rectangle
  CRect place() {
    VSTGUI::CView* last = root->getView(root->getNbViews() - 1);
    return last->getViewSize();
  }

  static constexpr int kControls = 3;
  const CRect kFirst{20, 214, 60, 228}, kSecond{200, 214, 240, 228}, kSilent{100, 10, 140, 24};
  const CPoint onFirst{40, 220}, onSecond{220, 220}, onSilent{120, 20}, beside{150, 120};
  std::uint64_t now = 5000;  // ms
  bool allowed = true;
  int asked = 0;
  std::optional<Tooltips> tips;
};

TEST_F(TooltipsTest, OneShowsWhenThePointerHasRestedFor700Milliseconds) {
  move(onFirst);
  EXPECT_FALSE(shownAfter(0));
  EXPECT_FALSE(shownAfter(699));
  EXPECT_TRUE(shownAfter(1));
  EXPECT_EQ(root->getNbViews(), kControls + 1U);
}

TEST_F(TooltipsTest, APointerThatMovesDoesNotRest) {
  move(onFirst);
  EXPECT_FALSE(shownAfter(699));
  move(onFirst + CPoint(1, 0));
  EXPECT_FALSE(shownAfter(699));
  EXPECT_TRUE(shownAfter(1));
}

TEST_F(TooltipsTest, ItStaysWhileThePointerMovesOnTheControl) {
  ASSERT_TRUE(rest(onFirst));
  move(onFirst + CPoint(3, 2));
  EXPECT_TRUE(shownAfter(5000));
}

TEST_F(TooltipsTest, ItGoesWhenThePointerLeaves) {
  ASSERT_TRUE(rest(onFirst));
  move(beside);
  EXPECT_FALSE(tips->isShown());
  EXPECT_FALSE(shownAfter(5000));
  EXPECT_EQ(root->getNbViews(), static_cast<std::uint32_t>(kControls));
}

TEST_F(TooltipsTest, ItGoesWhenThePointerLeavesTheWindow) {
  ASSERT_TRUE(rest(onFirst));
  VSTGUI::MouseExitEvent event;
  event.mousePosition = CPoint(-1, 220);
  frame->dispatchEvent(event);
  EXPECT_FALSE(tips->isShown());
}

TEST_F(TooltipsTest, TheNextControlHasItsOwn) {
  ASSERT_TRUE(rest(onFirst));
  const CRect first = place();
  move(onSecond);
  EXPECT_FALSE(tips->isShown());
  EXPECT_TRUE(shownAfter(700));
  EXPECT_NE(place(), first);
}

// After a press, a wheel step or a key it is gone, and stays away until the pointer has been
// elsewhere.
class Dismissals : public TooltipsTest, public testing::WithParamInterface<int> {
 protected:
  void dismiss() {
    if (GetParam() == 0) press(onFirst);
    if (GetParam() == 1) wheel(onFirst, 1);
    if (GetParam() == 2) key(VirtualKey::Space);
    if (GetParam() == 3) press(onFirst, MouseButton::Right);
  }
};

TEST_P(Dismissals, TakeItAway) {
  ASSERT_TRUE(rest(onFirst));
  dismiss();
  EXPECT_FALSE(tips->isShown());
  release(onFirst);
  move(onFirst + CPoint(1, 1));
  EXPECT_FALSE(shownAfter(5000));
  move(beside);
  EXPECT_TRUE(rest(onFirst));
}

TEST_P(Dismissals, ComeBeforeItToo) {
  move(onFirst);
  dismiss();
  EXPECT_FALSE(shownAfter(5000));
}

INSTANTIATE_TEST_SUITE_P(Events, Dismissals, testing::Range(0, 4));

TEST_F(TooltipsTest, NoneShowsDuringADrag) {
  press(onFirst);
  move(onSecond, MouseButton::Left);
  EXPECT_FALSE(shownAfter(5000));
  release(onSecond);
  // a button that went down in another window
  move(beside);
  move(onSecond, MouseButton::Left);
  EXPECT_FALSE(shownAfter(5000));
}

TEST_F(TooltipsTest, NoneShowsWhileSomethingElseHasTheUsersAttention) {
  move(onFirst);
  allowed = false;
  EXPECT_FALSE(shownAfter(5000));
  allowed = true;
  EXPECT_FALSE(shownAfter(699)) << "the rest begins anew";
  EXPECT_TRUE(shownAfter(1));
  allowed = false;
  EXPECT_FALSE(shownAfter(0));
}

TEST_F(TooltipsTest, AControlWithoutATextHasNoneAndIsAskedOnce) {
  EXPECT_FALSE(rest(onSilent));
  EXPECT_FALSE(shownAfter(700));
  EXPECT_EQ(asked, 1);
}

TEST_F(TooltipsTest, TheTextIsAskedForOnlyWhereItIsShown) {
  move(onFirst);
  for (int pass = 0; pass < 40; ++pass) shownAfter(16);
  EXPECT_EQ(asked, 0);
  shownAfter(700);
  EXPECT_EQ(asked, 1);
  shownAfter(700);
  EXPECT_EQ(asked, 1);
}

TEST_F(TooltipsTest, ItIsDrawnAboveTheControl) {
  ASSERT_TRUE(rest(onFirst));
  const CRect shown = place();
  EXPECT_LT(shown.bottom, kFirst.top);
  const CColor paper = pixel(shown.left + 2, shown.top + 2);
  EXPECT_GT(paper.red, 240);
  EXPECT_NE(pixel(shown.left, shown.top), paper);  // the edge
  EXPECT_EQ(pixel(shown.left - 2, shown.top + 2), kBack);
  move(beside);
  EXPECT_EQ(pixel(shown.left + 2, shown.top + 2), kBack);
}

TEST_F(TooltipsTest, WhatLiesUnderItHasThePointerAtOnce) {
  add(new Plain(CRect(30, 190, 50, 204), 4));
  ASSERT_TRUE(rest(onFirst));
  const CRect first = place();
  ASSERT_TRUE(first.pointInside(CPoint(40, 200)));
  EXPECT_TRUE(rest(CPoint(40, 200)));
  EXPECT_LT(place().bottom, first.bottom);
}

TEST_F(TooltipsTest, OneThatIsShownGoesWithItsOwner) {
  ASSERT_TRUE(rest(onFirst));
  tips.reset();
  EXPECT_EQ(root->getNbViews(), static_cast<std::uint32_t>(kControls));
  move(onSecond);  // and nobody listens any more
}

// Any control, any size of text: inside of the window and not on the control, or nowhere.
TEST(TooltipPlace, IsInsideTheWindowAndNotOnTheControl) {
  const CRect window(0, 0, 302, 251);
  for (double left = 0; left <= 290; left += 10) {
    for (double top = 0; top <= 237; top += 9) {
      const CRect control(left, top + 0.5, left + 11.5, top + 13.5);  // as a name's may be
      for (const CPoint size : {CPoint(40, 19), CPoint(298, 32), CPoint(120, 110)}) {
        const auto place = tooltipPlace(window, control, size);
        ASSERT_TRUE(place);
        EXPECT_EQ(place->getSize(), size);
        EXPECT_TRUE(place->left == std::floor(place->left) && place->top == std::floor(place->top));
        EXPECT_TRUE(place->left >= 0 && place->right <= 302 && place->top >= 0 &&
                    place->bottom <= 251);
        EXPECT_TRUE(place->bottom < control.top || place->top > control.bottom);
      }
    }
  }
  EXPECT_FALSE(tooltipPlace(window, CRect(8, 214, 20, 228), CPoint(303, 19)));
  EXPECT_FALSE(tooltipPlace(window, CRect(8, 100, 20, 114), CPoint(40, 140)));
}

}  // namespace
