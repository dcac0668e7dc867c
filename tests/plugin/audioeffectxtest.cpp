// The extended interface: which operation each opcode reaches, the default answers, and the calls
// to the host.
#include "plugin/audioeffectx.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "plugin/vstkeycode.h"
#include "tests/support/recordinghost.h"

namespace {

using testing::_;
using testing::ElementsAre;
using testing::Field;
using testing::Return;
using testing::StrictMock;

// An effect that keeps every operation of the extended interface.
class PlainEffectX : public AudioEffectX {
 public:
  PlainEffectX() : AudioEffectX(RecordingHost::callback, 1, 5) {}
  void processReplacing(float**, float**, VstInt32) override {}
  void processDoubleReplacing(double**, double**, VstInt32) override {}

  VstIntPtr send(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                 float opt = 0.0F) {
    return getAeffect()->dispatcher(getAeffect(), opcode, index, value, ptr, opt);
  }
};

class MockEffectX : public PlainEffectX {
 public:
  MOCK_METHOD(VstInt32, processEvents, (VstEvents*), (override));
  MOCK_METHOD(bool, canParameterBeAutomated, (VstInt32), (override));
  MOCK_METHOD(bool, string2parameter, (VstInt32, char*), (override));
  MOCK_METHOD(bool, getProgramNameIndexed, (VstInt32, VstInt32, char*), (override));
  MOCK_METHOD(bool, getInputProperties, (VstInt32, VstPinProperties*), (override));
  MOCK_METHOD(bool, getOutputProperties, (VstInt32, VstPinProperties*), (override));
  MOCK_METHOD(VstPlugCategory, getPlugCategory, (), (override));
  MOCK_METHOD(bool, setSpeakerArrangement, (VstSpeakerArrangement*, VstSpeakerArrangement*),
              (override));
  MOCK_METHOD(bool, setBypass, (bool), (override));
  MOCK_METHOD(bool, getEffectName, (char*), (override));
  MOCK_METHOD(bool, getVendorString, (char*), (override));
  MOCK_METHOD(bool, getProductString, (char*), (override));
  MOCK_METHOD(VstInt32, getVendorVersion, (), (override));
  MOCK_METHOD(VstIntPtr, vendorSpecific, (VstInt32, VstIntPtr, void*, float), (override));
  MOCK_METHOD(VstInt32, canDo, (char*), (override));
  MOCK_METHOD(VstInt32, getTailSize, (), (override));
  MOCK_METHOD(bool, getParameterProperties, (VstInt32, VstParameterProperties*), (override));
  MOCK_METHOD(VstInt32, getVstVersion, (), (override));
  MOCK_METHOD(bool, getSpeakerArrangement, (VstSpeakerArrangement**, VstSpeakerArrangement**),
              (override));
  MOCK_METHOD(VstInt32, startProcess, (), (override));
  MOCK_METHOD(VstInt32, stopProcess, (), (override));
  MOCK_METHOD(bool, setPanLaw, (VstInt32, float), (override));
  MOCK_METHOD(bool, beginSetProgram, (), (override));
  MOCK_METHOD(bool, endSetProgram, (), (override));
  MOCK_METHOD(VstInt32, beginLoadBank, (void*), (override));
  MOCK_METHOD(VstInt32, beginLoadProgram, (void*), (override));
  MOCK_METHOD(bool, setProcessPrecision, (VstInt32), (override));
  MOCK_METHOD(VstInt32, getNumMidiInputChannels, (), (override));
  MOCK_METHOD(VstInt32, getNumMidiOutputChannels, (), (override));
};

class MockKeyEditor : public AEffEditor {
 public:
  using AEffEditor::AEffEditor;
  MOCK_METHOD(bool, onKeyDown, (VstKeyCode&), (override));
  MOCK_METHOD(bool, onKeyUp, (VstKeyCode&), (override));
  MOCK_METHOD(bool, setKnobMode, (int), (override));
};

class AudioEffectXTest : public testing::Test {
 protected:
  RecordingHost host;
  StrictMock<MockEffectX> effect;
  char text[64] = "host's text";
};

TEST_F(AudioEffectXTest, AnswersFlagsAsOneOrZero) {
  EXPECT_CALL(effect, canParameterBeAutomated(3)).WillOnce(Return(true)).WillOnce(Return(false));
  EXPECT_EQ(effect.send(effCanBeAutomated, 3), 1);
  EXPECT_EQ(effect.send(effCanBeAutomated, 3), 0);
}

TEST_F(AudioEffectXTest, HandsEventsAndTextsToTheirOperations) {
  EXPECT_CALL(effect, processEvents(reinterpret_cast<VstEvents*>(text))).WillOnce(Return(1));
  EXPECT_CALL(effect, string2parameter(2, text)).WillOnce(Return(true));
  EXPECT_CALL(effect, string2parameter(2, nullptr)).WillOnce(Return(true));
  EXPECT_CALL(effect, getProgramNameIndexed(-1, 9, text)).WillOnce(Return(true));
  EXPECT_EQ(effect.send(effProcessEvents, 0, 0, text), 1);
  EXPECT_EQ(effect.send(effString2Parameter, 2, 0, text), 1);
  EXPECT_EQ(effect.send(effString2Parameter, 2, 0, nullptr), 1) << "a null text only asks";
  EXPECT_EQ(effect.send(effGetProgramNameIndexed, 9, -1, text), 1);
}

TEST_F(AudioEffectXTest, HandsRecordsToTheirOperations) {
  VstPinProperties pin{};
  VstParameterProperties properties{};
  VstSpeakerArrangement in{};
  VstSpeakerArrangement out{};
  VstSpeakerArrangement* pointers[2] = {};
  EXPECT_CALL(effect, getInputProperties(-1, &pin)).WillOnce(Return(true));
  EXPECT_CALL(effect, getOutputProperties(2, &pin)).WillOnce(Return(true));
  EXPECT_CALL(effect, getParameterProperties(4, &properties)).WillOnce(Return(true));
  EXPECT_CALL(effect, setSpeakerArrangement(&in, &out)).WillOnce(Return(true));
  EXPECT_CALL(effect, getSpeakerArrangement(&pointers[0], &pointers[1])).WillOnce(Return(true));
  EXPECT_EQ(effect.send(effGetInputProperties, -1, 0, &pin), 1);
  EXPECT_EQ(effect.send(effGetOutputProperties, 2, 0, &pin), 1);
  EXPECT_EQ(effect.send(effGetParameterProperties, 4, 0, &properties), 1);
  EXPECT_EQ(effect.send(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out), 1);
  EXPECT_EQ(effect.send(effGetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&pointers[0]),
                        &pointers[1]),
            1);
}

