// The list of presets: keys, wheel and pictures.
#include "editor/controls/presetpopup.h"

#include <string>

#include "presetlisttest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class PresetPopup : public PresetList {
 protected:
  Picture shot() { return Picture(frame, frame->getViewSize()); }

  // Pixels of an area that are not the list's ground.
  int inkIn(const Picture& picture, const CRect& area) const {
    int count = 0;
    for (double y = area.top; y < area.bottom; ++y) {
      for (double x = area.left; x < area.right; ++x) count += picture.at(x, y) == kGround ? 0 : 1;
    }
    return count;
  }
};

TEST_F(PresetPopup, BeginsAtTheCurrentEntry) {
  click(onMenu);
  EXPECT_EQ(highlighted(), std::vector<int>{5});
}

TEST_F(PresetPopup, ReturnAndEnterChooseTheHighlightedEntry) {
  click(onMenu);
  key(VirtualKey::Down);
  key(VirtualKey::Return);
  EXPECT_FALSE(isOpen());
  click(onMenu);
  key(VirtualKey::Down);
  key(VirtualKey::Enter);
  EXPECT_EQ(listener.values, (std::vector<float>{6.0F, 7.0F}));
}

TEST_F(PresetPopup, EscapeLeavesEverythingAsItWas) {
  click(onMenu);
  key(VirtualKey::Down);
  EXPECT_TRUE(key(VirtualKey::Escape));
  EXPECT_FALSE(isOpen());
  expectNoChange();
}

TEST_F(PresetPopup, UpAndDownGoThroughBothColumnsAndStopAtTheEnds) {
  click(onMenu);
  for (int i = 6; i < 32; ++i) {
    key(VirtualKey::Down);
    EXPECT_EQ(highlighted(), std::vector<int>{i});
  }
  key(VirtualKey::Down);
  EXPECT_EQ(highlighted(), std::vector<int>{31});
  for (int i = 30; i >= 0; --i) {
    key(VirtualKey::Up);
    EXPECT_EQ(highlighted(), std::vector<int>{i});
  }
  key(VirtualKey::Up);
  EXPECT_EQ(highlighted(), std::vector<int>{0});
}

TEST_F(PresetPopup, LeftAndRightChangeTheColumnAndStopAtTheEnds) {
  click(onMenu);
  key(VirtualKey::Left);
  EXPECT_EQ(highlighted(), std::vector<int>{5});
  key(VirtualKey::Right);
  EXPECT_EQ(highlighted(), std::vector<int>{21});
  key(VirtualKey::Right);
  EXPECT_EQ(highlighted(), std::vector<int>{21});
  key(VirtualKey::Left);
  EXPECT_EQ(highlighted(), std::vector<int>{5});
}

TEST_F(PresetPopup, HomeAndEndGoToTheFirstAndTheLastEntry) {
  click(onMenu);
  key(VirtualKey::End);
  EXPECT_EQ(highlighted(), std::vector<int>{31});
  key(VirtualKey::Home);
  EXPECT_EQ(highlighted(), std::vector<int>{0});
}

TEST_F(PresetPopup, AllOtherKeysStopAtTheList) {
  click(onMenu);
  for (const VirtualKey virt :
       {VirtualKey::Tab, VirtualKey::Space, VirtualKey::F1, VirtualKey::PageDown}) {
    EXPECT_TRUE(key(virt));
  }
  EXPECT_TRUE(key(VirtualKey::Down, {ModifierKey::Control}));
  EXPECT_TRUE(key(VirtualKey::Return, {ModifierKey::Shift}));
  EXPECT_EQ(highlighted(), std::vector<int>{5});
  EXPECT_TRUE(isOpen());
}

TEST_F(PresetPopup, TheFocusedControlBehindItGetsNoKeys) {
  Listener other;
  auto* slider =
      add(new VSTGUI::CHorizontalSlider(CRect(0, 0, 100, 5), &other, 1, 0, 90, nullptr, nullptr));
  frame->setFocusView(slider);
  click(onMenu);
  for (const VirtualKey virt :
       {VirtualKey::Up, VirtualKey::Down, VirtualKey::Left, VirtualKey::Right})
    key(virt);
  EXPECT_TRUE(other.values.empty());
}

TEST_F(PresetPopup, TheMenuHasTheKeyboardAfterwards) {
  for (const VirtualKey end : {VirtualKey::Escape, VirtualKey::Return}) {
    click(onMenu);
    EXPECT_NE(frame->getFocusView(), menu);
    key(end);
    EXPECT_EQ(frame->getFocusView(), menu);
  }
}

TEST_F(PresetPopup, ReturnOpensItFromTheFocusedMenu) {
  for (const VirtualKey virt : {VirtualKey::Return, VirtualKey::Enter}) {
    frame->setFocusView(menu);
    EXPECT_TRUE(key(virt));
    EXPECT_TRUE(isOpen());
    release(onEntry(3));  // of some press from before
    EXPECT_TRUE(isOpen());
    key(VirtualKey::Escape);
  }
  expectNoChange();
}

