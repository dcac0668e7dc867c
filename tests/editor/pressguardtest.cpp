// Presses, the wheel and keys while something else has the user's attention.
#include "editor/base/pressguard.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class PressGuardTest : public ControlTest {
 protected:
  PressGuardTest() { guard.watch(*frame); }
  ~PressGuardTest() override { guard.leave(*frame); }

  bool closed = false;
  PressGuard guard{[this] { return closed; }};
  VSTGUI::CControl* button = add(new VSTGUI::COnOffButton(CRect(10, 10, 30, 30), &listener));
};

TEST_F(PressGuardTest, LetsThemThroughWhileItIsOpen) {
  click({20, 20});
  EXPECT_EQ(listener.values.size(), 1U);
}

TEST_F(PressGuardTest, KeepsThemFromTheControlsWhileItIsClosed) {
  closed = true;
  EXPECT_TRUE(press({20, 20})) << "nobody else takes it";
  release({20, 20});
  EXPECT_TRUE(listener.values.empty());
  closed = false;
  click({20, 20});
  EXPECT_EQ(listener.values.size(), 1U) << "asked at each press";
}

TEST_F(PressGuardTest, LetsReleasesThroughThatEndAnEarlierPress) {
  press({20, 20});
  closed = true;
  release({20, 20});
  EXPECT_EQ(listener.values.size(), 1U);
}

// Counts what reaches it.
class Hearing : public VSTGUI::CView {
 public:
  using CView::CView;
  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override {
    ++wheels;
    event.consumed = true;
  }
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override {
    ++(event.type == VSTGUI::EventType::KeyDown ? downs : ups);
  }
  int wheels = 0, downs = 0, ups = 0;
};

TEST_F(PressGuardTest, KeepsTheWheelFromTheControlsWhileItIsClosed) {
  auto* view = add(new Hearing(CRect(50, 50, 80, 80)));
  EXPECT_TRUE(wheel({60, 60}, 1));
  closed = true;
  EXPECT_TRUE(wheel({60, 60}, 1)) << "nobody else takes it";
  EXPECT_EQ(view->wheels, 1);
}

TEST_F(PressGuardTest, KeepsKeysFromTheControlsWhileItIsClosedButForReleases) {
  auto* view = add(new Hearing(CRect(50, 50, 80, 80)));
  view->setWantsFocus(true);
  frame->onActivate(true);
  frame->setFocusView(view);
  key(VirtualKey::Up);
  EXPECT_EQ(view->downs, 1);
  EXPECT_EQ(view->ups, 1);
  closed = true;
  key(VirtualKey::Up);
  EXPECT_EQ(view->downs, 1);
  EXPECT_EQ(view->ups, 2);
}

TEST_F(PressGuardTest, KnowsWhetherAPressIsHeldThatTheControlsHave) {
  EXPECT_FALSE(guard.isHeld());
  press({20, 20});
  EXPECT_TRUE(guard.isHeld());
  move({25, 20}, MouseButton::Left);
  EXPECT_TRUE(guard.isHeld());
  release({25, 20});
  EXPECT_FALSE(guard.isHeld());
  press({20, 20});
  move({25, 20});
  EXPECT_FALSE(guard.isHeld()) << "the release was lost";
  closed = true;
  press({20, 20});
  EXPECT_FALSE(guard.isHeld()) << "a swallowed one";
}

TEST_F(PressGuardTest, LeavesAFrameAsItWas) {
  closed = true;
  guard.leave(*frame);
  auto* view = add(new Hearing(CRect(50, 50, 80, 80)));
  wheel({60, 60}, 1);
  click({20, 20});
  EXPECT_EQ(view->wheels, 1);
  EXPECT_EQ(listener.values.size(), 1U);
}

}  // namespace
