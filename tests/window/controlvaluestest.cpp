// What the window's controls hold after the effect's values changed, and what they make of them.
#include <algorithm>
#include <limits>

#include "editor/controls/cabout.h"
#include "editorcalls.h"

TEST_F(EditorCalls, AParameterThatIsNotThereTouchesNothing) {
  open();
  disturb();
  const std::vector<float> disturbed = shown();
  for (const VstInt32 index : {5, -1, 6, 1000, std::numeric_limits<VstInt32>::min()}) {
    editor().setParameter(index, 0.9F);
    editor().idle();
    EXPECT_EQ(shown(), disturbed) << index;
  }
  for (VstInt32 index = 0; index < 5; ++index) editor().setParameter(index, 0.9F);
  editor().idle();
  EXPECT_EQ(shown(), (std::vector<float>{0.3F, 0.5F, 0.7F, 1.0F, 0.0F, 0.3F, 265.0F, 0.7F}));
}

TEST_F(EditorCalls, AParameterThatIsSetWhileClosedTouchesNothing) {
  open();
  close();
  for (VstInt32 index = -1; index < 6; ++index) editor().setParameter(index, 0.9F);
  editor().idle();
  EXPECT_TRUE(host.calls.empty());
  for (VstInt32 index = -1; index < 6; ++index) editor().setParameter(index, 0.9F);
  display.moveTo(700, 600);
  ASSERT_TRUE(editor().open(reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))));
  collect(editor().getFrame(), controls);
  disturb();
  const std::vector<float> disturbed = shown();
  editor().idle();
  EXPECT_EQ(shown(), disturbed) << "nothing is left over for the next window";
}

TEST_F(EditorCalls, EachParameterUpdatesItsControlAndDisplayAndTheLastOneTheFirstDisplayToo) {
  open();
  // Slider or switch of the index, and the display beside it.
  const std::vector<std::vector<CControl*>> updated = {{tagged(0), valueDisplay(0)},
                                                       {tagged(1), valueDisplay(1)},
                                                       {tagged(2), valueDisplay(2)},
                                                       {tagged(3)},
                                                       {tagged(4), valueDisplay(0)}};
  for (std::size_t index = 0; index < updated.size(); ++index) {
    disturb();
    editor().setParameter(static_cast<VstInt32>(index), 0.9F);
    editor().idle();
    for (CControl* control : parameterControls()) {
      const bool expected =
          std::find(updated[index].begin(), updated[index].end(), control) != updated[index].end();
      EXPECT_EQ(control->getValue() != kElsewhere, expected)
          << index << ", control " << control->getTag();
    }
  }
  EXPECT_EQ(valueDisplay(0)->getValue(), 0.3F) << "by the last one";
}

TEST_F(EditorCalls, TheSwitchesAreOnFromExactlyOneHalf) {
  open();
  for (const VstInt32 index : {3, 4}) {
    for (const auto& [raw, position] :
         {std::pair{0.5F, 1.0F}, std::pair{0.49999997F, 0.0F}, std::pair{1.0F, 1.0F},
          std::pair{std::numeric_limits<float>::quiet_NaN(), 0.0F}}) {
      tagged(index)->setValue(kElsewhere);
      effect->setParameter(index, raw);
      editor().idle();
      EXPECT_EQ(tagged(index)->getValue(), position) << raw;
    }
    effect->setParameter(index, 0.5F);
    close();
    open();
    EXPECT_EQ(tagged(index)->getValue(), 1.0F) << "from the beginning";
  }
}

TEST_F(EditorCalls, TheMeterKeepsItsValueWhileTheSplashIsShownAndRestsAfterSuspend) {
  open();
  effect->resume();
  play(44100);
  editor().idle();
  const float playing = meter()->getValue();
  EXPECT_EQ(playing, 0.5F + effect->getWidthMeter());
  ASSERT_NE(playing, 0.5F);
  tagged(6)->setValue(1.0F);
  effect->suspend();  // the reading is 0 again
  editor().idle();
  EXPECT_EQ(meter()->getValue(), playing);
  editor().suspend();
  EXPECT_EQ(meter()->getValue(), 0.5F);
  play(44100);
  editor().idle();
  EXPECT_EQ(meter()->getValue(), 0.5F) << "the splash is still shown";
  tagged(6)->setValue(0.0F);
  editor().idle();
  EXPECT_EQ(meter()->getValue(), 0.5F + effect->getWidthMeter());
  EXPECT_NE(meter()->getValue(), 0.5F);
  editor().suspend();
  EXPECT_EQ(meter()->getValue(), 0.5F);
  close();
  editor().suspend();  // no meter, no harm
}

TEST_F(EditorCalls, EachValueOfAParameterControlIsAutomatedOnceUnderItsOwnTag) {
  open();
  for (VstInt32 tag = 0; tag < 5; ++tag) {
    for (const float value : {0.25F, 1.0F, 1.0F, 0.0F}) {
      host.calls.clear();
      tagged(tag)->setValue(value);
      tagged(tag)->setDirty(false);
      tagged(tag)->valueChanged();
      const std::vector<RecordingHost::Call> told = automated();
      ASSERT_EQ(told.size(), 1U);
      EXPECT_EQ(told[0].index, tag);
      EXPECT_EQ(told[0].opt, value);
      EXPECT_EQ(effect->getParameter(tag), value);
      EXPECT_TRUE(tagged(tag)->isDirty());
    }
  }
}

TEST_F(EditorCalls, TheAboutControlsTagNeverReachesTheEffect) {
  open();
  ASSERT_NE(dynamic_cast<CAbout*>(tagged(6)), nullptr);
  effect->setParameter(6, 0.25F);
  tagged(6)->setValue(1.0F);
  tagged(6)->valueChanged();
  editor().valueChanged(tagged(6));
  editor().beginEdit(6);
  editor().endEdit(6);
  EXPECT_TRUE(host.calls.empty());
  EXPECT_EQ(effect->getParameter(6), 0.25F);
}

TEST_F(EditorCalls, ReopeningGivesTheControlsTheValuesOfBefore) {
  open();
  tagged(0)->setValue(0.8F);
  tagged(0)->valueChanged();
  tagged(4)->setValue(1.0F);
  tagged(4)->valueChanged();
  effect->setParameter(1, 0.1F);
  editor().idle();
  const std::vector<float> before = shown();
  EXPECT_EQ(before[0], 0.8F);
  EXPECT_EQ(before[4], 1.0F);
  close();
  open();
  EXPECT_EQ(shown(), before);
}