TEST_F(AudioEffectXTest, HandsNamesAndNumbersToTheirOperations) {
  EXPECT_CALL(effect, getPlugCategory()).WillOnce(Return(kPlugCategRestoration));
  EXPECT_CALL(effect, getEffectName(text)).WillOnce(Return(true));
  EXPECT_CALL(effect, getVendorString(text)).WillOnce(Return(true));
  EXPECT_CALL(effect, getProductString(text)).WillOnce(Return(true));
  EXPECT_CALL(effect, getVendorVersion()).WillOnce(Return(77));
  EXPECT_CALL(effect, vendorSpecific(1, 2, text, 0.5F)).WillOnce(Return(78));
  EXPECT_CALL(effect, canDo(text)).WillOnce(Return(-1));
  EXPECT_CALL(effect, getTailSize()).WillOnce(Return(79));
  EXPECT_CALL(effect, getVstVersion()).WillOnce(Return(2300));
  EXPECT_EQ(effect.send(effGetPlugCategory), 8);
  EXPECT_EQ(effect.send(effGetEffectName, 0, 0, text), 1);
  EXPECT_EQ(effect.send(effGetVendorString, 0, 0, text), 1);
  EXPECT_EQ(effect.send(effGetProductString, 0, 0, text), 1);
  EXPECT_EQ(effect.send(effGetVendorVersion), 77);
  EXPECT_EQ(effect.send(effVendorSpecific, 1, 2, text, 0.5F), 78);
  EXPECT_EQ(effect.send(effCanDo, 0, 0, text), -1);
  EXPECT_EQ(effect.send(effGetTailSize), 79);
  EXPECT_EQ(effect.send(effGetVstVersion), 2300);
}

