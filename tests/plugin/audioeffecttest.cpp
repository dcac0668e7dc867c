// The effect base: its record, the basic opcodes, and its calls to the host.
#include "plugin/audioeffect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/support/mockeffect.h"
#include "tests/support/recordinghost.h"

namespace {

using testing::_;
using testing::DoAll;
using testing::ElementsAre;
using testing::Return;
using testing::StrictMock;

// An effect that keeps every operation of the base.
class PlainEffect : public AudioEffect {
 public:
  PlainEffect() : AudioEffect(nullptr, 1, 0) {}
  void processReplacing(float**, float**, VstInt32) override {}
  void processDoubleReplacing(double**, double**, VstInt32) override {}
};

using AudioEffectTest = MockEffectTest;

TEST_F(AudioEffectTest, FillsTheRecordThatTheHostSees) {
  const AEffect* record = effect.getAeffect();
  EXPECT_EQ(record->magic, kEffectMagic);
  EXPECT_EQ(record->numPrograms, 3);
  EXPECT_EQ(record->numParams, 7);
  EXPECT_EQ(record->flags, 0);
  EXPECT_EQ(record->initialDelay, 0);
  EXPECT_EQ(record->ioRatio, 1.0F);
  EXPECT_EQ(record->object, static_cast<AudioEffect*>(&effect));
  EXPECT_EQ(record->user, nullptr);
  EXPECT_EQ(record->version, 1);
  EXPECT_EQ(record->resvd1, 0);
  EXPECT_EQ(record->resvd2, 0);
  EXPECT_EQ(record->realQualities, 0);
  EXPECT_EQ(record->offQualities, 0);
  EXPECT_NE(record->dispatcher, nullptr);
  EXPECT_NE(record->process, nullptr);
  EXPECT_NE(record->setParameter, nullptr);
  EXPECT_NE(record->getParameter, nullptr);
  EXPECT_NE(record->processReplacing, nullptr);
  EXPECT_NE(record->processDoubleReplacing, nullptr);
  for (const char byte : record->future) EXPECT_EQ(byte, 0);
}

TEST_F(AudioEffectTest, StartsAt44100HertzAnd1024Frames) {
  EXPECT_EQ(effect.getSampleRate(), 44100.0F);
  EXPECT_EQ(effect.getBlockSize(), 1024);
}

TEST_F(AudioEffectTest, ChangesTheRecordWhenItSaysWhatItIs) {
  effect.setUniqueID(0x01020304);
  effect.setNumInputs(5);
  effect.setNumOutputs(6);
  effect.setInitialDelay(480);
  effect.canProcessReplacing();
  effect.canDoubleReplacing();
  effect.programsAreChunks();
  const AEffect* record = effect.getAeffect();
  EXPECT_EQ(record->uniqueID, 0x01020304);
  EXPECT_EQ(record->numInputs, 5);
  EXPECT_EQ(record->numOutputs, 6);
  EXPECT_EQ(record->initialDelay, 480);
  EXPECT_EQ(record->flags,
            effFlagsCanReplacing | effFlagsCanDoubleReplacing | effFlagsProgramChunks);
  effect.canProcessReplacing(false);
  EXPECT_EQ(record->flags, effFlagsCanDoubleReplacing | effFlagsProgramChunks);
}

TEST_F(AudioEffectTest, OpensAndTellsNothing) {
  EXPECT_CALL(effect, open());
  EXPECT_EQ(effect.send(effOpen), 0);
}

TEST(AudioEffect, ClosesThenDeletesTheObjectAndAnswers1) {
  RecordingHost host;
  auto* effect = new StrictMock<MockEffect>;
  testing::InSequence order;
  EXPECT_CALL(*effect, close());
  EXPECT_CALL(*effect, died());
  EXPECT_EQ(effect->send(effClose), 1);
}

TEST_F(AudioEffectTest, SelectsOnlyProgramsThatItHas) {
  EXPECT_CALL(effect, setProgram(2));
  EXPECT_EQ(effect.send(effSetProgram, 0, 2), 0);
  effect.send(effSetProgram, 0, 3);
  effect.send(effSetProgram, 0, 1000);
}

TEST_F(AudioEffectTest, AnswersItsProgram) {
  EXPECT_CALL(effect, getProgram()).WillOnce(Return(2));
  EXPECT_EQ(effect.send(effGetProgram), 2);
}

TEST_F(AudioEffectTest, HandsTextsToTheirOperations) {
  EXPECT_CALL(effect, setProgramName(text));
  EXPECT_CALL(effect, getProgramName(text));
  EXPECT_CALL(effect, getParameterLabel(4, text));
  EXPECT_CALL(effect, getParameterDisplay(5, text));
  EXPECT_CALL(effect, getParameterName(6, text));
  EXPECT_EQ(effect.send(effSetProgramName, 0, 0, text), 0);
  EXPECT_EQ(effect.send(effGetProgramName, 0, 0, text), 0);
  EXPECT_EQ(effect.send(effGetParamLabel, 4, 0, text), 0);
  EXPECT_EQ(effect.send(effGetParamDisplay, 5, 0, text), 0);
  EXPECT_EQ(effect.send(effGetParamName, 6, 0, text), 0);
}

TEST_F(AudioEffectTest, AnswersZeroWhereTheHostGivesNoBuffer) {
  for (const VstInt32 opcode : {effSetProgramName, effGetProgramName, effGetParamLabel,
                                effGetParamDisplay, effGetParamName, effEditGetRect, effGetChunk}) {
    EXPECT_EQ(effect.send(opcode), 0) << opcode;
  }
}

TEST_F(AudioEffectTest, StoresTheSampleRateAndTheBlockSize) {
  EXPECT_EQ(effect.send(effSetSampleRate, 0, 0, nullptr, 96000.5F), 0);
  EXPECT_EQ(effect.send(effSetBlockSize, 0, 333), 0);
  EXPECT_EQ(effect.getSampleRate(), 96000.5F);
  EXPECT_EQ(effect.getBlockSize(), 333);
}

TEST_F(AudioEffectTest, ResumesForEveryValueButZero) {
  EXPECT_CALL(effect, resume()).Times(2);
  effect.send(effMainsChanged, 0, 1);
  effect.send(effMainsChanged, 0, -7);
}

TEST_F(AudioEffectTest, SuspendsForZero) {
  EXPECT_CALL(effect, suspend());
  EXPECT_EQ(effect.send(effMainsChanged, 0, 0), 0);
}

TEST_F(AudioEffectTest, IdentifiesItself) {
  EXPECT_EQ(effect.send(effIdentify), 0x4E764566);
}

TEST_F(AudioEffectTest, TakesAnyIndexButZeroAsAPresetChunk) {
  void* data = nullptr;
  EXPECT_CALL(effect, getChunk(&data, false)).WillOnce(Return(11));
  EXPECT_CALL(effect, getChunk(&data, true)).WillOnce(Return(12));
  EXPECT_CALL(effect, setChunk(text, 21, false)).WillOnce(Return(0));
  EXPECT_CALL(effect, setChunk(text, 22, true)).WillOnce(Return(-1));
  EXPECT_EQ(effect.send(effGetChunk, 0, 0, &data), 11);
  EXPECT_EQ(effect.send(effGetChunk, 2, 0, &data), 12);
  EXPECT_EQ(effect.send(effSetChunk, 0, 21, text), 0);
  EXPECT_EQ(effect.send(effSetChunk, 1, 22, text), -1);
}

TEST_F(AudioEffectTest, AnswersZeroToEveryOtherOpcodeBelow25) {
  for (const VstInt32 opcode : {9, 16, 17, 18, 20, 21})
    EXPECT_EQ(effect.send(opcode, 1, 2, text, 3.0F), 0) << opcode;
  for (const VstInt32 opcode : {-1, -2147483647, 25, 79, 100289})
    EXPECT_EQ(effect.send(opcode), 0) << opcode;
}

TEST_F(AudioEffectTest, AnswersZeroToEditorOpcodesWithoutAnEditor) {
  ERect* rect = nullptr;
  EXPECT_EQ(effect.send(effEditGetRect, 0, 0, &rect), 0);
  EXPECT_EQ(effect.send(effEditOpen, 0, 0, text), 0);
  EXPECT_EQ(effect.send(effEditClose), 0);
  EXPECT_EQ(effect.send(effEditIdle), 0);
  EXPECT_EQ(rect, nullptr);
}

TEST_F(AudioEffectTest, ForwardsEditorOpcodesToItsEditor) {
  auto* editor = new StrictMock<MockEditor>(&effect);
  effect.setEditor(editor);
  ERect* rect = nullptr;
  EXPECT_CALL(*editor, getRect(&rect)).WillOnce(Return(true)).WillOnce(Return(false));
  EXPECT_CALL(*editor, open(text)).WillOnce(Return(true)).WillOnce(Return(false));
  EXPECT_CALL(*editor, idle());
  EXPECT_CALL(*editor, close());
  EXPECT_CALL(*editor, died());
  EXPECT_EQ(effect.send(effEditGetRect, 0, 0, &rect), 1);
  EXPECT_EQ(effect.send(effEditGetRect, 0, 0, &rect), 0);
  EXPECT_EQ(effect.send(effEditOpen, 0, 0, text), 1);
  EXPECT_EQ(effect.send(effEditOpen, 0, 0, text), 0);
  EXPECT_EQ(effect.send(effEditIdle), 0);
  EXPECT_EQ(effect.send(effEditClose), 0);
}

TEST_F(AudioEffectTest, ShowsTheHostByAFlagWhetherThereIsAnEditor) {
  auto* editor = new StrictMock<MockEditor>(&effect);
  effect.setEditor(editor);
  EXPECT_EQ(effect.getEditor(), editor);
  EXPECT_EQ(effect.getAeffect()->flags, effFlagsHasEditor);
  EXPECT_CALL(*editor, died());
  effect.setEditor(nullptr);
  EXPECT_EQ(effect.getEditor(), nullptr);
  EXPECT_EQ(effect.getAeffect()->flags, 0);
}

TEST_F(AudioEffectTest, KeepsAnEditorThatIsSetTwice) {
  auto* editor = new StrictMock<MockEditor>(&effect);
  effect.setEditor(editor);
  effect.setEditor(editor);
  EXPECT_EQ(effect.getEditor(), editor);
  EXPECT_CALL(*editor, died());
}

TEST(AudioEffect, DeletesItsEditorAtItsEnd) {
  auto* effect = new PlainEffect;
  auto* editor = new StrictMock<MockEditor>(effect);
  effect->setEditor(editor);
  EXPECT_CALL(*editor, died());
  delete effect;
}

TEST_F(AudioEffectTest, ForwardsTheRecordsFunctionsToTheObject) {
  float single = 0.0F;
  float* singles[] = {&single};
  double precise = 0.0;
  double* doubles[] = {&precise};
  EXPECT_CALL(effect, setParameter(4, 0.25F));
  EXPECT_CALL(effect, getParameter(5)).WillOnce(Return(0.75F));
  EXPECT_CALL(effect, processReplacing(singles, singles, 64));
  EXPECT_CALL(effect, processDoubleReplacing(doubles, doubles, 65));
  AEffect* record = effect.getAeffect();
  record->setParameter(record, 4, 0.25F);
  EXPECT_EQ(record->getParameter(record, 5), 0.75F);
  record->processReplacing(record, singles, singles, 64);
  record->processDoubleReplacing(record, doubles, doubles, 65);
}

TEST_F(AudioEffectTest, TakesEveryValueButOneThatIsNoNumberThroughTheRecord) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  AEffect* record = effect.getAeffect();
  for (const float value : {kInfinity, -kInfinity, -3.0F, 1e30F}) {
    EXPECT_CALL(effect, setParameter(2, value));
    record->setParameter(record, 2, value);
  }
  for (const VstInt32 index : {-1, 0, 2, 6}) {
    record->setParameter(record, index, std::numeric_limits<float>::quiet_NaN());
    record->setParameter(record, index, -std::numeric_limits<float>::signaling_NaN());
  }
}

