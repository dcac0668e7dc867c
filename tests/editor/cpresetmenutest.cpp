// The list of presets: opening, choosing, leaving.
#include "editor/controls/cpresetmenu.h"

#include "editor/controls/cpskickbutton.h"
#include "presetlisttest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

TEST_F(PresetList, LeftAndRightPressesOpenIt) {
  for (const MouseButton button : {MouseButton::Left, MouseButton::Right}) {
    EXPECT_TRUE(press(onMenu, button));
    EXPECT_TRUE(isOpen());
    release(onMenu, button);
    EXPECT_TRUE(isOpen());
    key(VirtualKey::Escape);
    EXPECT_FALSE(isOpen());
  }
}

TEST_F(PresetList, AMiddlePressDoesNotOpenIt) {
  EXPECT_FALSE(press(onMenu, MouseButton::Middle));
  EXPECT_FALSE(isOpen());
}

TEST_F(PresetList, AControlPressOpensItAndChangesNothing) {
  click(onMenu, MouseButton::Left, {ModifierKey::Control});
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(menu->getValue(), 5.0F);
}

TEST_F(PresetList, AMenuWithoutEntriesOpensNothing) {
  menu->removeAllEntry();
  click(onMenu);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(frame->getModalView(), nullptr);
}

TEST_F(PresetList, AClickOnAnEntryChoosesIt) {
  click(onMenu);
  press(onEntry(20));
  EXPECT_TRUE(listener.values.empty());  // the release decides
  release(onEntry(20));
  EXPECT_EQ(listener.values, std::vector<float>{20.0F});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(menu->getCurrentIndex(true), 20);
  EXPECT_EQ(menu->getLastResult(), 20);
  EXPECT_EQ(editor.gestures, 0);
}

TEST_F(PresetList, EveryEntryCanBeChosen) {
  for (int i = 0; i < 32; ++i) {
    click(onMenu);
    click(onEntry(i));
    ASSERT_EQ(listener.values.size(), static_cast<std::size_t>(i) + 1);
    EXPECT_EQ(listener.values.back(), static_cast<float>(i));
    EXPECT_EQ(menu->getLastResult(), i);
  }
}

TEST_F(PresetList, ARightClickOnAnEntryChoosesItToo) {
  click(onMenu, MouseButton::Right);
  click(onEntry(3), MouseButton::Right);
  EXPECT_EQ(listener.values, std::vector<float>{3.0F});
}

TEST_F(PresetList, TheListenerSeesTheListClosedAndTheResultThere) {
  bool open = true;
  int result = -7;
  listener.then = [&](CControl*) {
    open = isOpen();
    result = menu->getLastResult();
  };
  click(onMenu);
  click(onEntry(31));
  EXPECT_FALSE(open);
  EXPECT_EQ(result, 31);
}

TEST_F(PresetList, ThePressMayBeDraggedToAnEntryAndReleasedThere) {
  press(onMenu);
  move(onEntry(10), MouseButton::Left);
  EXPECT_EQ(highlighted(), std::vector<int>{10});
  move(onEntry(17), MouseButton::Left);
  release(onEntry(17));
  EXPECT_EQ(listener.values, std::vector<float>{17.0F});
  EXPECT_FALSE(isOpen());
}

TEST_F(PresetList, APressInsideMayBeDraggedToAnotherEntry) {
  click(onMenu);
  press(onEntry(4));
  move(onEntry(9), MouseButton::Left);
  release(onEntry(9));
  EXPECT_EQ(listener.values, std::vector<float>{9.0F});
}

TEST_F(PresetList, AnUnsteadyClickOnTheMenuChoosesNothing) {
  press(onMenu);
  const CPoint near(onMenu.x + 5, onMenu.y - 5);
  ASSERT_NE(layout.entryAt(near), -1);  // the list lies under the pointer
  move(near, MouseButton::Left);
  release(near);
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(highlighted(), std::vector<int>{5});
}

TEST_F(PresetList, ADragThatComesBackToTheEntryUnderTheMenuChoosesIt) {
  press(onMenu);
  move(CPoint(onMenu.x - 6, onMenu.y), MouseButton::Left);
  release(onMenu);
  EXPECT_EQ(listener.values, std::vector<float>{static_cast<float>(layout.entryAt(onMenu))});
}

TEST_F(PresetList, ADragReleasedOutsideClosesItWithoutAChange) {
  press(onMenu);
  move(onEntry(10), MouseButton::Left);
  release(outside);
  EXPECT_FALSE(isOpen());
  expectNoChange();
}

TEST_F(PresetList, AReleaseOnTheListsEdgeLeavesItOpen) {
  press(onMenu);
  const CPoint edge = layout.panel().getTopLeft();
  move(edge, MouseButton::Left);
  release(edge);
  EXPECT_TRUE(isOpen());
  click(edge);
  EXPECT_TRUE(isOpen());
  expectNoChange();
}

TEST_F(PresetList, APressOutsideClosesItWithoutAChange) {
  for (const MouseButton button : {MouseButton::Left, MouseButton::Right}) {
    click(onMenu);
    EXPECT_TRUE(press(outside, button));
    EXPECT_FALSE(isOpen());
    release(outside, button);
    expectNoChange();
  }
}

TEST_F(PresetList, APressOutsideTheWindowClosesIt) {
  click(onMenu);
  press(CPoint(-40, 700));
  EXPECT_FALSE(isOpen());
  expectNoChange();
}

TEST_F(PresetList, ThePressThatClosesItPressesNothingElse) {
  Listener other;
  add(new VSTGUI::CKickButton(CRect(0, 0, 20, 5), &other, 1, nullptr));
  click(onMenu);
  click(CPoint(5, 2));
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(other.values.empty());
  click(CPoint(5, 2));
  EXPECT_FALSE(other.values.empty());
}