TEST_F(AudioEffectXTest, HandsTheRestToTheirOperations) {
  EXPECT_CALL(effect, setBypass(true)).WillOnce(Return(true));
  EXPECT_CALL(effect, setBypass(false)).WillOnce(Return(true));
  EXPECT_CALL(effect, startProcess()).WillOnce(Return(1));
  EXPECT_CALL(effect, stopProcess()).WillOnce(Return(2));
  EXPECT_CALL(effect, setPanLaw(1, 0.25F)).WillOnce(Return(true));
  EXPECT_CALL(effect, beginSetProgram()).WillOnce(Return(true));
  EXPECT_CALL(effect, endSetProgram()).WillOnce(Return(true));
  EXPECT_CALL(effect, beginLoadBank(text)).WillOnce(Return(-1));
  EXPECT_CALL(effect, beginLoadProgram(text)).WillOnce(Return(1));
  EXPECT_CALL(effect, setProcessPrecision(1)).WillOnce(Return(true));
  EXPECT_CALL(effect, getNumMidiInputChannels()).WillOnce(Return(15));
  EXPECT_CALL(effect, getNumMidiOutputChannels()).WillOnce(Return(16));
  EXPECT_EQ(effect.send(effSetBypass, 0, 5), 1);
  EXPECT_EQ(effect.send(effSetBypass, 0, 0), 1);
  EXPECT_EQ(effect.send(effStartProcess), 1);
  EXPECT_EQ(effect.send(effStopProcess), 2);
  EXPECT_EQ(effect.send(effSetPanLaw, 0, 1, nullptr, 0.25F), 1);
  EXPECT_EQ(effect.send(effBeginSetProgram), 1);
  EXPECT_EQ(effect.send(effEndSetProgram), 1);
  EXPECT_EQ(effect.send(effBeginLoadBank, 0, 0, text), -1);
  EXPECT_EQ(effect.send(effBeginLoadProgram, 0, 0, text), 1);
  EXPECT_EQ(effect.send(effSetProcessPrecision, 0, 1), 1);
  EXPECT_EQ(effect.send(effGetNumMidiInputChannels), 15);
  EXPECT_EQ(effect.send(effGetNumMidiOutputChannels), 16);
}

TEST_F(AudioEffectXTest, AsksNothingOfTheEffectWhereTheHostGivesNoBuffer) {
  for (const VstInt32 opcode :
       {effGetProgramNameIndexed, effGetInputProperties, effGetOutputProperties, effGetEffectName,
        effGetVendorString, effGetProductString, effCanDo, effGetParameterProperties}) {
    EXPECT_EQ(effect.send(opcode), 0) << opcode;
  }
}

TEST_F(AudioEffectXTest, TakesBlockSizeAndSampleRateInOneCall) {
  effect.send(effSetBlockSizeAndSampleRate, 0, 64, nullptr, 22050.0F);
  EXPECT_EQ(effect.getBlockSize(), 64);
  EXPECT_EQ(effect.getSampleRate(), 22050.0F);
}

TEST_F(AudioEffectXTest, HandsEveryLowerOpcodeToTheBase) {
  EXPECT_EQ(effect.send(effIdentify), kEffectIdentity);
  effect.send(effSetSampleRate, 0, 0, nullptr, 8000.0F);
  EXPECT_EQ(effect.getSampleRate(), 8000.0F);
}

TEST_F(AudioEffectXTest, GivesTheEditorKeysAsRecords) {
  auto* editor = new StrictMock<MockKeyEditor>(&effect);
  effect.setEditor(editor);
  const auto key = [](VstInt32 character, int virt, int modifier) {
    return testing::AllOf(Field(&VstKeyCode::character, character), Field(&VstKeyCode::virt, virt),
                          Field(&VstKeyCode::modifier, modifier));
  };
  EXPECT_CALL(*editor, onKeyDown(key('a', 0, 5))).WillOnce(Return(true));
  EXPECT_CALL(*editor, onKeyUp(key(0, 19, 8))).WillOnce(Return(true)).WillOnce(Return(false));
  EXPECT_CALL(*editor, setKnobMode(2)).WillOnce(Return(true));
  EXPECT_EQ(effect.send(effEditKeyDown, 'a', 0, nullptr, 5.0F), 1);
  EXPECT_EQ(effect.send(effEditKeyUp, 0, 19, nullptr, 8.0F), 1);
  EXPECT_EQ(effect.send(effEditKeyUp, 0, 19, nullptr, 8.0F), 0);
  EXPECT_EQ(effect.send(effSetEditKnobMode, 0, 2), 1);
}