TEST_F(AudioEffectTest, AccumulatesNothingThroughTheDeprecatedEntry) {
  float in[4] = {1.0F, 2.0F, 3.0F, 4.0F};
  float out[4] = {5.0F, 6.0F, 7.0F, 8.0F};
  float* ins[] = {in, in};
  float* outs[] = {out, out};
  effect.getAeffect()->process(effect.getAeffect(), ins, outs, 4);
  EXPECT_THAT(out, ElementsAre(5.0F, 6.0F, 7.0F, 8.0F));
}

TEST_F(AudioEffectTest, SetsAnAutomatedParameterAndTellsTheHost) {
  EXPECT_CALL(effect, setParameter(2, 0.5F));
  effect.setParameterAutomated(2, 0.5F);
  ASSERT_EQ(host.calls.size(), 1U);
  EXPECT_EQ(host.calls[0].effect, effect.getAeffect());
  EXPECT_EQ(host.calls[0].opcode, audioMasterAutomate);
  EXPECT_EQ(host.calls[0].index, 2);
  EXPECT_EQ(host.calls[0].value, 0);
  EXPECT_EQ(host.calls[0].ptr, nullptr);
  EXPECT_EQ(host.calls[0].opt, 0.5F);
}

TEST_F(AudioEffectTest, TakesAPinAsConnectedWhereTheHostAnswersZero) {
  EXPECT_TRUE(effect.isInputConnected(1));
  EXPECT_TRUE(effect.isOutputConnected(1));
  host.answers[audioMasterPinConnected] = 1;
  EXPECT_FALSE(effect.isInputConnected(0));
  EXPECT_FALSE(effect.isOutputConnected(3));
  ASSERT_EQ(host.calls.size(), 4U);
  const VstInt32 pins[] = {1, 1, 0, 3};
  const VstIntPtr directions[] = {0, 1, 0, 1};  // inputs, outputs
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(host.calls[i].opcode, audioMasterPinConnected);
    EXPECT_EQ(host.calls[i].index, pins[i]);
    EXPECT_EQ(host.calls[i].value, directions[i]);
  }
}

