// The numbers and layouts that a plug-in and a host must agree on, against the published table.
#include "plugin/vst24.h"

#include <gtest/gtest.h>

#include "plugin/vstkeycode.h"

namespace {

TEST(Vst24, PutsTheFirstOfFourCharactersIntoTheHighestByte) {
  EXPECT_EQ(kEffectMagic, 0x56737450);
  EXPECT_EQ(kEffectIdentity, 0x4E764566);
  EXPECT_EQ(vstFourChars('T', 'l', 'v', 'n'), 0x546C766E);
}

TEST(Vst24, TakesCharactersAbove127AsUnsignedBytes) {
  EXPECT_EQ(static_cast<std::uint32_t>(vstFourChars('\xFF', '\x80', '\x01', '\xFE')), 0xFF8001FEU);
}

TEST(Vst24, NumbersTheBasicOpcodesAsPublished) {
  const VstInt32 inOrder[] = {effOpen,          effClose,           effSetProgram,
                              effGetProgram,    effSetProgramName,  effGetProgramName,
                              effGetParamLabel, effGetParamDisplay, effGetParamName};
  VstInt32 number = 0;
  for (const VstInt32 opcode : inOrder) EXPECT_EQ(opcode, number++);
  EXPECT_EQ(effSetSampleRate, 10);
  EXPECT_EQ(effSetBlockSize, 11);
  EXPECT_EQ(effMainsChanged, 12);
  EXPECT_EQ(effEditGetRect, 13);
  EXPECT_EQ(effEditOpen, 14);
  EXPECT_EQ(effEditClose, 15);
  EXPECT_EQ(effEditIdle, 19);
  EXPECT_EQ(effIdentify, 22);
  EXPECT_EQ(effGetChunk, 23);
  EXPECT_EQ(effSetChunk, 24);
}

TEST(Vst24, NumbersTheExtendedOpcodesAsPublished) {
  EXPECT_EQ(effProcessEvents, 25);
  EXPECT_EQ(effCanBeAutomated, 26);
  EXPECT_EQ(effString2Parameter, 27);
  EXPECT_EQ(effGetProgramNameIndexed, 29);
  EXPECT_EQ(effGetInputProperties, 33);
  EXPECT_EQ(effGetOutputProperties, 34);
  EXPECT_EQ(effGetPlugCategory, 35);
  EXPECT_EQ(effOfflineNotify, 38);
  EXPECT_EQ(effOfflinePrepare, 39);
  EXPECT_EQ(effOfflineRun, 40);
  EXPECT_EQ(effProcessVarIo, 41);
  EXPECT_EQ(effSetSpeakerArrangement, 42);
  EXPECT_EQ(effSetBlockSizeAndSampleRate, 43);
  EXPECT_EQ(effSetBypass, 44);
  EXPECT_EQ(effGetEffectName, 45);
  EXPECT_EQ(effGetVendorString, 47);
  EXPECT_EQ(effGetProductString, 48);
  EXPECT_EQ(effGetVendorVersion, 49);
  EXPECT_EQ(effVendorSpecific, 50);
  EXPECT_EQ(effCanDo, 51);
  EXPECT_EQ(effGetTailSize, 52);
  EXPECT_EQ(effGetParameterProperties, 56);
  EXPECT_EQ(effGetVstVersion, 58);
  EXPECT_EQ(effEditKeyDown, 59);
  EXPECT_EQ(effEditKeyUp, 60);
  EXPECT_EQ(effSetEditKnobMode, 61);
  EXPECT_EQ(effGetMidiProgramName, 62);
  EXPECT_EQ(effGetMidiKeyName, 66);
  EXPECT_EQ(effBeginSetProgram, 67);
  EXPECT_EQ(effEndSetProgram, 68);
  EXPECT_EQ(effGetSpeakerArrangement, 69);
  EXPECT_EQ(effShellGetNextPlugin, 70);
  EXPECT_EQ(effStartProcess, 71);
  EXPECT_EQ(effStopProcess, 72);
  EXPECT_EQ(effSetTotalSampleToProcess, 73);
  EXPECT_EQ(effSetPanLaw, 74);
  EXPECT_EQ(effBeginLoadBank, 75);
  EXPECT_EQ(effBeginLoadProgram, 76);
  EXPECT_EQ(effSetProcessPrecision, 77);
  EXPECT_EQ(effGetNumMidiInputChannels, 78);
  EXPECT_EQ(effGetNumMidiOutputChannels, 79);
}

TEST(Vst24, NumbersTheHostOpcodesAsPublished) {
  EXPECT_EQ(audioMasterAutomate, 0);
  EXPECT_EQ(audioMasterVersion, 1);
  EXPECT_EQ(audioMasterCurrentId, 2);
  EXPECT_EQ(audioMasterIdle, 3);
  EXPECT_EQ(audioMasterPinConnected, 4);
  EXPECT_EQ(audioMasterGetTime, 7);
  EXPECT_EQ(audioMasterProcessEvents, 8);
  EXPECT_EQ(audioMasterIOChanged, 13);
  EXPECT_EQ(audioMasterSizeWindow, 15);
  EXPECT_EQ(audioMasterGetSampleRate, 16);
  EXPECT_EQ(audioMasterGetBlockSize, 17);
  EXPECT_EQ(audioMasterGetInputLatency, 18);
  EXPECT_EQ(audioMasterGetOutputLatency, 19);
  EXPECT_EQ(audioMasterGetCurrentProcessLevel, 23);
  EXPECT_EQ(audioMasterGetAutomationState, 24);
  EXPECT_EQ(audioMasterGetVendorString, 32);
  EXPECT_EQ(audioMasterGetProductString, 33);
  EXPECT_EQ(audioMasterGetVendorVersion, 34);
  EXPECT_EQ(audioMasterVendorSpecific, 35);
  EXPECT_EQ(audioMasterCanDo, 37);
  EXPECT_EQ(audioMasterGetLanguage, 38);
  EXPECT_EQ(audioMasterGetDirectory, 41);
  EXPECT_EQ(audioMasterUpdateDisplay, 42);
  EXPECT_EQ(audioMasterBeginEdit, 43);
  EXPECT_EQ(audioMasterEndEdit, 44);
}

TEST(Vst24, GivesEveryFlagItsPublishedBit) {
  EXPECT_EQ(effFlagsHasEditor, 1);
  EXPECT_EQ(effFlagsCanReplacing, 16);
  EXPECT_EQ(effFlagsProgramChunks, 32);
  EXPECT_EQ(effFlagsIsSynth, 256);
  EXPECT_EQ(effFlagsNoSoundInStop, 512);
  EXPECT_EQ(effFlagsCanDoubleReplacing, 4096);
  EXPECT_EQ(kVstPinIsActive, 1);
  EXPECT_EQ(kVstPinIsStereo, 2);
  EXPECT_EQ(kVstPinUseSpeaker, 4);
  EXPECT_EQ(kVstParameterIsSwitch, 1);
  EXPECT_EQ(kVstParameterUsesIntegerMinMax, 2);
  EXPECT_EQ(kVstParameterUsesFloatStep, 4);
  EXPECT_EQ(kVstParameterUsesIntStep, 8);
}

// The effect's own record is asserted where it is defined; these are the records
// behind the pointers.
TEST(Vst24, LaysOutTheRecordsBehindThePointersAsPublished) {
  EXPECT_EQ(offsetof(ERect, bottom), 4U);
  EXPECT_EQ(offsetof(VstKeyCode, virt), 4U);
  EXPECT_EQ(offsetof(VstPinProperties, flags), 64U);
  EXPECT_EQ(offsetof(VstPinProperties, arrangementType), 68U);
  EXPECT_EQ(offsetof(VstPinProperties, shortLabel), 72U);
  EXPECT_EQ(offsetof(VstPinProperties, future), 80U);
  EXPECT_EQ(offsetof(VstParameterProperties, label), 12U);
  EXPECT_EQ(offsetof(VstParameterProperties, flags), 76U);
  EXPECT_EQ(offsetof(VstParameterProperties, shortLabel), 96U);
  EXPECT_EQ(offsetof(VstParameterProperties, displayIndex), 104U);
  EXPECT_EQ(offsetof(VstParameterProperties, categoryLabel), 112U);
  EXPECT_EQ(offsetof(VstSpeakerArrangement, numChannels), 4U);
  EXPECT_EQ(offsetof(VstSpeakerArrangement, speakers), 8U);
  EXPECT_EQ(offsetof(VstSpeakerProperties, name), 16U);
  EXPECT_EQ(offsetof(VstSpeakerProperties, type), 80U);
  EXPECT_EQ(offsetof(VstEvents, events), 16U);
  EXPECT_EQ(offsetof(VstEvent, data), 16U);
  EXPECT_EQ(offsetof(VstTimeInfo, sampleRate), 8U);
  EXPECT_EQ(offsetof(VstTimeInfo, timeSigNumerator), 64U);
  EXPECT_EQ(offsetof(VstTimeInfo, flags), 84U);
}

}  // namespace
