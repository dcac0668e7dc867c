// The layers between the toolkit's controls and ours.
#include "editor/controls/mousecontrol.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

// Counts what reaches it.
class Counting : public HoverControl<VSTGUI::CControl> {
 public:
  explicit Counting(const CRect& size) : HoverControl(size, nullptr, 0, nullptr) {}

  void draw(VSTGUI::CDrawContext*) override {}
  void onMouseDownEvent(VSTGUI::MouseDownEvent& event) override {
    ++presses;
    event.consumed = true;
  }
  bool isUnderPointer() const { return mouseOver; }

  int presses = 0;
};

class MouseControlTest : public ControlTest {
 protected:
  Counting* control = add(new Counting(CRect(10, 10, 30, 30)));
};

// The toolkit would set the default value instead.
TEST_F(MouseControlTest, TakesAPressWithTheControlKey) {
  control->setValue(1.0F);
  press({20, 20}, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(control->presses, 1);
  EXPECT_EQ(control->getValue(), 1.0F);
}

TEST_F(MouseControlTest, LeavesTheKeyboardToOthers) {
  EXPECT_FALSE(control->wantsFocus());
  click({20, 20});
  EXPECT_FALSE(key(VirtualKey::Return));
}

TEST_F(MouseControlTest, KnowsWhetherThePointerIsOverIt) {
  EXPECT_FALSE(control->isUnderPointer());
  move({20, 20});
  EXPECT_TRUE(control->isUnderPointer());
  move({50, 50});
  EXPECT_FALSE(control->isUnderPointer());
}

}  // namespace
