// The list of presets and the name's entry at several scales.
#include "scaledwindow.h"

namespace {

class ScaledBar : public ScaledWindow {};

}  // namespace

TEST_P(ScaledBar, TheListTakesTheEntryUnderThePointer) {
  for (const int preset : {21, 7, 31, 0}) {
    host.click(places::kMenu);
    host.click(places::listEntry(preset));
    host.settle();
    EXPECT_EQ(host.currentPreset(), preset);
  }
}

TEST_P(ScaledBar, TheListIsWhereItIsAtAScaleOfOne) {
  const Picture before = host.picture();
  host.click(places::kMenu);
  host.moveAway();
  expectChangedIn(places::kList, before, host.picture());
}

// At its right end, where no text is, from the row above to the row below.
TEST_P(ScaledBar, ARowUnderThePointerHasNoPaleEdges) {
  constexpr std::uint32_t kPanel = 0xBDCFDA, kHighlight = 0x2D2D78;
  host.click(places::kMenu);
  for (const int entry : {5, 20}) {
    host.hover(places::listEntry(entry));
    const Picture picture = host.picture();
    const Area row = host.scaled(places::listEntry(entry));
    int lit = 0;
    for (int y = row.top - 5; y < row.bottom + 5; ++y) {
      const std::uint32_t pixel = picture.at(row.right - 5, y);
      EXPECT_TRUE(pixel == kPanel || pixel == kHighlight) << y << ": " << std::hex << pixel;
      lit += pixel == kHighlight ? 1 : 0;
    }
    EXPECT_NEAR(lit, 14 * scale, 1);
  }
}

TEST_P(ScaledBar, TheCaretHasNoPaleEdges) {
  host.setProgramName("");
  host.click(places::kName);
  host.settle();
  host.moveAway();
  const Area field = host.scaled(places::kName);
  const int y = field.centreY();
  const auto dark = [](std::uint32_t pixel) { return (pixel & 0xFFU) < 0x80; };
  Picture picture;
  ASSERT_TRUE(host.idleUntil([&] {
    picture = host.pictureNow();
    for (int x = field.left + 5; x < field.right - 5; ++x) {
      if (dark(picture.at(x, y))) return true;
    }
    return false;
  }));
  int wide = 0;
  for (int x = field.left + 5; x < field.right - 5; ++x) {
    const std::uint32_t pixel = picture.at(x, y);
    if (!dark(pixel)) {
      EXPECT_LT(channelDifference(pixel, picture.at(field.left + 5, y)), 3) << x;
      continue;
    }
    EXPECT_EQ(pixel, 0U) << x;
    ++wide;
  }
  EXPECT_NEAR(wide, scale, 0.5);
}

TEST_P(ScaledBar, PressDragReleaseChoosesFromTheList) {
  host.hover(places::kMenu);
  host.press();
  host.hover(places::listEntry(20));
  host.hover(places::listEntry(12));
  host.release();
  host.settle();
  EXPECT_EQ(host.currentPreset(), 12);
}

// Five pixels at a scale of 1 are a drag, and a hand's tremble is none at any.
TEST_P(ScaledBar, AClickThatTremblesLeavesTheListOpen) {
  host.hover(places::kMenu);
  host.press();
  host.moveTo(places::kMenu.centreX() + 3, places::kMenu.centreY() + 3);
  host.release();
  host.click(places::listEntry(5));
  host.settle();
  EXPECT_EQ(host.currentPreset(), 5);
}

TEST_P(ScaledBar, TheWheelStepsThroughTheList) {
  host.click(places::kMenu);
  host.hover(places::listEntry(4));
  host.wheel(-3);
  host.key(XKB_KEY_Return);
  host.settle();
  EXPECT_EQ(host.currentPreset(), 7);
}

TEST_P(ScaledBar, APressOutsideTheWindowClosesTheList) {
  const Picture closed = host.picture();
  host.click(places::kMenu);
  host.moveTo(310, 270);  // in the host's own area
  host.press();
  host.release();
  host.moveAway();
  EXPECT_TRUE(same(host.picture(), closed));
  EXPECT_EQ(host.currentPreset(), 0);
}

TEST_P(ScaledBar, TheNameIsTypedInItsField) {
  const Picture before = host.picture();
  host.click(places::kName);
  host.settle();
  host.type("Wide piano");
  host.key(XKB_KEY_Return);
  host.moveAway();
  EXPECT_EQ(host.programName(), "Wide piano");
  expectChangedIn(places::kName, before, host.picture());
}

// The field lies over the label: the letters stay where they are.
TEST_P(ScaledBar, TheNameDoesNotJumpWhenItsFieldOpens) {
  host.setProgramName("xxxxxxxx");
  host.settle();
  host.moveAway();
  const Picture before = host.picture();
  host.click(places::kName);
  host.settle();
  host.key(XKB_KEY_End);  // nothing is selected any more
  host.moveAway();
  const Area field = host.scaled(places::kName);
  const Picture after = host.picture();
  const int letters = static_cast<int>(35 * scale);  // a letter's row to each side of the middle
  const Area text{field.centreX() - letters, field.top + 1, field.centreX() + letters / 2,
                  field.bottom - 1};
  EXPECT_LT(differingShare(before, after, text, 64), 0.02);
}

TEST_P(ScaledBar, AClickInTheNameSetsTheCaretThere) {
  host.setProgramName("llllllllll");
  host.click(places::kName);
  host.settle();
  host.click(places::kName.left + 2, places::kName.centreY());
  host.type("W");
  host.key(XKB_KEY_Return);
  host.settle();
  EXPECT_EQ(host.programName(), "Wllllllllll");
}

TEST_P(ScaledBar, ADoubleClickInTheNameSelectsAllOfIt) {
  host.click(places::kName);
  host.settle();
  host.click(places::kName.left + 2, places::kName.centreY());
  host.idleFor(400);  // longer than a double click
  host.doubleClick(places::kName);
  host.type("all");
  host.key(XKB_KEY_Return);
  host.settle();
  EXPECT_EQ(host.programName(), "all");
}

TEST_P(ScaledBar, AClickElsewhereConfirmsTheName) {
  host.click(places::kName);
  host.settle();
  host.type("else");
  host.click(places::kName.left - 4, places::kName.centreY());
  host.settle();
  EXPECT_EQ(host.programName(), "else");
}

INSTANTIATE_TEST_SUITE_P(Window, ScaledBar, kScales, scaleName);