TEST_F(AudioEffectTest, AsksTheHostForItsVersionIdAndIdleTime) {
  host.answers[audioMasterVersion] = 2300;
  host.answers[audioMasterCurrentId] = 0x50726231;
  EXPECT_EQ(effect.getMasterVersion(), 2300);
  EXPECT_EQ(effect.getCurrentUniqueId(), 0x50726231);
  effect.masterIdle();
  EXPECT_THAT(host.opcodes(),
              ElementsAre(audioMasterVersion, audioMasterCurrentId, audioMasterIdle));
}

TEST_F(AudioEffectTest, TakesAHostThatDoesNotTellItsVersionAsTheFirst) {
  host.answers[audioMasterVersion] = 0;
  EXPECT_EQ(effect.getMasterVersion(), 1);
}

TEST(AudioEffect, WorksWithoutAnyHost) {
  PlainEffect effect;
  EXPECT_EQ(effect.getMasterVersion(), 1);
  effect.setParameterAutomated(0, 1.0F);
  effect.masterIdle();
  EXPECT_TRUE(effect.isInputConnected(0));
  EXPECT_TRUE(effect.isOutputConnected(7));
  EXPECT_EQ(effect.getCurrentUniqueId(), 0);
}

TEST(AudioEffect, AnswersNothingByDefault) {
  PlainEffect effect;
  AEffect* record = effect.getAeffect();
  const auto send = [record](VstInt32 opcode, void* ptr) {
    return record->dispatcher(record, opcode, 0, 0, ptr, 0.0F);
  };
  for (const VstInt32 opcode :
       {effGetProgramName, effGetParamLabel, effGetParamDisplay, effGetParamName}) {
    char text[8] = "before";
    EXPECT_EQ(send(opcode, text), 0);
    EXPECT_STREQ(text, "");
  }
  void* data = nullptr;
  EXPECT_EQ(send(effGetChunk, &data), 0);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(send(effSetChunk, &data), 0);
  EXPECT_EQ(record->getParameter(record, 0), 0.0F);
}

}  // namespace