TEST_F(PresetList, TheMiddleButtonDoesNothingInIt) {
  click(onMenu);
  for (const CPoint where : {onEntry(3), outside}) {
    click(where, MouseButton::Middle);
    EXPECT_TRUE(isOpen());
  }
  expectNoChange();
}

TEST_F(PresetList, AControlBehindItIsHoveredAgainOnlyAfterIt) {
  const auto bitmap = stackedImages({kImage0, kImage1, kImage2}, 302, 8);
  // above the list
  add(new CPSKickButton(CRect(0, 0, 302, 8), &listener, 1, 8, bitmap, CPoint(), false));
  const CPoint onButton(150, 3);
  click(onMenu);
  move(onButton);
  EXPECT_EQ(pixel(150, 3), kImage0);
  key(VirtualKey::Escape);
  move(onButton);
  EXPECT_EQ(pixel(150, 3), kImage1);
}

TEST_F(PresetList, ALostReleaseDoesNotSpoilTheNextClick) {
  press(onMenu);
  click(onEntry(8));
  EXPECT_EQ(listener.values, std::vector<float>{8.0F});
}

TEST_F(PresetList, WorksFromInsideAnotherContainer) {
  auto* inner = add(new VSTGUI::CViewContainer(CRect(50, 30, 250, 230)));
  auto* innerMenu = new CPresetMenu(CRect(100, 100, 110, 114), &listener, 1012);
  for (int i = 0; i < 32; ++i) innerMenu->addEntry("name");
  inner->addView(innerMenu);
  const CPoint onInnerMenu(155, 137);  // in the frame
  press(onInnerMenu);
  ASSERT_TRUE(innerMenu->isOpen());
  move(CPoint(156, 137), MouseButton::Left);
  release(CPoint(156, 137));
  EXPECT_TRUE(innerMenu->isOpen());
}

TEST_F(PresetList, WorksInAZoomedWindow) {
  frame->setZoom(2);
  press(CPoint(2 * onMenu.x, 2 * onMenu.y));
  EXPECT_EQ(frame->getModalView()->getViewSize(), layout.panel());
  // five pixels of the list: still a click
  move(CPoint(2 * onMenu.x - 10, 2 * onMenu.y), MouseButton::Left);
  release(CPoint(2 * onMenu.x - 10, 2 * onMenu.y));
  EXPECT_TRUE(isOpen());
  click(CPoint(2 * onEntry(22).x, 2 * onEntry(22).y));
  EXPECT_EQ(listener.values, std::vector<float>{22.0F});
}

TEST_F(PresetList, TheLastResultIsNegativeUntilSomethingIsChosen) {
  EXPECT_LT(menu->getLastResult(), 0);
  click(onMenu);
  click(onEntry(7));
  EXPECT_EQ(menu->getLastResult(), 7);
  click(onMenu);
  EXPECT_LT(menu->getLastResult(), 0);
  key(VirtualKey::Escape);
  EXPECT_LT(menu->getLastResult(), 0);
}

TEST_F(PresetList, ChoosingTheCurrentEntryTellsTheListenerToo) {
  click(onMenu);
  click(onEntry(5));
  EXPECT_EQ(listener.values, std::vector<float>{5.0F});
}

TEST_F(PresetList, OpensAgainAfterEachWayToCloseIt) {
  for (int i = 0; i < 3; ++i) {
    click(onMenu);
    EXPECT_TRUE(isOpen());
    click(outside);
    click(onMenu);
    EXPECT_TRUE(isOpen());
    key(VirtualKey::Escape);
    click(onMenu);
    EXPECT_TRUE(isOpen());
    click(onEntry(i));
    EXPECT_FALSE(isOpen());
  }
  EXPECT_EQ(listener.values.size(), 3U);
}

TEST_F(PresetList, TheFrameMayCloseWhileItIsOpen) {
  click(onMenu);
  const auto keptMenu = VSTGUI::shared(menu);
  const auto keptList = VSTGUI::shared(frame->getModalView());
  closeFrame();
  EXPECT_TRUE(listener.values.empty());
  EXPECT_LT(keptMenu->getLastResult(), 0);
  EXPECT_FALSE(keptMenu->isOpen());
  EXPECT_EQ(keptList->getNbReference(), 1);
}

TEST_F(PresetList, TheFrameMayCloseWhileTheOpeningPressIsHeld) {
  press(onMenu);
  move(onEntry(12), MouseButton::Left);
  closeFrame();
  EXPECT_TRUE(listener.values.empty());
}

TEST_F(PresetList, IsFreedWhenItCloses) {
  click(onMenu);
  const auto kept = VSTGUI::shared(frame->getModalView());
  click(onEntry(2));
  EXPECT_EQ(kept->getNbReference(), 1);
}

TEST_F(PresetList, ANameOfOneDashIsAnEntryLikeAnyOther) {
  menu->removeAllEntry();
  for (const char* name : {"one", "-", "three"}) menu->addEntry(name);
  EXPECT_FALSE(menu->getEntry(1)->isSeparator());
  EXPECT_EQ(menu->getEntry(1)->getTitle().getString(), "-");
  EXPECT_TRUE(menu->setCurrent(1));
}

TEST_F(PresetList, AChoiceOutOfRangeIsNone) {
  menu->choose(-1);
  menu->choose(32);
  EXPECT_TRUE(listener.values.empty());
  EXPECT_EQ(menu->getCurrentIndex(true), 5);
}

}  // namespace
