// The root view: its modal view on top, and who gets the mouse.
#include "editor/base/myframe.h"

#include <gmock/gmock.h>

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

constexpr CRect kWindow{0, 0, 302, 251};

// One colour, and a word for everything that reaches it.
class Box : public VSTGUI::CView {
 public:
  Box(const CRect& size, const CColor& filled) : CView(size), colour(filled) {}
  void draw(VSTGUI::CDrawContext* context) override {
    context->setFillColor(colour);
    context->drawRect(getViewSize(), VSTGUI::kDrawFilled);
    ++drawings;
  }
  VSTGUI::CMouseEventResult onMouseDown(CPoint& where, const VSTGUI::CButtonState& state) override {
    return note("down", where, state);
  }
  VSTGUI::CMouseEventResult onMouseUp(CPoint& where, const VSTGUI::CButtonState& state) override {
    return note("up", where, state);
  }
  VSTGUI::CMouseEventResult onMouseMoved(CPoint& where,
                                         const VSTGUI::CButtonState& state) override {
    return note("moved", where, state);
  }
  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override {
    heard.emplace_back("wheel");
    place = event.mousePosition;
    event.consumed = answer == VSTGUI::kMouseEventHandled;
  }

  std::vector<std::string> heard;
  CPoint place;
  VSTGUI::CButtonState buttons;
  VSTGUI::CMouseEventResult answer = VSTGUI::kMouseEventHandled;
  int drawings = 0;

 private:
  VSTGUI::CMouseEventResult note(const char* what, const CPoint& where,
                                 const VSTGUI::CButtonState& state) {
    heard.emplace_back(what);
    place = where;
    buttons = state;
    return answer;
  }
  CColor colour;
};

class RootView : public ControlTest {
 protected:
  RootView() : view(add(new MyFrame(kWindow))) {
    view->setBackgroundColor(kBack);
    pixel(0, 0);  // drawn once, so that nothing is dirty
    root->redrawn.clear();
  }

  // Draws the part of the root view on white; the modal view is drawn or not.
  int modalDrawingsFor(const CRect& part) {
    const int before = modal->drawings;
    const auto context = VSTGUI::COffscreenContext::create(kWindow.getSize());
    context->beginDraw();
    view->drawRect(context, part);
    context->endDraw();
    return modal->drawings - before;
  }

  MyFrame* view;  // the frame's
  VSTGUI::SharedPointer<Box> modal = VSTGUI::makeOwned<Box>(CRect(100, 100, 200, 150), kImage1);
};

TEST_F(RootView, HasNoModalViewUntilItIsGivenOneAndAfterItIsTaken) {
  EXPECT_EQ(view->getModal(), nullptr);
  view->makeModal(modal);
  EXPECT_EQ(view->getModal(), modal.get());
  view->closeModal();
  EXPECT_EQ(view->getModal(), nullptr);
}

TEST_F(RootView, MakingAViewModalRedrawsNothing) {
  view->makeModal(modal);
  frame->idle();
  EXPECT_TRUE(root->redrawn.empty());
}

TEST_F(RootView, ClosingTheModalViewRedrawsEverythingEvenWithoutOne) {
  view->closeModal();
  EXPECT_EQ(root->redrawn, std::vector<CRect>{kWindow});
  view->makeModal(modal);
  root->redrawn.clear();
  view->closeModal();
  EXPECT_EQ(root->redrawn, std::vector<CRect>{kWindow});
}

TEST_F(RootView, TheModalViewIsDrawnOnTopOfTheControls) {
  auto* control = new Box(CRect(90, 90, 210, 160), kImage2);
  view->addView(control);
  EXPECT_EQ(pixel(150, 120), kImage2);
  view->makeModal(modal);
  EXPECT_EQ(pixel(150, 120), kImage1);
  EXPECT_EQ(pixel(95, 95), kImage2);
  EXPECT_EQ(pixel(10, 10), kBack);
}

