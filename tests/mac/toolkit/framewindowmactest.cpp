// Opening and closing the frame, on a platform of the test's own.
#include "editor/base/framewindow.h"

#include <gtest/gtest.h>

#include "lib/events.h"
#include "toolkitfactory.h"

namespace {

using VSTGUI::CFrame;
using VSTGUI::CRect;

// Stands for a control whose listener closes the window.
class ClosingView : public VSTGUI::CView {
 public:
  explicit ClosingView(FrameWindow& w) : CView(CRect(0, 0, 10, 10)), window(w) {}
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint&, const VSTGUI::CButtonState&) override {
    window.close();
    closedWhileHandling = !isAttached();
    return VSTGUI::kMouseEventHandled;
  }
  FrameWindow& window;
  bool closedWhileHandling = false;
};

class FrameWindowMac : public testing::Test {
 protected:
  toolkitdouble::Toolkit toolkit;
  CFrame* frame = new CFrame(CRect(0, 0, 302, 250), nullptr);
  int view = 0;  // stands for the host's view
};

TEST_F(FrameWindowMac, OpensTheFrameInTheHostsView) {
  FrameWindow window;
  ASSERT_TRUE(window.open(frame, &view));
  EXPECT_EQ(toolkit.record.frameParent, &view);
  EXPECT_EQ(toolkit.record.frameType, VSTGUI::PlatformType::kNSView);
  EXPECT_FALSE(window.keyboardLost());
  window.pump();
  window.close();
}

TEST_F(FrameWindowMac, LeavesAFrameThatDoesNotOpenToItsOwner) {
  toolkit.record.refusesFrames = true;
  FrameWindow window;
  EXPECT_FALSE(window.open(frame, &view));
  window.close();
  EXPECT_EQ(frame->getNbReference(), 1);
  frame->forget();
}

TEST_F(FrameWindowMac, ClosesOnceHoweverOftenItIsAsked) {
  {
    FrameWindow window;
    ASSERT_TRUE(window.open(frame, &view));
    window.close();
    window.close();
  }
  EXPECT_EQ(toolkit.record.framesClosed, 1);
}

TEST_F(FrameWindowMac, ClosesWithItsOwner) {
  {
    FrameWindow window;
    ASSERT_TRUE(window.open(frame, &view));
  }
  EXPECT_EQ(toolkit.record.framesClosed, 1);
}

TEST_F(FrameWindowMac, ClosesAfterTheEventInWhichItIsAsked) {
  FrameWindow window;
  ASSERT_TRUE(window.open(frame, &view));
  const auto closing = VSTGUI::makeOwned<ClosingView>(window);
  closing->remember();  // for the frame, which takes a reference over
  frame->addView(closing);
  VSTGUI::MouseDownEvent press(VSTGUI::CPoint(5, 5), VSTGUI::MouseButton::Left);
  frame->dispatchEvent(press);
  EXPECT_FALSE(closing->closedWhileHandling);
  EXPECT_EQ(toolkit.record.framesClosed, 1);
}

}  // namespace
