// Presses while something else has the user's attention.
#include "editor/base/pressguard.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class PressGuardTest : public ControlTest {
 protected:
  PressGuardTest() { frame->registerMouseObserver(&guard); }
  ~PressGuardTest() override { frame->unregisterMouseObserver(&guard); }

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

}  // namespace
