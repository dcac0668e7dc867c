// The effect's life, and what it tells the host about itself.
#include "effect/trelvan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/support/recordingeditor.h"
#include "tests/support/recordinghost.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class TrelvanTest : public testing::Test {
 protected:
  VstIntPtr send(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                 float opt = 0.0F) {
    return effect.getAeffect()->dispatcher(effect.getAeffect(), opcode, index, value, ptr, opt);
  }
  VstIntPtr canDo(std::string question) { return send(effCanDo, 0, 0, question.data()); }

  // The answer to an arrangement of so many channels.
  bool arrange(VstInt32 ins, VstInt32 outs) {
    VstSpeakerArrangement in{};
    VstSpeakerArrangement out{};
    in.type = kSpeakerArrUserDefined;  // of no importance
    in.numChannels = ins;
    out.numChannels = outs;
    return effect.setSpeakerArrangement(&in, &out);
  }
  // Left out of one frame of 1 on the left and 0.5 on the right, bypassed: tells whether the second
  // input is read.
  bool readsTheSecondInput() {
    effect.setParameter(3, 0.0F);
    float left = 1.0F;
    float right = 0.5F;
    float outLeft = 0.0F;
    float outRight = 0.0F;
    float* ins[] = {&left, &right};
    float* outs[] = {&outLeft, &outRight};
    effect.processReplacing(ins, outs, 1);
    EXPECT_EQ(outLeft, 1.0F);
    return outRight == 0.5F;
  }

  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  char text[128] = "untouched";
};

TEST_F(TrelvanTest, FillsTheRecordThatTheHostSees) {
  const AEffect* record = effect.getAeffect();
  EXPECT_EQ(record->magic, 0x56737450);
  EXPECT_EQ(record->numPrograms, 1);
  EXPECT_EQ(record->numParams, 5);
  EXPECT_EQ(record->numInputs, 2);
  EXPECT_EQ(record->numOutputs, 2);
  EXPECT_EQ(record->flags, (1 << 0) | (1 << 4) | (1 << 5) | (1 << 12));
  EXPECT_EQ(record->initialDelay, 0);
  EXPECT_EQ(record->ioRatio, 1.0F);
  EXPECT_EQ(record->uniqueID, 0x546C766E);
  EXPECT_EQ(record->version, 1);
  EXPECT_EQ(effect.getUniqueID(), 0x546C766E);
}

TEST_F(TrelvanTest, AsksTheHostInOrderWhileItIsMade) {
  const std::vector<VstInt32> calls = host.opcodes();
  ASSERT_GE(calls.size(), 11U);
  EXPECT_THAT(std::vector<VstInt32>(calls.begin(), calls.begin() + 2),
              ElementsAre(audioMasterGetOutputLatency, audioMasterGetBlockSize));
  // At the end preset 0 is selected, then come suspend, resume and suspend.
  EXPECT_THAT(
      std::vector<VstInt32>(calls.end() - 9, calls.end()),
      ElementsAre(audioMasterUpdateDisplay, audioMasterBeginEdit, audioMasterEndEdit,
                  audioMasterGetOutputLatency, audioMasterGetBlockSize, audioMasterGetOutputLatency,
                  audioMasterGetBlockSize, audioMasterGetOutputLatency, audioMasterGetBlockSize));
}

TEST_F(TrelvanTest, AsksForLatencyAndBlockSizeOnResumeAndSuspend) {
  host.calls.clear();
  effect.resume();
  effect.suspend();
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterGetOutputLatency, audioMasterGetBlockSize,
                                          audioMasterGetOutputLatency, audioMasterGetBlockSize));
}

