// Choosing presets from the list of the preset bar.
#include "windowtest.h"

namespace {

// Factory presets: the raw width of each.
constexpr float kWidths[] = {0.0F,  0.75F, 0.5F,  0.6F,  0.75F, 0.5F, 0.63F, 0.75F,
                             0.75F, 0.6F,  0.75F, 0.75F, 0.55F, 0.6F, 1.0F,  0.4F,
                             0.65F, 0.75F, 0.6F,  0.5F,  0.7F,  0.7F, 0.8F,  0.9F};

class PresetList : public WindowTest {
 protected:
  PresetList() {
    host.openEditor();
    closed = host.picture();
    host.forgetCalls();
  }

  void open() {
    host.click(places::kMenu);
    host.forgetCalls();
  }
  bool isOpen() {
    host.moveAway();
    return host.picture().at(places::kList.left + 1, places::kList.bottom - 20) !=
           closed.at(places::kList.left + 1, places::kList.bottom - 20);
  }
  void expectChosen(int preset) {
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(host.currentPreset(), preset);
    EXPECT_EQ(host.parameter(0), kWidths[preset]);
    EXPECT_GE(host.calls(audioMasterUpdateDisplay).size(), 1U);
    // An empty gesture makes hosts read the parameters again.
    EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);
    EXPECT_EQ(host.calls(audioMasterEndEdit).size(), 1U);
    EXPECT_TRUE(host.calls(audioMasterAutomate).empty());
  }
  void expectNothing() {
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(host.currentPreset(), 0);
    EXPECT_TRUE(host.gestureCalls().empty());
    EXPECT_TRUE(host.calls(audioMasterUpdateDisplay).empty());
    host.moveAway();
    EXPECT_EQ(host.picture(), closed);
  }

  WindowHost host;
  Picture closed;
};

}  // namespace

TEST_F(PresetList, TwoClicksChoose) {
  for (const int preset : {7, 16, 23, 15, 0}) {
    SCOPED_TRACE(preset);
    open();
    EXPECT_TRUE(isOpen());
    host.click(places::listEntry(preset));
    expectChosen(preset);
  }
}

TEST_F(PresetList, PressDragReleaseChooses) {
  host.hover(places::kMenu);
  host.press();
  host.forgetCalls();
  host.hover(places::listEntry(20));
  host.hover(places::listEntry(12));
  host.release();
  expectChosen(12);
}

TEST_F(PresetList, ADragThatEndsOutsideChoosesNothing) {
  host.hover(places::kMenu);
  host.press();
  host.hover(places::listEntry(20));
  host.moveTo(150, 4);
  host.release();
  expectNothing();
}

TEST_F(PresetList, ARightClickOpensTheListToo) {
  host.click(places::kMenu, 3);
  EXPECT_TRUE(isOpen());
  host.forgetCalls();
  host.click(places::listEntry(3));
  expectChosen(3);
}

TEST_F(PresetList, TheKeyboardChooses) {
  open();
  host.key(XKB_KEY_Down);
  host.key(XKB_KEY_Down);
  host.key(XKB_KEY_Right);
  host.key(XKB_KEY_Up);
  EXPECT_EQ(host.currentPreset(), 0);  // until it is confirmed
  host.key(XKB_KEY_Return);
  expectChosen(17);
}

TEST_F(PresetList, TheWheelMovesThroughIt) {
  open();
  host.wheel(places::listEntry(0), -3);
  host.wheel(1);
  host.key(XKB_KEY_Return);
  expectChosen(2);
}

TEST_F(PresetList, EscapeChoosesNothing) {
  open();
  host.hover(places::listEntry(9));
  host.key(XKB_KEY_Escape);
  expectNothing();
}

TEST_F(PresetList, AClickBesideItChoosesNothing) {
  open();
  host.click(150, 4);
  expectNothing();
}

TEST_F(PresetList, AClickInTheHostsOwnAreaClosesIt) {
  open();
  host.click(312, 272);
  expectNothing();
}

TEST_F(PresetList, TheEntryUnderThePointerAndTheCurrentOneAreMarked) {
  open();
  host.moveAway();
  const Picture rest = host.picture();
  host.hover(places::listEntry(5));
  const Picture hovered = host.picture();
  EXPECT_FALSE(sameIn(places::listEntry(5), rest, hovered));
  host.hover(places::listEntry(21));
  const Picture other = host.picture();
  EXPECT_TRUE(sameIn(places::listEntry(5), rest, other));
  EXPECT_FALSE(sameIn(places::listEntry(21), rest, other));
  host.click(places::listEntry(21));
  open();
  host.hover(places::listEntry(5));
  const Picture marked = host.picture();
  EXPECT_FALSE(sameIn(places::listEntry(21), rest, marked));
  EXPECT_FALSE(sameIn(places::listEntry(0), rest, marked));
}

TEST_F(PresetList, TheCurrentEntryAgainIsAppliedAgain) {
  host.click(places::kRockerRight);
  host.setParameter(0, 0.123F);  // belongs to preset 1 from now on
  open();
  host.click(places::listEntry(1));
  EXPECT_EQ(host.currentPreset(), 1);
  EXPECT_EQ(host.parameter(0), 0.123F);
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);
}

TEST_F(PresetList, EachPresetKeepsItsOwnValues) {
  host.setParameter(0, 0.8F);
  open();
  host.click(places::listEntry(4));
  EXPECT_EQ(host.parameter(0), 0.75F);
  host.setParameter(0, 0.2F);
  open();
  host.click(places::listEntry(0));
  EXPECT_EQ(host.parameter(0), 0.8F);
  open();
  host.click(places::listEntry(4));
  EXPECT_EQ(host.parameter(0), 0.2F);
}

TEST_F(PresetList, NothingBehindTheListActs) {
  open();
  host.hover(places::kPhaseSwitch);  // lies under the list
  host.wheel(1);
  host.key(XKB_KEY_Escape);
  expectNothing();
  EXPECT_EQ(host.parameter(4), 0.0F);
}

TEST_F(PresetList, TheMeterGoesOnBehindIt) {
  open();
  host.moveAway();
  const Picture before = host.picture();
  host.play(0.5F, 0.5F, 88200);
  EXPECT_EQ(host.picture(), before);
  host.key(XKB_KEY_Escape);
  host.moveAway();
  EXPECT_FALSE(sameIn(places::kMeter, closed, host.picture()));
}
