// The preset store by itself, without an effect around it.
#include <gtest/gtest.h>

#include <limits>

#include "presetsystem/store/cpresetsystemeffect.h"
#include "tests/support/recordinghost.h"
#include "tests/support/records.h"

namespace {

// The store without an effect around it and without an editor.
class BareStore : public CPresetSystemEffect {
 public:
  BareStore() : CPresetSystemEffect(RecordingHost::callback) {}
  bool isDummy(int) override { return false; }
  bool isDummyOld(int) override { return false; }
  void processReplacing(float**, float**, VstInt32) override {}
  void processDoubleReplacing(double**, double**, VstInt32) override {}
};

TEST(BareStore, StartsWithZerosInTheBankAndInTheDefaultPreset) {
  RecordingHost host;
  BareStore store;
  EXPECT_EQ(store.getPresetNo(), 0);
  EXPECT_FALSE(store.isPresetChangeInProgress());
  for (const ACombProgram& preset : store.bank())
    EXPECT_TRUE(sameRecord(preset, ACombProgram::zeroed()));
  EXPECT_TRUE(sameRecord(store.getDefaultPreset(), ACombProgram::zeroed()));
}

TEST(BareStore, DeclaresOneProgramFiveParametersAndChunks) {
  RecordingHost host;
  BareStore store;
  EXPECT_EQ(store.getAeffect()->numPrograms, 1);
  EXPECT_EQ(store.getAeffect()->numParams, 5);
  EXPECT_EQ(store.getAeffect()->flags, effFlagsProgramChunks);
  EXPECT_TRUE(host.calls.empty()) << "the host is not asked anything";
}

TEST(BareStore, AnswersMinusOneForAParameterThatItHasNot) {
  RecordingHost host;
  BareStore store;
  EXPECT_EQ(store.getParameter(5), -1.0F);
  EXPECT_EQ(store.getParameter(-1), -1.0F);
  EXPECT_EQ(store.getParameter(std::numeric_limits<VstInt32>::max()), -1.0F);
  for (VstInt32 index = 0; index < 5; ++index) EXPECT_EQ(store.getParameter(index), 0.0F);
}

TEST(BareStore, StoresValuesAsGivenInTheCurrentPreset) {
  RecordingHost host;
  BareStore store;
  store.setPresetNo(3);
  store.setParameter(2, 7.5F);
  store.setParameter(5, 0.5F);
  store.setParameter(-1, 0.5F);
  EXPECT_EQ(store.getParameter(2), 7.5F);
  for (int i = 0; i < 32; ++i) {
    ACombProgram expected = ACombProgram::zeroed();
    if (i == 3) expected.emphasis = 7.5F;
    EXPECT_TRUE(sameRecord(store.preset(i), expected)) << i;
  }
}

TEST(BareStore, DoesWithoutAnEditor) {
  RecordingHost host;
  BareStore store;
  char name[] = "name";
  store.setProgramName(name);
  store.loadDefaults();
  void* data = &store;
  EXPECT_EQ(store.getChunk(&data, false), 0);
  EXPECT_EQ(data, &store) << "left as it was";
  EXPECT_EQ(store.setChunk(name, 4, false), -1);
  EXPECT_TRUE(sameRecord(store.getDefaultPreset(), store.preset(0)));
}

TEST(BareStore, HasAMidiSideThatDoesNothing) {
  RecordingHost host;
  BareStore store;
  store.attachMidi(1, 2);
  store.detachMidiParam(1);
  store.detachMidiCC(2);
  store.beginLearn();
  store.setLearnParam(1);
  store.endLearn();
  store.beginCancel();
  store.endCancel();
  store.initMidi();
  store.initPresets();
  store.resume();
  EXPECT_EQ(store.getMidiCC(1), 0);
  EXPECT_EQ(store.getMidiParam(2), 0);
  EXPECT_EQ(store.getMidiActivity(), 0);
  EXPECT_EQ(store.processEvents(nullptr), 0);
  char question[] = "offline";
  EXPECT_EQ(store.canDo(question), 0);
  EXPECT_EQ(store.getVu(), 0.0F);
  EXPECT_TRUE(host.calls.empty());
}

}  // namespace