// Hosts use the record from inside their first callback.
TEST(Trelvan, HasItsRecordCompleteBeforeTheFirstCallbackThatPassesIt) {
  RecordingHost host;
  AEffect atFirst{};
  host.onCall = [&](const RecordingHost::Call& call) {
    if (atFirst.magic == 0) atFirst = *call.effect;
  };
  Trelvan effect(RecordingHost::callback);
  const AEffect* now = effect.getAeffect();
  EXPECT_EQ(atFirst.magic, now->magic);
  EXPECT_EQ(atFirst.dispatcher, now->dispatcher);
  EXPECT_EQ(atFirst.process, now->process);
  EXPECT_EQ(atFirst.setParameter, now->setParameter);
  EXPECT_EQ(atFirst.getParameter, now->getParameter);
  EXPECT_EQ(atFirst.processReplacing, now->processReplacing);
  EXPECT_EQ(atFirst.processDoubleReplacing, now->processDoubleReplacing);
  EXPECT_EQ(atFirst.object, now->object);
  EXPECT_EQ(atFirst.numPrograms, now->numPrograms);
  EXPECT_EQ(atFirst.numParams, now->numParams);
  EXPECT_EQ(atFirst.numInputs, now->numInputs);
  EXPECT_EQ(atFirst.numOutputs, now->numOutputs);
  EXPECT_EQ(atFirst.flags, now->flags);
  EXPECT_EQ(atFirst.uniqueID, now->uniqueID);
  EXPECT_EQ(atFirst.version, now->version);
}

TEST_F(TrelvanTest, StartsWithTheFirstFactoryPreset) {
  EXPECT_EQ(effect.getPresetNo(), 0);
  EXPECT_EQ(effect.getParameter(0), 0.0F);
  EXPECT_EQ(effect.getParameter(1), 0.5F);
  EXPECT_EQ(effect.getParameter(2), 0.0F);
  EXPECT_EQ(effect.getParameter(3), 1.0F);
  EXPECT_EQ(effect.getParameter(4), 0.0F);
}

TEST_F(TrelvanTest, HasAnEditorFromTheStart) {
  EXPECT_NE(effect.getEditor(), nullptr);
  EXPECT_FALSE(effect.isEditorOpen());
}

// An editor that is still open asks for values and says that it closes while it ends.
class LastQuestions final : public RecordingEditor {
 public:
  struct Returned {
    float auxiliary;
    std::string display;
  };
  LastQuestions(Trelvan* owner, Returned& told)
      : RecordingEditor(owner), effect(owner), returned(told) {}
  ~LastQuestions() override {
    char text[64] = "untouched";
    AEffect* record = effect->getAeffect();
    returned.auxiliary = record->getParameter(record, 6);
    record->dispatcher(record, effGetParamDisplay, 0, 0, text, 0.0F);
    returned.display = text;
  }
  LastQuestions(const LastQuestions&) = delete;
  LastQuestions& operator=(const LastQuestions&) = delete;

 private:
  Trelvan* effect;
  Returned& returned;
};

TEST(Trelvan, IsStillWholeWhileItsEditorEnds) {
  LastQuestions::Returned returned{};
  {
    RecordingHost host;
    Trelvan effect(RecordingHost::callback);
    effect.setEditor(new LastQuestions(&effect, returned));
    effect.setParameter(0, 0.5F);
    effect.setParameter(6, 0.25F);
  }
  EXPECT_EQ(returned.auxiliary, 0.25F);
  EXPECT_EQ(returned.display, "50.0");
}

TEST_F(TrelvanTest, KeepsTheEditorOpenFlag) {
  effect.setEditorOpen(true);
  EXPECT_TRUE(effect.isEditorOpen());
  effect.setEditorOpen(false);
  EXPECT_FALSE(effect.isEditorOpen());
}

TEST_F(TrelvanTest, HasNames) {
  EXPECT_EQ(send(effGetEffectName, 0, 0, text), 1);
  EXPECT_STREQ(text, "Orv Trelvan");
  EXPECT_LT(std::strlen(text), 32U);
  EXPECT_EQ(send(effGetProductString, 0, 0, text), 1);
  EXPECT_STREQ(text, "Orv Trelvan - Trelvan processor");
  EXPECT_LT(std::strlen(text), 64U);
  EXPECT_EQ(send(effGetVendorString, 0, 0, text), 1);
  EXPECT_GT(std::strlen(text), 0U);
  EXPECT_LT(std::strlen(text), 64U);
}

TEST_F(TrelvanTest, HasVersionsAndACategory) {
  EXPECT_EQ(send(effGetVendorVersion), 1990);
  EXPECT_EQ(send(effGetVstVersion), 2400);
  EXPECT_EQ(send(effGetPlugCategory), 4) << "mastering";
}