// 100, 100, 200, 150: an edge that only touches it counts, one pixel further does not.
TEST_F(RootView, AModalViewOutsideTheUpdatedPartIsNotDrawnButOneThatTouchesItIs) {
  view->makeModal(modal);
  EXPECT_EQ(modalDrawingsFor(kWindow), 1);
  EXPECT_EQ(modalDrawingsFor(CRect(120, 110, 130, 120)), 1);
  for (const CRect& touching :
       {CRect(50, 100, 100, 150), CRect(200, 100, 250, 150), CRect(100, 50, 200, 100),
        CRect(100, 150, 200, 200), CRect(50, 50, 100, 100)}) {
    EXPECT_EQ(modalDrawingsFor(touching), 1) << testing::PrintToString(touching);
  }
  for (const CRect& apart : {CRect(50, 100, 99, 150), CRect(201, 100, 250, 150),
                             CRect(100, 50, 200, 99), CRect(100, 151, 200, 200)}) {
    EXPECT_EQ(modalDrawingsFor(apart), 0) << testing::PrintToString(apart);
  }
}

TEST_F(RootView, NothingIsDrawnForAPartWithoutSizeOrWithoutAContext) {
  auto* control = new Box(kWindow, kImage2);
  view->addView(control);
  view->makeModal(modal);
  const int before = control->drawings;
  for (const CRect& empty :
       {CRect(120, 110, 120, 120), CRect(120, 110, 130, 110), CRect(130, 110, 120, 120)}) {
    EXPECT_EQ(modalDrawingsFor(empty), 0) << testing::PrintToString(empty);
  }
  view->drawRect(nullptr, kWindow);
  EXPECT_EQ(control->drawings, before);
  EXPECT_EQ(modal->drawings, 0);
}

TEST_F(RootView, TheModalViewsOperationsGetTheArgumentsAndGiveTheAnswer) {
  view->makeModal(modal);
  // an answer that nobody else gives
  modal->answer = VSTGUI::kMouseMoveEventHandledButDontNeedMoreEvents;
  const VSTGUI::CButtonState state(VSTGUI::kRButton | VSTGUI::kShift);
  CPoint where(7, 9);  // beside it
  EXPECT_EQ(view->onMouseDown(where, state), modal->answer);
  EXPECT_EQ(view->onMouseMoved(where, state), modal->answer);
  EXPECT_EQ(view->onMouseUp(where, state), modal->answer);
  EXPECT_EQ(modal->heard, (std::vector<std::string>{"down", "moved", "up"}));
  EXPECT_EQ(modal->place, CPoint(7, 9));
  EXPECT_EQ(modal->buttons, state);
}

TEST_F(RootView, TheModalViewGetsEveryMouseEventWhetherItHandlesItOrNot) {
  auto* control = new Box(kWindow, kImage2);
  view->addView(control);
  view->makeModal(modal);
  for (const auto answer : {VSTGUI::kMouseEventHandled, VSTGUI::kMouseEventNotHandled}) {
    modal->answer = answer;
    modal->heard.clear();
    const bool handled = answer == VSTGUI::kMouseEventHandled;
    for (const CPoint where : {CPoint(150, 120), CPoint(7, 9)}) {  // on it and beside it
      EXPECT_EQ(press(where, MouseButton::Right), handled);
      release(where, MouseButton::Right);
      EXPECT_EQ(wheel(where, 1), handled);
    }
    EXPECT_THAT(modal->heard, testing::Contains("down").Times(2));
    EXPECT_THAT(modal->heard, testing::Contains("wheel").Times(2));
    EXPECT_TRUE(control->heard.empty()) << "handled: " << handled;
  }
}

TEST_F(RootView, WithoutAModalViewTheControlsGetTheMouse) {
  auto* control = new Box(CRect(0, 0, 50, 50), kImage2);
  view->addView(control);
  EXPECT_TRUE(press(CPoint(7, 9)));
  EXPECT_TRUE(release(CPoint(7, 9)));
  EXPECT_TRUE(wheel(CPoint(7, 9), 1));
  EXPECT_EQ(control->heard, (std::vector<std::string>{"down", "up", "wheel"}));
  EXPECT_TRUE(modal->heard.empty());
}

TEST_F(RootView, AnIdlePassRedrawsWhatIsDirtyAndEverythingUnderAModalView) {
  auto* control = new Box(CRect(0, 0, 50, 50), kImage2);
  view->addView(control);
  pixel(0, 0);
  root->redrawn.clear();
  view->idle();
  EXPECT_TRUE(root->redrawn.empty());
  control->setDirty();
  EXPECT_TRUE(root->redrawn.empty());
  view->idle();
  EXPECT_EQ(root->redrawn, std::vector<CRect>{control->getViewSize()});
  view->makeModal(modal);
  root->redrawn.clear();
  view->idle();
  EXPECT_EQ(root->redrawn, std::vector<CRect>{kWindow});
}

}  // namespace
