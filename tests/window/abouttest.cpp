// The about panel: opening, what it keeps from the rest of the window, closing.
#include "windowtest.h"

namespace {

class About : public WindowTest {
 protected:
  About() {
    host.setParameter(0, 1.0F);
    host.openEditor();
    closed = host.picture();
  }

  Picture open() {
    host.click(places::kAbout);
    host.moveAway();
    return host.picture();
  }

  WindowHost host;
  Picture closed;
};

}  // namespace

TEST_F(About, OpensOnAClickAndClosesOnAnother) {
  const Picture panel = open();
  EXPECT_FALSE(sameIn(places::kAboutPanel, closed, panel));
  EXPECT_TRUE(places::kAboutPanel.contains(differingArea(closed, panel)))
      << differingArea(closed, panel);
  host.click(places::kAboutPanel);
  host.moveAway();
  EXPECT_EQ(host.picture(), closed);
}

// It is no parameter of the host's.
TEST_F(About, TheHostHearsNothingOfIt) {
  host.forgetCalls();
  open();
  host.click(places::kAboutPanel);
  EXPECT_TRUE(host.gestureCalls().empty());
}

TEST_F(About, OpensAgain) {
  const Picture panel = open();
  for (int round = 0; round < 5; ++round) {
    host.click(places::kAboutPanel);
    EXPECT_EQ(open(), panel);
  }
}

TEST_F(About, ClosesOnAClickBesideThePanelWhichDoesNothingElse) {
  open();
  host.click(places::kPhaseSwitch);
  host.moveAway();
  EXPECT_EQ(host.parameter(4), 0.0F);
  EXPECT_EQ(host.picture(), closed);
}

TEST_F(About, EscapeClosesIt) {
  open();
  host.key(XKB_KEY_Escape);
  EXPECT_EQ(host.picture(), closed);
  const Picture panel = open();
  host.key(XKB_KEY_Return);
  host.key(XKB_KEY_space);
  EXPECT_EQ(host.picture(), panel);
}

TEST_F(About, TheHostsEscapeClosesItAndIsTakenOnlyThen) {
  constexpr VstIntPtr kEscape = 6, kReturn = 4;  // the interface's numbers of the keys
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kEscape), 0);
  const Picture panel = open();
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kReturn), 0);
  EXPECT_EQ(host.dispatch(effEditKeyUp, 0, kEscape), 0);
  EXPECT_EQ(host.picture(), panel);
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kEscape), 1);
  EXPECT_EQ(host.picture(), closed);
  EXPECT_EQ(open(), panel);  // and it opens again
}

TEST_F(About, ARightClickNeitherOpensNorCloses) {
  host.click(places::kAbout, 3);
  host.moveAway();
  EXPECT_EQ(host.picture(), closed);
  const Picture panel = open();
  host.click(places::kAboutPanel, 3);
  host.click(places::kProcessSwitch, 3);
  host.moveAway();
  EXPECT_EQ(host.picture(), panel);
}

TEST_F(About, TheMeterStandsStillMeanwhile) {
  const Picture panel = open();
  host.play(0.5F, 0.5F, 88200);  // two seconds of mid alone
  EXPECT_EQ(host.picture(), panel);
  host.click(places::kAboutPanel);
  host.moveAway();
  EXPECT_FALSE(sameIn(places::kMeter, closed, host.picture()));
}

TEST_F(About, TheRestOfTheWindowGetsNoMouse) {
  const Picture panel = open();
  for (const Area& place :
       {places::kSavePreset, places::kRockerLeft, places::kManual, places::kStoreA}) {
    host.hover(place);
    host.wheel(place, 1);
  }
  host.moveAway();
  EXPECT_EQ(host.picture(), panel);
  EXPECT_EQ(host.currentPreset(), 0);
}

TEST_F(About, ClosesWithTheWindowAndIsClosedAfterwards) {
  open();
  host.closeEditor();
  host.openEditor();
  EXPECT_EQ(host.picture(), closed);
  host.play(0.5F, 0.5F, 88200);
  EXPECT_FALSE(sameIn(places::kMeter, closed, host.picture()));  // and the meter follows
}