TEST_F(TrelvanTest, CanDoFourThings) {
  for (const char* question : {"offline", "plugAsChannelInsert", "1in2out", "2in2out"})
    EXPECT_EQ(canDo(question), 1) << question;
}

TEST_F(TrelvanTest, CanDoNothingElseAndNeverSaysMinusOne) {
  for (const char* question :
       {"bypass", "receiveVstMidiEvent", "receiveVstEvents", "sendVstEvents", "plugAsSend",
        "mixDryWet", "midiProgramNames", "supportsViewDpiScaling", "", "Offline", "OFFLINE",
        "offline ", " offline", "2in2ou", "1in2out2", "PlugAsChannelInsert"}) {
    EXPECT_EQ(canDo(question), 0) << question;
  }
}

class Pins : public TrelvanTest {
 protected:
  Pins() { std::memset(&pin, 0x5A, sizeof pin); }

  // Behind label and flags nothing may be written: hosts' records may end at 80 bytes.
  bool restIsUntouched() const {
    const auto* bytes = reinterpret_cast<const unsigned char*>(&pin);
    for (std::size_t i = offsetof(VstPinProperties, arrangementType); i < sizeof pin; ++i) {
      if (bytes[i] != 0x5A) return false;
    }
    return true;
  }

  VstPinProperties pin;
};