TEST_F(PresetPopup, UpAndDownStepWithoutTheListFromTheEntryShown) {
  menu->setCurrent(10);  // as whoever steps elsewhere does
  frame->setFocusView(menu);
  EXPECT_TRUE(key(VirtualKey::Down));
  EXPECT_TRUE(key(VirtualKey::Up));
  EXPECT_EQ(listener.values, (std::vector<float>{11.0F, 10.0F}));
  EXPECT_FALSE(isOpen());
  EXPECT_FALSE(key(VirtualKey::Down, {ModifierKey::Shift}));
  EXPECT_FALSE(key(VirtualKey::Left));
  menu->setValue(31);
  key(VirtualKey::Down);
  menu->setValue(0);
  key(VirtualKey::Up);
  EXPECT_EQ(listener.values.size(), 2U);
}

TEST_F(PresetPopup, TheWheelMovesTheHighlight) {
  click(onMenu);
  EXPECT_TRUE(wheel(onEntry(20), -1));
  EXPECT_EQ(highlighted(), std::vector<int>{6});
  wheel(onEntry(20), 1);
  wheel(onEntry(20), 1);
  EXPECT_EQ(highlighted(), std::vector<int>{4});
  wheel(onEntry(20), 100);
  EXPECT_EQ(highlighted(), std::vector<int>{0});
  key(VirtualKey::Return);
  EXPECT_EQ(listener.values, std::vector<float>{0.0F});
}

TEST_F(PresetPopup, TheHighlightFollowsThePointer) {
  click(onMenu);
  for (const int index : {0, 15, 16, 31}) {
    move(onEntry(index));
    EXPECT_EQ(highlighted(), std::vector<int>{index});
  }
  move(outside);
  EXPECT_TRUE(highlighted().empty());
}

TEST_F(PresetPopup, WithoutAHighlightTheKeysBeginAtTheCurrentEntry) {
  click(onMenu);
  move(outside);
  key(VirtualKey::Down);
  EXPECT_EQ(highlighted(), std::vector<int>{6});
  move(outside);
  key(VirtualKey::Right);
  EXPECT_EQ(highlighted(), std::vector<int>{21});
  move(outside);
  key(VirtualKey::Return);
  EXPECT_FALSE(isOpen());
  expectNoChange();
}

TEST_F(PresetPopup, OnlyTheCurrentEntryIsMarked) {
  menu->setCurrent(18);
  click(onMenu);
  move(outside);
  const Picture picture = shot();
  for (int i = 0; i < 32; ++i) {
    CRect markRoom = layout.entry(i);
    markRoom.right = markRoom.left + 11;  // left of the names
    EXPECT_EQ(inkIn(picture, markRoom) >= 12, i == 18) << i;
    EXPECT_EQ(inkIn(picture, markRoom) == 0, i != 18) << i;
  }
}

TEST_F(PresetPopup, TheMarkStaysVisibleUnderTheHighlight) {
  click(onMenu);
  const Picture marked = shot();  // entry 5, highlighted and marked
  key(VirtualKey::Down);
  menu->setCurrent(7);
  key(VirtualKey::Up);
  EXPECT_EQ(highlighted(), std::vector<int>{5});
  const Picture plain = shot();
  int different = 0;
  const CRect entry = layout.entry(5);
  for (double y = entry.top; y < entry.bottom; ++y) {
    for (double x = entry.left; x < entry.left + 11; ++x)
      different += marked.at(x, y) == plain.at(x, y) ? 0 : 1;
  }
  EXPECT_GE(different, 12);
}

TEST_F(PresetPopup, ShowsTheNameOfEachEntryInItsPlaceAndNowhereElse) {
  click(onMenu);
  move(outside);
  const Picture before = shot();
  for (const int index : {0, 15, 16, 31}) {
    menu->getEntry(index)->setTitle("");
    const Picture after = shot();
    EXPECT_EQ(inkIn(after, layout.entry(index)), 0);
    int elsewhere = 0;
    for (int y = 0; y < 251; ++y) {
      for (int x = 0; x < 302; ++x) {
        const bool same = before.at(x, y) == after.at(x, y);
        elsewhere += same || layout.entry(index).pointInside(CPoint(x, y)) ? 0 : 1;
      }
    }
    EXPECT_EQ(elsewhere, 0);
    menu->getEntry(index)->setTitle(("Preset " + std::to_string(index)).c_str());
  }
}

TEST_F(PresetPopup, LongNamesKeepTheirDistanceFromTheRightEdge) {
  for (int i = 0; i < 32; ++i) menu->getEntry(i)->setTitle(std::string(24, 'W').c_str());
  click(onMenu);
  move(outside);
  const Picture picture = shot();
  for (int i = 0; i < 32; ++i) {
    CRect edge = layout.entry(i);
    edge.left = edge.right - 2;
    EXPECT_EQ(inkIn(picture, edge), 0) << i;
    CRect middle = layout.entry(i);
    middle.left = middle.right - 40;
    EXPECT_GT(inkIn(picture, middle), 20) << i;  // the room is used
  }
}

TEST_F(PresetPopup, RedrawingAPartDrawsTheSameAsTheWhole) {
  click(onMenu);
  const Picture whole = shot();
  const CRect part(20, 60, 280, 75);
  const Picture partly(frame, part);
  for (double y = part.top; y < part.bottom; ++y) {
    for (double x = part.left; x < part.right; ++x)
      ASSERT_EQ(partly.at(x, y), whole.at(x, y)) << x << "," << y;
  }
}

TEST_F(PresetPopup, IsGoneFromTheWindowAfterwards) {
  const Picture before = shot();
  click(onMenu);
  EXPECT_FALSE(shot() == before);
  key(VirtualKey::Escape);
  EXPECT_TRUE(shot() == before);
}

}  // namespace
