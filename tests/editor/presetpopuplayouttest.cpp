// The list's columns in the window.
#include "editor/controls/linux/presetpopuplayout.h"

#include <gtest/gtest.h>

#include "vstgui.h"

namespace {

using VSTGUI::CPoint;
using VSTGUI::CRect;

const CRect kWindow(0, 0, 302, 251);

bool inside(const CRect& inner, const CRect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

bool apart(const CRect& a, const CRect& b) {
  return a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top;
}

TEST(PresetPopupLayout, ThirtyTwoEntriesAreTwoColumnsOfSixteen) {
  const PresetPopupLayout layout(kWindow, 32, 16);
  for (int i = 0; i < 32; ++i) {
    EXPECT_EQ(layout.entry(i).left, layout.entry(i / 16 * 16).left) << i;
    EXPECT_EQ(layout.entry(i).top, layout.entry(i % 16).top) << i;
    EXPECT_TRUE(i % 16 == 0 || layout.entry(i).top == layout.entry(i - 1).bottom) << i;
    EXPECT_EQ(layout.isColumnStart(i), i == 0 || i == 16);
  }
  EXPECT_GT(layout.entry(16).left, layout.entry(0).right);
}

TEST(PresetPopupLayout, EverythingLiesInsideTheWindow) {
  const PresetPopupLayout layout(kWindow, 32, 16);
  EXPECT_TRUE(inside(layout.panel(), kWindow));
  for (int i = 0; i < 32; ++i) {
    EXPECT_TRUE(inside(layout.entry(i), layout.panel())) << i;
    EXPECT_GE(layout.entry(i).getHeight(), 13);  // room for an 11 pixel font
    EXPECT_GE(layout.entry(i).getWidth(), 140);
    for (int other = 0; other < i; ++other)
      EXPECT_TRUE(apart(layout.entry(i), layout.entry(other)));
  }
}

TEST(PresetPopupLayout, ThePanelIsInTheMiddleOfTheWindow) {
  const CRect panel = PresetPopupLayout(kWindow, 32, 16).panel();
  EXPECT_NEAR(panel.left - 0, 302 - panel.right, 1);
  EXPECT_NEAR(panel.top - 0, 251 - panel.bottom, 1);
}

TEST(PresetPopupLayout, EveryPlaceIsAWholePixel) {
  const PresetPopupLayout layout(CRect(0, 0, 301, 249), 32, 16);
  for (int i = 0; i < 32; ++i) {
    CRect whole = layout.entry(i);
    whole.makeIntegral();
    EXPECT_EQ(layout.entry(i), whole) << i;
  }
}

TEST(PresetPopupLayout, EveryPointOfAnEntryFindsIt) {
  const PresetPopupLayout layout(kWindow, 32, 16);
  for (int i = 0; i < 32; ++i) {
    const CRect entry = layout.entry(i);
    EXPECT_EQ(layout.entryAt(entry.getCenter()), i);
    EXPECT_EQ(layout.entryAt(entry.getTopLeft()), i);
    EXPECT_EQ(layout.entryAt(CPoint(entry.right - 1, entry.bottom - 1)), i);
  }
}

TEST(PresetPopupLayout, BesideTheEntriesThereIsNone) {
  const PresetPopupLayout layout(kWindow, 30, 16);
  EXPECT_EQ(layout.entryAt(CPoint(0, 0)), -1);
  EXPECT_EQ(layout.entryAt(layout.panel().getTopLeft()), -1);
  EXPECT_EQ(layout.entryAt(CPoint(layout.entry(0).right + 0.5, layout.entry(0).top + 5)), -1);
  const CRect last = layout.entry(29);  // below it the column is empty
  EXPECT_EQ(layout.entryAt(CPoint(last.left + 5, last.bottom + 5)), -1);
}

TEST(PresetPopupLayout, FewEntriesMakeASmallPanel) {
  const PresetPopupLayout layout(kWindow, 3, 16);
  EXPECT_LT(layout.panel().getHeight(), 4 * layout.entry(0).getHeight());
  EXPECT_LT(layout.panel().getWidth(), 302 / 2 + 10);
}

TEST(PresetPopupLayout, ASmallWindowMakesSmallEntries) {
  const CRect window(0, 0, 200, 180);
  const PresetPopupLayout layout(window, 32, 16);
  EXPECT_TRUE(inside(layout.panel(), window));
  EXPECT_TRUE(inside(layout.entry(31), layout.panel()));
  EXPECT_GT(layout.entry(0).getHeight(), 8);
}

}  // namespace