TEST_F(Pins, AreNumberedFromOne) {
  EXPECT_EQ(send(effGetInputProperties, 0, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My 1 In");
  EXPECT_EQ(send(effGetInputProperties, 1, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My 2 In");
  EXPECT_EQ(send(effGetOutputProperties, 0, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My 1 Out");
  EXPECT_EQ(send(effGetOutputProperties, 1, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My 2 Out");
}

TEST_F(Pins, AreActiveAndStereo) {
  send(effGetInputProperties, 0, 0, &pin);
  EXPECT_EQ(pin.flags, 3);
  pin.flags = 0;
  send(effGetOutputProperties, 1, 0, &pin);
  EXPECT_EQ(pin.flags, 3);
}

TEST_F(Pins, LeaveTheShortLabelAndAllBehindItUntouched) {
  send(effGetInputProperties, 1, 0, &pin);
  EXPECT_TRUE(restIsUntouched());
  send(effGetOutputProperties, 1, 0, &pin);
  EXPECT_TRUE(restIsUntouched());
}

TEST_F(Pins, BelowZeroAreAnsweredToo) {
  EXPECT_EQ(send(effGetOutputProperties, -1, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My 0 Out");
  EXPECT_EQ(send(effGetInputProperties, -2, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My -1 In");
  EXPECT_EQ(send(effGetInputProperties, -2147483647 - 1, 0, &pin), 1);
  EXPECT_STREQ(pin.label, "My -2147483647 In");
}

TEST_F(Pins, AboveOneAreNotThere) {
  for (const VstInt32 index : {2, 3, 100, 2147483647}) {
    EXPECT_EQ(send(effGetInputProperties, index, 0, &pin), 0) << index;
    EXPECT_EQ(send(effGetOutputProperties, index, 0, &pin), 0) << index;
  }
  EXPECT_EQ(pin.label[0], 0x5A);
  EXPECT_EQ(pin.flags, 0x5A5A5A5A);
}

TEST_F(TrelvanTest, TakesOneInTwoOutAndThenReadsOneInput) {
  EXPECT_TRUE(arrange(1, 2));
  EXPECT_FALSE(readsTheSecondInput());
}

TEST_F(TrelvanTest, TakesTwoInTwoOut) {
  arrange(1, 2);
  EXPECT_TRUE(arrange(2, 2));
  EXPECT_TRUE(readsTheSecondInput());
}

TEST_F(TrelvanTest, RefusesEveryOtherArrangementAndIsStereoAgain) {
  const VstInt32 refused[][2] = {{1, 1}, {2, 1}, {0, 0}, {0, 2}, {6, 6}, {2, 6}, {1, 6}, {-1, 2}};
  for (const auto& channels : refused) {
    EXPECT_TRUE(arrange(1, 2));
    EXPECT_FALSE(arrange(channels[0], channels[1]))
        << channels[0] << " in " << channels[1] << " out";
    EXPECT_TRUE(readsTheSecondInput());
  }
}

TEST_F(TrelvanTest, RefusesAnArrangementThatIsNotThere) {
  VstSpeakerArrangement stereo{};
  stereo.numChannels = 2;
  EXPECT_FALSE(effect.setSpeakerArrangement(nullptr, nullptr));
  EXPECT_FALSE(effect.setSpeakerArrangement(nullptr, &stereo));
  EXPECT_FALSE(effect.setSpeakerArrangement(&stereo, nullptr));
}

// The processing never moves it.
TEST_F(TrelvanTest, HasAPeakOfZero) {
  float in[64];
  float out[64];
  for (float& sample : in) sample = 1.0F;
  float* ins[] = {in, in};
  float* outs[] = {out, out};
  effect.resume();
  effect.processReplacing(ins, outs, 64);
  EXPECT_EQ(effect.getVu(), 0.0F);
  EXPECT_EQ(effect.getVu(), 0.0F);
}

TEST_F(TrelvanTest, KeepsTheInterfacesOtherDefaults) {
  for (const VstInt32 opcode : {effString2Parameter,
                                effSetBypass,
                                effGetTailSize,
                                effGetSpeakerArrangement,
                                effSetProcessPrecision,
                                effVendorSpecific,
                                effGetMidiProgramName,
                                effGetCurrentMidiProgram,
                                effGetMidiProgramCategory,
                                effHasMidiProgramsChanged,
                                effGetMidiKeyName,
                                effStartProcess,
                                effStopProcess,
                                effBeginSetProgram,
                                effEndSetProgram,
                                effBeginLoadBank,
                                effBeginLoadProgram,
                                effOfflineNotify,
                                effOfflinePrepare,
                                effOfflineRun,
                                effShellGetNextPlugin,
                                effProcessEvents,
                                effGetNumMidiInputChannels,
                                effGetNumMidiOutputChannels,
                                effProcessVarIo,
                                effSetPanLaw,
                                effSetTotalSampleToProcess}) {
    EXPECT_EQ(send(opcode, 0, 0, text), 0) << opcode;
  }
  EXPECT_STREQ(text, "untouched");
}

TEST_F(TrelvanTest, CanBeAutomatedAtEveryIndexOfARealParameter) {
  for (VstInt32 index = 0; index < 5; ++index)
    EXPECT_EQ(send(effCanBeAutomated, index), 1) << index;
  EXPECT_EQ(send(effCanBeAutomated, 5), 0);
  EXPECT_EQ(send(effCanBeAutomated, -1), 0);
}

TEST_F(TrelvanTest, TellsTheHostOfAnAutomatedChange) {
  host.calls.clear();
  effect.setParameterAutomated(0, 0.25F);
  EXPECT_EQ(effect.getParameter(0), 0.25F);
  ASSERT_THAT(host.opcodes(), ElementsAre(audioMasterAutomate));
  EXPECT_EQ(host.calls[0].index, 0);
  EXPECT_EQ(host.calls[0].opt, 0.25F);
}

// Some hosts answer an automation message by setting the parameter, on the same thread and inside
// the message.
TEST_F(TrelvanTest, TakesAParameterThatTheHostSetsBackInsideTheMessage) {
  host.calls.clear();
  host.onCall = [](const RecordingHost::Call& call) {
    call.effect->setParameter(call.effect, call.index, 0.5F);
  };
  effect.setParameterAutomated(0, 0.25F);
  EXPECT_EQ(effect.getParameter(0), 0.5F) << "the host's word is the last";
  EXPECT_EQ(effect.preset(0).width, 0.5F);
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterAutomate))
      << "and no further message comes of it";
}

// A host that sets the parameter back on the same thread would go round for ever.
TEST_F(TrelvanTest, TellsTheHostNothingOfAChangeThatCameFromIt) {
  host.calls.clear();
  for (VstInt32 index = 0; index < 7; ++index) effect.setParameter(index, 0.75F);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(TrelvanTest, HasAMutexThatDoesNothing) {
  effect.initMutex();
  effect.acquireMutex();
  effect.acquireMutex();
  effect.releaseMutex();
  effect.setParameter(0, 0.5F);
  EXPECT_EQ(effect.getParameter(0), 0.5F);
}

}  // namespace
