// The window's own message, in a frame without a window.
#include "editor/controls/messagepanel.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class MessagePanelTest : public ControlTest {
 protected:
  MessagePanelTest() { showMessagePanel(*frame, "Could not open manual file:\n~/a/file"); }
  bool isOpen() const { return frame->getModalView() != nullptr; }

  VSTGUI::CControl* button = add(new VSTGUI::COnOffButton(CRect(10, 10, 30, 30), &listener));
};

TEST_F(MessagePanelTest, IsInTheWindowAndDrawn) {
  ASSERT_TRUE(isOpen());
  const CRect size = frame->getModalView()->getViewSize();
  EXPECT_GE(size.left, 0);
  EXPECT_LE(size.right, 302);
  EXPECT_GE(size.top, 0);
  EXPECT_LE(size.bottom, 251);
  const Picture shown(frame, frame->getViewSize());
  EXPECT_NE(shown.at(size.left + 3, size.top + 3), kBack);
  EXPECT_EQ(shown.at(size.left - 3, size.top + 3), kBack);
  int dark = 0;  // pixels of letters above the button
  for (double y = size.top + 2; y < size.bottom - 32; ++y) {
    for (double x = size.left + 2; x < size.right - 2; ++x) dark += shown.at(x, y).red < 60 ? 1 : 0;
  }
  EXPECT_GT(dark, 50);
}

TEST_F(MessagePanelTest, ClosesOnALeftPressAnywhereWhichReachesNothingElse) {
  click({20, 20}, MouseButton::Right);
  EXPECT_TRUE(isOpen());
  click({20, 20});
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(listener.values.empty());
  click({20, 20});
  EXPECT_EQ(listener.values.size(), 1U);
}

TEST_F(MessagePanelTest, ClosesOnReturnEnterAndEscape) {
  frame->onActivate(true);
  for (const VirtualKey closing : {VirtualKey::Return, VirtualKey::Enter, VirtualKey::Escape}) {
    if (!isOpen()) showMessagePanel(*frame, "text");
    EXPECT_TRUE(key(closing));
    EXPECT_FALSE(isOpen());
  }
}

// The space bar starts and stops the host.
TEST_F(MessagePanelTest, LeavesOtherKeysToTheHost) {
  frame->onActivate(true);
  frame->setFocusView(button);
  for (const VirtualKey other : {VirtualKey::Space, VirtualKey::Up, VirtualKey::F1})
    EXPECT_FALSE(key(other));
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(MessagePanelTest, KeepsTheWheelToItself) {
  EXPECT_TRUE(wheel({20, 20}, 1));
  EXPECT_TRUE(isOpen());
}

TEST_F(MessagePanelTest, GoesWithItsFrame) {
  closeFrame();
}

TEST_F(MessagePanelTest, ShowsLongAndOddTexts) {
  click({20, 20});
  std::string text = "\xff odd bytes ";
  for (int word = 0; word < 30; ++word) text += "word ";
  showMessagePanel(*frame, text);
  const CRect size = frame->getModalView()->getViewSize();
  EXPECT_GT(size.getHeight(), 100);
  EXPECT_LE(size.getHeight(), 251);
  pixel(20, 20);
}

}  // namespace
