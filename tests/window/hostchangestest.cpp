// What the host changes while the window is open: parameters, names, chunks, sound.
#include <cmath>
#include <thread>

#include "windowtest.h"

namespace {

class HostChanges : public WindowTest {
 protected:
  HostChanges() { host.openEditor(); }

  Picture list(WindowHost& opened) {
    opened.click(places::kMenu);
    opened.moveAway();
    const Picture picture = opened.picture();
    opened.key(XKB_KEY_Escape);
    opened.moveAway();
    return picture;
  }

  WindowHost host;
};

}  // namespace

TEST_F(HostChanges, AParameterFromAnotherThreadIsShownByTheNextIdle) {
  const float values[] = {0.3F, 0.7F, 0.9F, 0.0F, 1.0F};
  std::thread([&] {
    for (VstInt32 index = 0; index < 5; ++index) host.setParameter(index, values[index]);
  }).join();
  const Picture shown = host.picture();
  WindowHost other(1);
  for (VstInt32 index = 0; index < 5; ++index) other.setParameter(index, values[index]);
  other.openEditor();  // shows them from the beginning
  EXPECT_EQ(other.picture(), shown);
}

TEST_F(HostChanges, ParametersFromTheHostMakeNoGesture) {
  host.forgetCalls();
  for (VstInt32 index = 0; index < 5; ++index) host.setParameter(index, 0.6F);
  host.settle();
  EXPECT_TRUE(host.gestureCalls().empty());
}

TEST_F(HostChanges, TheSwitchesAreOnFromOneHalf) {
  for (const auto& [index, place] : {std::pair{VstInt32{3}, places::kProcessSwitch},
                                     std::pair{VstInt32{4}, places::kPhaseSwitch}}) {
    SCOPED_TRACE(index);
    host.setParameter(index, 1.0F);
    const Picture on = host.picture();
    host.setParameter(index, 0.0F);
    const Picture off = host.picture();
    EXPECT_FALSE(sameIn(place, on, off));
    host.setParameter(index, 0.5F);
    EXPECT_EQ(host.picture(), on);
    host.setParameter(index, 0.49F);
    EXPECT_EQ(host.picture(), off);
  }
}

TEST_F(HostChanges, AForeignParameterNumberChangesNothing) {
  const Picture before = host.picture();
  for (const VstInt32 index : {-1, 5, 6, 1000}) host.setParameter(index, 0.77F);
  EXPECT_EQ(host.picture(), before);
}

TEST_F(HostChanges, AProgramNameReachesFieldAndList) {
  const Picture before = host.picture();
  host.setProgramName("from the host");
  const Picture after = host.picture();
  EXPECT_TRUE(places::kName.contains(differingArea(before, after))) << differingArea(before, after);
  EXPECT_FALSE(after == before);
  const Picture renamed = list(host);
  host.setProgramName("init");
  EXPECT_EQ(host.picture(), before);
  const Picture original = list(host);
  EXPECT_TRUE(places::listEntry(0).contains(differingArea(renamed, original)))
      << differingArea(renamed, original);
  EXPECT_FALSE(renamed == original);
}

// The field shows up to 24 characters, and 23 of them are kept.
TEST_F(HostChanges, AProgramNameOfMoreThanAFieldIsCut) {
  host.setProgramName("123456789012345678901234");
  const Picture cut = host.picture();
  host.setProgramName("12345678901234567890123456789");
  EXPECT_EQ(host.programName(), "12345678901234567890123");
  EXPECT_EQ(host.picture(), cut);
}

// The window of a second instance in the same state is the expected picture.
TEST_F(HostChanges, AChunkReachesControlsNameAndList) {
  WindowHost other(1);
  other.openEditor();
  other.click(places::kRockerRight);
  other.click(places::kRockerRight);
  other.setProgramName("renamed 2");
  other.setParameter(0, 0.35F);
  other.setParameter(4, 1.0F);
  other.moveAway();
  const Picture expected = other.picture();
  const Picture expectedList = list(other);
  ASSERT_FALSE(expected == host.picture());

  EXPECT_EQ(host.setChunk(other.chunk()), 0);
  EXPECT_EQ(host.currentPreset(), 2);
  EXPECT_EQ(host.picture(), expected);
  EXPECT_EQ(list(host), expectedList);
}

TEST_F(HostChanges, AChunkFromAnotherThreadDoesToo) {
  WindowHost other(1);
  other.openEditor();
  other.click(places::kRockerRight);
  other.setProgramName("renamed 1");
  other.moveAway();
  const Picture expected = other.picture();
  const std::vector<unsigned char> chunk = other.chunk();
  std::thread([&] { EXPECT_EQ(host.setChunk(chunk), 0); }).join();
  EXPECT_EQ(host.picture(), expected);
}

TEST_F(HostChanges, AChunkWithTheListOpenShowsItsNamesThere) {
  WindowHost other(1);
  other.setProgramName("another first");
  other.openEditor();
  const Picture expected = list(other);
  host.click(places::kMenu);
  host.moveAway();
  host.settle();
  host.setChunk(other.chunk());
  EXPECT_EQ(host.picture(), expected);
}

TEST_F(HostChanges, ARefusedChunkChangesNothing) {
  const Picture before = host.picture();
  std::vector<unsigned char> foreign = host.chunk();
  foreign[4] ^= 0x55U;  // the unique ID
  EXPECT_EQ(host.setChunk(foreign), -1);
  EXPECT_EQ(host.picture(), before);
}

// A square wave of mid, and a side of the width's making: none at width 0, twice the mid at width 1
// (gain 2 * 1 * 1).
TEST_F(HostChanges, SoundMovesTheMeterTowardMidAndTowardSide) {
  constexpr int kSteps = 182;  // of the meter, one pixel each; half of them are lit at rest
  constexpr int kTwoSeconds = 88200;
  const Picture rest = host.picture();
  host.setParameter(0, 0.0F);
  host.play(0.5F, 0.5F, kTwoSeconds);
  const Area mid = differingArea(rest, host.picture());
  constexpr int kLine = 2;  // pixels to each side of 1:1 that are never lit
  EXPECT_EQ(mid.left, places::kMeter.left + kSteps / 2 + kLine);
  EXPECT_EQ(mid.right, places::kMeter.right);
  EXPECT_TRUE(places::kMeter.contains(mid)) << mid;

  host.setParameter(0, 1.0F);
  host.settle();
  host.play(0.5F, 0.5F, kTwoSeconds);
  const float expected = std::log(4.0F * 0.5F) / std::log(16.0F) * kSteps;  // a quarter: 45.5
  const Picture wide = host.picture();
  host.dispatch(effMainsChanged, 0, 0);  // the meter rests again
  const Area side = differingArea(host.picture(), wide);
  EXPECT_NEAR(side.left, static_cast<float>(places::kMeter.left) + expected, 1);
  EXPECT_EQ(side.right, places::kMeter.left + kSteps / 2 - kLine);
  EXPECT_TRUE(places::kMeter.contains(side)) << side;
}
