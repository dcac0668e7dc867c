// Stepping through the presets with the rocker.
#include "windowtest.h"

namespace {

class Rocker : public WindowTest {
 protected:
  Rocker() { host.openEditor(); }

  WindowHost host;
};

}  // namespace

TEST_F(Rocker, RightIsTheNextPresetAndLeftTheOneBefore) {
  const Picture first = host.picture();
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
  EXPECT_EQ(host.programName(), "mix 1");
  EXPECT_EQ(host.parameter(0), 0.75F);
  EXPECT_EQ(host.parameter(1), 0.25F);
  host.moveAway();
  EXPECT_FALSE(sameIn(places::kName, first, host.picture()));
  host.click(places::kRockerLeft);
  EXPECT_EQ(host.currentPreset(), 0);
  host.moveAway();
  EXPECT_EQ(host.picture(), first);
}

TEST_F(Rocker, TheHostReadsTheParametersAgain) {
  host.forgetCalls();
  host.click(places::kRockerRight);
  EXPECT_GE(host.calls(audioMasterUpdateDisplay).size(), 1U);
  ASSERT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);
  ASSERT_EQ(host.calls(audioMasterEndEdit).size(), 1U);
  EXPECT_TRUE(host.calls(audioMasterAutomate).empty());
}

TEST_F(Rocker, StopsAtTheFirst) {
  const Picture first = host.picture();
  host.forgetCalls();
  host.click(places::kRockerLeft);
  host.moveAway();
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_EQ(host.picture(), first);
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);  // applied once more
}

TEST_F(Rocker, StopsAtTheLast) {
  for (int step = 0; step < 40; ++step) host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 31);
  const Picture last = host.picture();
  host.forgetCalls();
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 31);
  EXPECT_EQ(host.picture(), last);
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);  // applied once more
  host.click(places::kRockerLeft);
  EXPECT_EQ(host.currentPreset(), 30);
}

TEST_F(Rocker, APressThatIsHeldStepsOnce) {
  host.hover(places::kRockerRight);
  host.press();
  host.idleFor(700);
  host.moveTo(150, 100);
  host.release();
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(Rocker, TheWheelSteps) {
  host.wheel(places::kRockerRight, -3);  // down: further along the list
  EXPECT_EQ(host.currentPreset(), 3);
  host.wheel(places::kRockerLeft, 1);
  EXPECT_EQ(host.currentPreset(), 2);
}

TEST_F(Rocker, OtherButtonsAndKeysDoNothing) {
  host.click(places::kRockerRight, 3);
  host.click(places::kRockerRight, 2);
  EXPECT_EQ(host.currentPreset(), 0);
  host.click(places::kRockerRight);
  for (const std::uint32_t key :
       {XKB_KEY_Up, XKB_KEY_Down, XKB_KEY_Left, XKB_KEY_Right, XKB_KEY_Return})
    host.key(key);
  host.moveAway();
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(Rocker, TheNextListShowsTheStep) {
  host.click(places::kRockerRight);
  host.click(places::kMenu);
  host.key(XKB_KEY_Down);
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.currentPreset(), 2);
}
