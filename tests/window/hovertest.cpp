// What buttons show under the pointer and while they are pressed.
#include "windowtest.h"

namespace {

struct Button {
  const char* name;
  Area place;
};

std::ostream& operator<<(std::ostream& out, const Button& button) {
  return out << button.name;
}

constexpr Button kButtons[] = {
    {"SavePreset", places::kSavePreset},
    {"DefaultPreset", places::kDefaultPreset},
    {"LoadPreset", places::kLoadPreset},
    {"SaveBank", places::kSaveBank},
    {"DefaultBank", places::kDefaultBank},
    {"LoadBank", places::kLoadBank},
    {"StoreA", places::kStoreA},
    {"RecallA", places::kRecallA},
    {"StoreB", places::kStoreB},
    {"RecallB", places::kRecallB},
    {"Manual", places::kManual},
    {"RockerLeft", places::kRockerLeft},
    {"RockerRight", places::kRockerRight},
    {"List", places::kMenu},
    {"Process", places::kProcessSwitch},
    {"Phase", places::kPhaseSwitch},
    {"Name", places::kName},
};
constexpr Area kRocker{places::kRockerLeft.left, places::kRockerLeft.top,
                       places::kRockerRight.right, places::kRockerRight.bottom};

class Hover : public WindowTest, public ::testing::WithParamInterface<Button> {
 protected:
  Hover() { host.openEditor(); }

  // Each half of the rocker changes the whole of it.
  Area drawn() const { return kRocker.contains(GetParam().place) ? kRocker : GetParam().place; }

  WindowHost host;
};

std::string nameOf(const ::testing::TestParamInfo<Button>& info) {
  return info.param.name;
}

}  // namespace

TEST_P(Hover, TheButtonLightsUpAndNothingElseDoes) {
  const Picture rest = host.picture();
  const Picture hovered = host.lit(GetParam().place);
  EXPECT_FALSE(sameIn(drawn(), rest, hovered));
  EXPECT_TRUE(drawn().contains(differingArea(rest, hovered))) << differingArea(rest, hovered);
  host.moveAway();
  EXPECT_EQ(host.picture(), rest);
}

INSTANTIATE_TEST_SUITE_P(Window, Hover, ::testing::ValuesIn(kButtons), nameOf);

namespace {

class HoverStates : public WindowTest {
 protected:
  HoverStates() { host.openEditor(); }

  WindowHost host;
};

}  // namespace

// A switch that looked alike in both positions under the pointer would hide what a click has done.
TEST_F(HoverStates, ASwitchShowsItsPosition) {
  constexpr Area kSwitches[] = {places::kProcessSwitch, places::kPhaseSwitch};
  for (int index = 0; index < 2; ++index) {
    const Area& place = kSwitches[index];
    SCOPED_TRACE(index);
    Picture rest[2], lit[2];
    for (int on = 0; on < 2; ++on) {
      host.setParameter(3 + index, static_cast<float>(on));
      host.moveAway();
      rest[on] = host.picture();
      lit[on] = host.lit(place);
      EXPECT_FALSE(sameIn(place, rest[on], lit[on]));
    }
    EXPECT_FALSE(sameIn(place, lit[0], lit[1]));
    host.click(place);
    EXPECT_TRUE(sameIn(place, host.picture(), lit[0]));
  }
}

// The open entry has the label's ground at rest, whose colours its selection was chosen for.
TEST_F(HoverStates, TheNameThatIsBeingEditedIsNotLit) {
  const auto ground = [this] {
    return host.picture().at(places::kName.left + 4, places::kName.centreY());
  };
  host.moveAway();
  const std::uint32_t rest = ground();
  host.click(places::kName);
  EXPECT_EQ(ground(), rest);
}

namespace {

class Pressed : public WindowTest {
 protected:
  Pressed() { host.openEditor(); }

  WindowHost host;
};

}  // namespace

TEST_F(Pressed, AMemoryButtonShowsThePressUntilTheRelease) {
  for (const Area& button : {places::kStoreA, places::kStoreB}) {
    const Picture hovered = host.lit(button);
    host.press();
    const Picture pressed = host.picture();
    EXPECT_FALSE(sameIn(button, hovered, pressed));
    EXPECT_TRUE(button.contains(differingArea(hovered, pressed)));
    host.release();
    EXPECT_EQ(host.picture(), hovered);
  }
}

// Over the list's last preset nothing but the rocker changes when it is pressed on the right; so
// too at the first.
TEST_F(Pressed, TheRockerShowsItsPressedSideEvenWhenThePointerLeavesIt) {
  const Picture hovered = host.lit(places::kRockerLeft);
  host.press();
  const Picture pressed = host.picture();
  EXPECT_FALSE(sameIn(kRocker, hovered, pressed));
  host.hover(places::kRockerRight);
  EXPECT_EQ(host.picture(), pressed);
  host.moveTo(150, 120);
  EXPECT_EQ(host.picture(), pressed);
  host.release();
  host.moveAway();
  EXPECT_FALSE(sameIn(kRocker, pressed, host.picture()));
}

TEST_F(Pressed, TheFirstClickOfADefaultButtonShowsNoPress) {
  const Picture hovered = host.lit(places::kDefaultPreset);
  host.press();
  EXPECT_EQ(host.picture(), hovered);
  host.release();
  host.press();  // the second one
  EXPECT_FALSE(host.picture() == hovered);
  host.release();
  EXPECT_EQ(host.picture(), hovered);
}