TEST_F(AudioEffectXTest, TakesModifiersThatAreNoByteAsNone) {
  auto* editor = new StrictMock<MockKeyEditor>(&effect);
  effect.setEditor(editor);
  EXPECT_CALL(*editor, onKeyDown(Field(&VstKeyCode::modifier, 0))).Times(3);
  for (const float modifiers : {-1.0F, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
    effect.send(effEditKeyDown, 'a', 0, nullptr, modifiers);
  }
}

TEST(AudioEffectX, KeepsTheInterfacesDefaultAnswers) {
  RecordingHost host;
  PlainEffectX effect;
  char text[64] = "untouched";
  VstPinProperties pin{};
  for (VstInt32 opcode = effProcessEvents; opcode <= effGetNumMidiOutputChannels; ++opcode) {
    if (opcode == effCanBeAutomated || opcode == effGetVstVersion ||
        opcode == effSetBlockSizeAndSampleRate)
      continue;
    EXPECT_EQ(effect.send(opcode, 0, 0,
                          opcode == effGetInputProperties ? static_cast<void*>(&pin) : text),
              0)
        << opcode;
  }
  EXPECT_EQ(effect.send(effCanBeAutomated), 1);
  EXPECT_EQ(effect.send(effGetVstVersion), 2400);
  EXPECT_STREQ(text, "untouched");
  EXPECT_TRUE(host.calls.empty());
}

TEST(AudioEffectX, AnswersZeroToOpcodesThatAreNotInTheInterface) {
  RecordingHost host;
  PlainEffectX effect;
  for (const VstInt32 opcode : {-2147483647 - 1, -1, 28, 30, 31, 32, 36, 37, 46, 53, 54, 55, 57, 80,
                                100289, 100303, 100304, 2147483647}) {
    EXPECT_EQ(effect.send(opcode), 0) << opcode;
  }
}

class HostQuestions : public testing::Test {
 protected:
  // The one call that the host has got.
  const RecordingHost::Call& only() const {
    EXPECT_EQ(host.calls.size(), 1U);
    return host.calls.at(0);
  }

  RecordingHost host;
  PlainEffectX effect;
};

TEST_F(HostQuestions, BeginAndEndEditNameTheParameter) {
  host.answers[audioMasterBeginEdit] = 1;
  EXPECT_TRUE(effect.beginEdit(3));
  EXPECT_FALSE(effect.endEdit(4));
  ASSERT_EQ(host.calls.size(), 2U);
  EXPECT_EQ(host.calls[0].opcode, audioMasterBeginEdit);
  EXPECT_EQ(host.calls[0].index, 3);
  EXPECT_EQ(host.calls[1].opcode, audioMasterEndEdit);
  EXPECT_EQ(host.calls[1].index, 4);
}

TEST_F(HostQuestions, BeginAndEndEditReturnWhetherTheHostTookThem) {
  for (const VstIntPtr answer : {VstIntPtr{1}, VstIntPtr{-1}, VstIntPtr{0}}) {
    host.answers = {{audioMasterBeginEdit, answer}};
    EXPECT_EQ(effect.beginEdit(0), answer != 0);
    EXPECT_FALSE(effect.endEdit(0));
    host.answers = {{audioMasterEndEdit, answer}};
    EXPECT_EQ(effect.endEdit(0), answer != 0);
    EXPECT_FALSE(effect.beginEdit(0));
  }
}

TEST_F(HostQuestions, UpdateDisplayAndIoChangedCarryNothing) {
  host.answers[audioMasterUpdateDisplay] = 1;
  EXPECT_TRUE(effect.updateDisplay());
  EXPECT_FALSE(effect.ioChanged());
  EXPECT_THAT(host.opcodes(), ElementsAre(audioMasterUpdateDisplay, audioMasterIOChanged));
  EXPECT_EQ(host.calls[0].effect, effect.getAeffect());
}

TEST_F(HostQuestions, SizeWindowPutsTheWidthIntoTheIndex) {
  host.answers[audioMasterSizeWindow] = 1;
  EXPECT_TRUE(effect.sizeWindow(640, 480));
  EXPECT_EQ(only().opcode, audioMasterSizeWindow);
  EXPECT_EQ(only().index, 640);
  EXPECT_EQ(only().value, 480);
}

TEST_F(HostQuestions, UpdateSampleRateKeepsAnAnswerAboveZero) {
  host.answers[audioMasterGetSampleRate] = 48000;
  EXPECT_EQ(effect.updateSampleRate(), 48000.0F);
  EXPECT_EQ(effect.getSampleRate(), 48000.0F);
  for (const VstIntPtr useless : {0, -1}) {
    host.answers[audioMasterGetSampleRate] = useless;
    EXPECT_EQ(effect.updateSampleRate(), 48000.0F);
  }
}

TEST_F(HostQuestions, UpdateBlockSizeKeepsAnAnswerAboveZero) {
  host.answers[audioMasterGetBlockSize] = 512;
  EXPECT_EQ(effect.updateBlockSize(), 512);
  EXPECT_EQ(effect.getBlockSize(), 512);
  for (const VstIntPtr useless : {0, -1}) {
    host.answers[audioMasterGetBlockSize] = useless;
    EXPECT_EQ(effect.updateBlockSize(), 512);
  }
}

TEST_F(HostQuestions, LatenciesLevelsAndVersionsAreTheHostsNumbers) {
  host.answers[audioMasterGetInputLatency] = 31;
  host.answers[audioMasterGetOutputLatency] = 32;
  host.answers[audioMasterGetCurrentProcessLevel] = 2;
  host.answers[audioMasterGetAutomationState] = 4;
  host.answers[audioMasterGetVendorVersion] = 900;
  host.answers[audioMasterGetLanguage] = 1;
  EXPECT_EQ(effect.getInputLatency(), 31);
  EXPECT_EQ(effect.getOutputLatency(), 32);
  EXPECT_EQ(effect.getCurrentProcessLevel(), 2);
  EXPECT_EQ(effect.getAutomationState(), 4);
  EXPECT_EQ(effect.getHostVendorVersion(), 900);
  EXPECT_EQ(effect.getHostLanguage(), 1);
}

TEST_F(HostQuestions, TimeInfoIsAskedWithTheFilterAsValue) {
  VstTimeInfo time{};
  EXPECT_EQ(effect.getTimeInfo(0xFFFF), nullptr);
  host.answers[audioMasterGetTime] = reinterpret_cast<VstIntPtr>(&time);
  host.calls.clear();
  EXPECT_EQ(effect.getTimeInfo(0xFFFF), &time);
  EXPECT_EQ(only().value, 0xFFFF);
  EXPECT_EQ(only().index, 0);
}

TEST_F(HostQuestions, TextsGoThroughThePointer) {
  char text[64] = "";
  host.answers[audioMasterGetVendorString] = 1;
  EXPECT_TRUE(effect.getHostVendorString(text));
  EXPECT_FALSE(effect.getHostProductString(text));
  ASSERT_EQ(host.calls.size(), 2U);
  EXPECT_EQ(host.calls[0].opcode, audioMasterGetVendorString);
  EXPECT_EQ(host.calls[0].ptr, text);
  EXPECT_EQ(host.calls[1].opcode, audioMasterGetProductString);
}

TEST_F(HostQuestions, CanDoPassesTheTextAndKeepsNegativeAnswers) {
  const char* const question = "sizeWindow";
  host.answers[audioMasterCanDo] = -1;
  EXPECT_EQ(effect.canHostDo(question), -1);
  EXPECT_EQ(only().opcode, audioMasterCanDo);
  EXPECT_STREQ(static_cast<const char*>(only().ptr), question);
}

TEST_F(HostQuestions, VendorSpecificPassesEverything) {
  int ours = 0;
  host.answers[audioMasterVendorSpecific] = 5;
  EXPECT_EQ(effect.hostVendorSpecific(1, 2, &ours, 0.5F), 5);
  EXPECT_EQ(only().index, 1);
  EXPECT_EQ(only().value, 2);
  EXPECT_EQ(only().ptr, &ours);
  EXPECT_EQ(only().opt, 0.5F);
}

TEST_F(HostQuestions, DirectoryIsAPointer) {
  char path[] = "/somewhere";
  EXPECT_EQ(effect.getDirectory(), nullptr);
  host.answers[audioMasterGetDirectory] = reinterpret_cast<VstIntPtr>(path);
  EXPECT_EQ(effect.getDirectory(), path);
}

}  // namespace
