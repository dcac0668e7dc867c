// Opening and closing the about panel.
#include "editor/controls/cabout.h"

#include "controltest.h"
#include "editor/controls/cpskickbutton.h"
#include "editor/controls/csplashscreenmyview.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class About : public ControlTest {
 protected:
  About() {
    const auto bitmap = bitmapOf(200, 100, [](int, int) { return kImage1; });
    about = add(new CAbout(CRect(70, 182, 225, 202), &listener, 6, bitmap, panelArea, CPoint(),
                           CPoint(0, 8)));
  }
  bool panelIsOpen() {
    return dynamic_cast<CSplashScreenMyView*>(frame->getModalView()) != nullptr;
  }
  bool panelIsDrawn() { return pixel(panelArea.left, panelArea.bottom - 1) == kImage1; }

  const CRect panelArea{51, 57, 251, 157};  // 200 x 100 in the middle of 302 x 214
  const CPoint area{100, 190}, onPanel{150, 100}, besidePanel{10, 240};
  CAbout* about;
};

TEST_F(About, TheAreaItselfIsInvisible) {
  EXPECT_EQ(pixel(100, 190), kBack);
  EXPECT_FALSE(panelIsDrawn());
}

TEST_F(About, ALeftClickOpensThePanelInItsDisplayArea) {
  EXPECT_TRUE(press(area));
  release(area);
  EXPECT_EQ(about->getValue(), 1.0F);
  ASSERT_TRUE(panelIsOpen());
  EXPECT_EQ(frame->getModalView()->getViewSize(), panelArea);
  const Picture picture(frame, frame->getViewSize());
  EXPECT_EQ(picture.at(51, 57), kImage1);
  EXPECT_EQ(picture.at(250, 156), kImage1);
  EXPECT_EQ(picture.at(50, 57), kBack);
  EXPECT_EQ(picture.at(251, 156), kBack);
}

TEST_F(About, AControlClickOpensItToo) {
  click(area, MouseButton::Left, {ModifierKey::Control});
  EXPECT_EQ(about->getValue(), 1.0F);
  EXPECT_TRUE(panelIsOpen());
}

TEST_F(About, ALeftClickOnThePanelClosesIt) {
  click(area);
  EXPECT_TRUE(press(onPanel));
  EXPECT_EQ(about->getValue(), 0.0F);
  EXPECT_FALSE(panelIsOpen());
  EXPECT_FALSE(panelIsDrawn());
  release(onPanel);
}

TEST_F(About, ALeftClickBesideThePanelClosesItAsWell) {
  click(area);
  click(besidePanel);
  EXPECT_EQ(about->getValue(), 0.0F);
  EXPECT_FALSE(panelIsOpen());
}

TEST_F(About, OpensAgainAfterClosing) {
  for (int i = 0; i < 3; ++i) {
    click(area);
    EXPECT_TRUE(panelIsOpen());
    EXPECT_TRUE(panelIsDrawn());
    click(onPanel);
    EXPECT_FALSE(panelIsOpen());
    EXPECT_FALSE(panelIsDrawn());
  }
}

TEST_F(About, RightAndMiddleClicksDoNothing) {
  for (const MouseButton button : {MouseButton::Right, MouseButton::Middle}) {
    EXPECT_FALSE(press(area, button));
    release(area, button);
    EXPECT_EQ(about->getValue(), 0.0F);
    EXPECT_FALSE(panelIsOpen());
  }
  click(area);
  for (const MouseButton button : {MouseButton::Right, MouseButton::Middle}) {
    EXPECT_FALSE(press(onPanel, button));
    release(onPanel, button);
    EXPECT_EQ(about->getValue(), 1.0F);
    EXPECT_TRUE(panelIsOpen());
  }
}

TEST_F(About, ARightPressIsLeftToOthers) {
  CPoint where = area;
  EXPECT_EQ(about->onMouseDown(where, VSTGUI::CButtonState(VSTGUI::kRButton)),
            VSTGUI::kMouseEventNotHandled);
  EXPECT_FALSE(panelIsOpen());
}

TEST_F(About, TheListenerHearsNothing) {
  click(area);
  click(onPanel);
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(About, OtherControlsGetNoPressAndNoKeyWhileItIsOpen) {
  Listener other;
  auto* button =
      add(new CPSKickButton(CRect(0, 230, 20, 250), &other, 1, 20, nullptr, CPoint(), false));
  frame->setFocusView(button);
  click(area);
  EXPECT_EQ(frame->getFocusView(), nullptr);
  EXPECT_FALSE(press(CPoint(10, 240), MouseButton::Right));
  click(CPoint(10, 240));  // closes the panel
  EXPECT_TRUE(other.values.empty());
  click(CPoint(10, 240));
  EXPECT_EQ(other.values.size(), 1U);
}

TEST_F(About, TheMouseMovesOverThePanelWithoutClosingIt) {
  click(area);
  move(onPanel);
  move(besidePanel);
  wheel(onPanel, 1);
  EXPECT_TRUE(panelIsOpen());
}

TEST_F(About, TheFrameMayCloseWhileItIsOpen) {
  click(area);
  const auto keptArea = VSTGUI::shared(about);
  const auto keptPanel = VSTGUI::shared(frame->getModalView());
  closeFrame();
  EXPECT_EQ(keptPanel->getNbReference(), 1);  // the frame has let go of it
  EXPECT_FALSE(keptPanel->isAttached());
  EXPECT_EQ(keptArea->getNbReference(), 1);
}

TEST_F(About, TheFrameMayCloseBetweenThePressThatClosesItAndTheRelease) {
  click(area);
  press(onPanel);
  closeFrame();
}

TEST_F(About, ThePanelIsFreedWhenItCloses) {
  click(area);
  const auto kept = VSTGUI::shared(frame->getModalView());
  click(onPanel);
  EXPECT_EQ(kept->getNbReference(), 1);
}

TEST_F(About, AValueLeftOverWithoutAPanelIsCleared) {
  about->setValue(1);
  EXPECT_TRUE(press(area));
  EXPECT_EQ(about->getValue(), 0.0F);
  EXPECT_FALSE(panelIsOpen());
}

}  // namespace
