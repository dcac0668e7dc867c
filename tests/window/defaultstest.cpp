// The default preset and the default bank: a double click stores, one with Control resets, nothing
// else does either.
#include "windowtest.h"

namespace {

class Defaults : public WindowTest {
 protected:
  Defaults() {
    host.setParameter(0, 0.87F);
    host.setProgramName("my default");
    host.openEditor();
  }

  void controlDoubleClick(const Area& button) {
    host.keyDown(XKB_KEY_Control_L);
    host.doubleClick(button);
    host.keyUp(XKB_KEY_Control_L);
  }

  // The double click's time, so that two clicks are two.
  void wait() { host.idleFor(450); }

  WindowHost host;
};

}  // namespace

TEST_F(Defaults, ADoubleClickMakesThePresetTheFirstOfNewInstances) {
  host.doubleClick(places::kDefaultPreset);
  WindowHost fresh(1);
  EXPECT_EQ(fresh.programName(), "my default");
  EXPECT_EQ(fresh.parameter(0), 0.87F);
  EXPECT_EQ(fresh.programName(1), "mix 1");
}

TEST_F(Defaults, ADoubleClickWithControlGoesBackToTheFactorys) {
  host.doubleClick(places::kDefaultPreset);
  host.doubleClick(places::kDefaultBank);
  controlDoubleClick(places::kDefaultPreset);
  controlDoubleClick(places::kDefaultBank);
  WindowHost fresh(1);
  EXPECT_EQ(fresh.programName(), "init");
  EXPECT_EQ(fresh.parameter(0), 0.0F);
}

TEST_F(Defaults, TheBankHasAllPresetsAndStartsAtTheFirst) {
  host.click(places::kRockerRight);
  host.setProgramName("second of mine");
  host.setParameter(0, 0.21F);
  host.doubleClick(places::kDefaultBank);
  WindowHost fresh(1);
  EXPECT_EQ(fresh.currentPreset(), 0);
  EXPECT_EQ(fresh.programName(0), "my default");
  EXPECT_EQ(fresh.programName(1), "second of mine");
  fresh.openEditor();
  fresh.click(places::kRockerRight);
  EXPECT_EQ(fresh.parameter(0), 0.21F);
}

TEST_F(Defaults, ThePresetLiesOverTheBank) {
  host.doubleClick(places::kDefaultPreset);
  host.setProgramName("of the bank");
  host.doubleClick(places::kDefaultBank);
  EXPECT_EQ(WindowHost(1).programName(0), "my default");
  controlDoubleClick(places::kDefaultPreset);
  EXPECT_EQ(WindowHost(1).programName(0), "of the bank");
}

TEST_F(Defaults, TheRunningInstanceStaysAsItIs) {
  host.moveAway();
  const Picture before = host.picture();
  const std::vector<unsigned char> bank = host.chunk();
  host.doubleClick(places::kDefaultPreset);
  controlDoubleClick(places::kDefaultPreset);
  host.moveAway();
  EXPECT_EQ(host.chunk(), bank);
  EXPECT_EQ(host.picture(), before);
}

TEST_F(Defaults, SingleClicksDoNothing) {
  for (const Area& button : {places::kDefaultPreset, places::kDefaultBank}) {
    for (int click = 0; click < 3; ++click) {
      host.click(button);
      wait();
    }
    host.keyDown(XKB_KEY_Control_L);
    host.click(button);
    host.keyUp(XKB_KEY_Control_L);
    wait();
  }
  EXPECT_EQ(preferences(), "");
}

TEST_F(Defaults, ASingleControlClickKeepsWhatIsStored) {
  host.doubleClick(places::kDefaultPreset);
  host.doubleClick(places::kDefaultBank);
  wait();
  const std::string stored = preferences();
  ASSERT_NE(stored, "");
  for (const Area& button : {places::kDefaultPreset, places::kDefaultBank}) {
    host.keyDown(XKB_KEY_Control_L);
    host.click(button);
    host.keyUp(XKB_KEY_Control_L);
    wait();
  }
  EXPECT_EQ(preferences(), stored);
}

TEST_F(Defaults, TwoClicksOnTwoButtonsAreNoDoubleClick) {
  host.click(places::kDefaultPreset);
  host.click(places::kDefaultBank);
  EXPECT_EQ(preferences(), "");
}

TEST_F(Defaults, ARightClickBetweenMakesTwoClicks) {
  host.click(places::kDefaultPreset);
  host.click(places::kDefaultPreset, 3);
  host.click(places::kDefaultPreset);
  EXPECT_EQ(preferences(), "");
  host.click(places::kDefaultPreset, 3);
  host.click(places::kDefaultPreset, 3);
  EXPECT_EQ(preferences(), "");
}

// A double click that a lone click went before, with the pointer at rest: a new pair
// counts as such.
TEST_F(Defaults, ADoubleClickAfterALoneClickCounts) {
  host.click(places::kDefaultPreset);
  wait();
  host.press();
  host.release();
  host.press();
  host.release();
  EXPECT_NE(preferences(), "");
}

TEST_F(Defaults, NoKeyTriggersThem) {
  const std::uint32_t keys[] = {XKB_KEY_Return, XKB_KEY_KP_Enter, XKB_KEY_space,
                                XKB_KEY_Up,     XKB_KEY_Down,     XKB_KEY_Left,
                                XKB_KEY_Right,  XKB_KEY_Tab,      XKB_KEY_Escape};
  for (const Area& button : {places::kDefaultPreset, places::kDefaultBank}) {
    host.click(button);  // the pointer is on it
    wait();
    for (const std::uint32_t key : keys) {
      host.key(key);
      host.key(key);
    }
    host.keyDown(XKB_KEY_Control_L);
    for (const std::uint32_t key : keys) host.key(key);
    host.keyUp(XKB_KEY_Control_L);
  }
  EXPECT_EQ(preferences(), "");
}

TEST_F(Defaults, NoKeyOfTheHostsTriggersThem) {
  host.click(places::kDefaultPreset);
  wait();
  for (int virt = 1; virt < 50; ++virt) {
    host.dispatch(effEditKeyDown, 0, virt);
    host.dispatch(effEditKeyUp, 0, virt);
  }
  EXPECT_EQ(preferences(), "");
}
