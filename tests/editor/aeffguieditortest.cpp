// The editor base without a window: its clock, its pacing while a control keeps the mouse, and what
// it returns closed.
#include "editor/base/aeffguieditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "editor/base/pacing.h"
#include "effect/trelvan.h"
#include "tests/support/recordinghost.h"

namespace {

std::uint32_t ticks = 0;    // 1/60 s
std::vector<double> waits;  // s
// ms of three ticks, the smallest number of ticks that is a whole number of ms
constexpr int kPerTick = 50;

}  // namespace

// In place of the system's clock, which the linker leaves out for these.
std::uint32_t platformTickCount() {
  return ticks;
}
void platformRunEventLoop(double seconds) {
  waits.push_back(seconds);
}

namespace {

using testing::ElementsAre;

class CountingEditor : public AEffGUIEditor {
 public:
  using AEffGUIEditor::AEffGUIEditor;
  void idle() override { ++passes; }

  int passes = 0;

 protected:
  ERect windowSize() override { return {}; }
};

class EditorBase : public testing::Test {
 protected:
  EditorBase() {
    waits.clear();
    effect.setEditor(editor);
    host.calls.clear();
  }

  static std::uint32_t startClock() { return ticks = 6000; }  // 100 s
  static void pass(int milliseconds) {
    ticks += static_cast<std::uint32_t>(milliseconds / kPerTick * 3);
  }
  long hostIdles() const {
    return std::count_if(host.calls.begin(), host.calls.end(), [](const RecordingHost::Call& call) {
      return call.opcode == audioMasterIdle;
    });
  }

  const std::uint32_t start = startClock();
  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  CountingEditor* editor = new CountingEditor(&effect);  // the effect's
};

// 4,294,967 ticks are the last whose thousandfold fits into 32 bits; the next one's is
// 704 above 2^32.
TEST(EditorClock, WrapsAfterSome19Point9HoursOfTicks) {
  ticks = 60;
  EXPECT_EQ(AEffGUIEditor::getTicks(), 1000U);
  ticks = 4294967;
  EXPECT_EQ(AEffGUIEditor::getTicks(), 71582783U);
  ticks = 4294968;
  EXPECT_EQ(AEffGUIEditor::getTicks(), 11U);
  ticks = 0xFFFFFFFF;  // (2^32 - 1) * 1000 is 2^32 - 1000 modulo 2^32
  EXPECT_EQ(AEffGUIEditor::getTicks(), 71582771U);
}

TEST(EditorClock, WaitsInTheHostsEventLoop) {
  waits.clear();
  AEffGUIEditor::wait(250);
  EXPECT_THAT(waits, ElementsAre(0.25));
}

TEST_F(EditorBase, GivesAnIdlePassAndTheHostItsTime) {
  editor->doIdleStuff();
  EXPECT_EQ(editor->passes, 1);
  EXPECT_EQ(hostIdles(), 1);
  EXPECT_TRUE(waits.empty());
}

TEST_F(EditorBase, GivesNoPassLessThan50MillisecondsAfterTheLast) {
  editor->doIdleStuff();
  for (int call = 1; call <= 3; ++call) {
    editor->doIdleStuff();
    EXPECT_EQ(editor->passes, 1);
    EXPECT_EQ(hostIdles(), 1);
    EXPECT_THAT(waits, testing::SizeIs(call)) << "the host's events go on meanwhile";
    EXPECT_EQ(waits.back(), 0.004);
  }
  ticks += 2;  // 33 ms, and 4 that are waited
  editor->doIdleStuff();
  EXPECT_EQ(editor->passes, 1);
}

TEST_F(EditorBase, GivesAnEarlyPassFrom50MillisecondsOnAndOneInTimeWithoutWaiting) {
  editor->doIdleStuff();
  pass(50);
  editor->doIdleStuff();
  EXPECT_EQ(editor->passes, 2);
  EXPECT_THAT(waits, ElementsAre(0.004));
  pass(150);  // due 104 ms after the last one
  editor->doIdleStuff();
  EXPECT_EQ(editor->passes, 3);
  EXPECT_EQ(hostIdles(), 3);
  EXPECT_THAT(waits, testing::SizeIs(1));
}

TEST_F(EditorBase, ThatIsClosedTakesNoKeyAndNoWheel) {
  VstKeyCode key{'a', 0, 0};
  EXPECT_FALSE(editor->onKeyDown(key));
  EXPECT_FALSE(editor->onKeyUp(key));
  EXPECT_FALSE(editor->onWheel(1.0F));
  EXPECT_EQ(key.character, 'a');
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorBase, ThatIsClosedDrawsNothingAndIdles) {
  ERect area{0, 0, 10, 10};
  editor->draw(&area);
  editor->draw(nullptr);
  editor->AEffGUIEditor::idle();
  EXPECT_EQ(editor->mouse(1, 1), 0);
}

TEST_F(EditorBase, SharesItsKnobModeWithEveryOther) {
  CountingEditor other(&effect);
  effect.setEditor(editor);
  EXPECT_TRUE(editor->setKnobMode(2));
  EXPECT_EQ(other.getKnobMode(), 2);
  EXPECT_TRUE(other.setKnobMode(0));
  EXPECT_EQ(editor->getKnobMode(), 0);
}

TEST_F(EditorBase, TellsTheHostOfGesturesOnParametersOnly) {
  for (const std::int32_t tag : {-1, 5, 6, 1000, 1019}) {
    editor->beginEdit(tag);
    editor->endEdit(tag);
  }
  EXPECT_TRUE(host.calls.empty());
  editor->beginEdit(4);
  editor->endEdit(4);
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterBeginEdit, audioMasterEndEdit));
  EXPECT_EQ(host.calls[0].index, 4);
  EXPECT_EQ(host.calls[1].index, 4);
}

}  // namespace
