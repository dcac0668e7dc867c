// The VST 2.4 binary interface: types, records, opcodes and flags that plug-in and host agree on.
#pragma once

#include <cstddef>
#include <cstdint>

using VstInt16 = std::int16_t;
using VstInt32 = std::int32_t;
using VstIntPtr = std::intptr_t;

struct AEffect;

// Four characters in one word, the first in the highest byte: 'V','s','t','P' is 0x56737450.
constexpr VstInt32 vstFourChars(char a, char b, char c, char d) {
  const auto byte = [](char x) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(x));
  };
  return static_cast<VstInt32>((byte(a) << 24) | (byte(b) << 16) | (byte(c) << 8) | byte(d));
}

constexpr VstInt32 kEffectMagic = vstFourChars('V', 's', 't', 'P');
constexpr VstInt32 kEffectIdentity = vstFourChars('N', 'v', 'E', 'f');  // answer to effIdentify
constexpr VstInt32 kVstVersion = 2400;

// Text sizes with their terminating zero. Hosts give at least these; parameter texts often get 64
// or more.
constexpr int kVstMaxProgNameLen = 24;
constexpr int kVstMaxParamStrLen = 8;
constexpr int kVstMaxEffectNameLen = 32;
constexpr int kVstMaxVendorStrLen = 64;
constexpr int kVstMaxProductStrLen = 64;
constexpr int kVstMaxLabelLen = 64;
constexpr int kVstMaxShortLabelLen = 8;

using audioMasterCallback = VstIntPtr (*)(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                          VstIntPtr value, void* ptr, float opt);
using AEffectDispatcherProc = VstIntPtr (*)(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                            VstIntPtr value, void* ptr, float opt);
using AEffectProcessProc = void (*)(AEffect* effect, float** inputs, float** outputs,
                                    VstInt32 sampleFrames);
using AEffectProcessDoubleProc = void (*)(AEffect* effect, double** inputs, double** outputs,
                                          VstInt32 sampleFrames);
using AEffectSetParameterProc = void (*)(AEffect* effect, VstInt32 index, float value);
using AEffectGetParameterProc = float (*)(AEffect* effect, VstInt32 index);

// What the entry point returns: everything a host may touch of an effect.
struct AEffect {
  VstInt32 magic;
  AEffectDispatcherProc dispatcher;
  AEffectProcessProc process;  // deprecated: adds to the outputs
  AEffectSetParameterProc setParameter;
  AEffectGetParameterProc getParameter;
  VstInt32 numPrograms;
  VstInt32 numParams;
  VstInt32 numInputs;
  VstInt32 numOutputs;
  VstInt32 flags;
  VstIntPtr resvd1;
  VstIntPtr resvd2;
  VstInt32 initialDelay;  // frames
  VstInt32 realQualities;
  VstInt32 offQualities;
  float ioRatio;
  void* object;
  void* user;
  VstInt32 uniqueID;
  VstInt32 version;
  AEffectProcessProc processReplacing;
  AEffectProcessDoubleProc processDoubleReplacing;
  char future[56];
};

enum VstAEffectFlags : VstInt32 {
  effFlagsHasEditor = 1 << 0,
  effFlagsCanReplacing = 1 << 4,
  effFlagsProgramChunks = 1 << 5,
  effFlagsIsSynth = 1 << 8,
  effFlagsNoSoundInStop = 1 << 9,
  effFlagsCanDoubleReplacing = 1 << 12,
};

// Host to plug-in.
enum AEffectOpcodes : VstInt32 {
  effOpen = 0,
  effClose = 1,
  effSetProgram = 2,
  effGetProgram = 3,
  effSetProgramName = 4,
  effGetProgramName = 5,
  effGetParamLabel = 6,
  effGetParamDisplay = 7,
  effGetParamName = 8,
  effSetSampleRate = 10,
  effSetBlockSize = 11,
  effMainsChanged = 12,
  effEditGetRect = 13,
  effEditOpen = 14,
  effEditClose = 15,
  effEditIdle = 19,
  effIdentify = 22,
  effGetChunk = 23,
  effSetChunk = 24,
  effProcessEvents = 25,
  effCanBeAutomated = 26,
  effString2Parameter = 27,
  effGetProgramNameIndexed = 29,
  effGetInputProperties = 33,
  effGetOutputProperties = 34,
  effGetPlugCategory = 35,
  effOfflineNotify = 38,
  effOfflinePrepare = 39,
  effOfflineRun = 40,
  effProcessVarIo = 41,
  effSetSpeakerArrangement = 42,
  effSetBlockSizeAndSampleRate = 43,
  effSetBypass = 44,
  effGetEffectName = 45,
  effGetVendorString = 47,
  effGetProductString = 48,
  effGetVendorVersion = 49,
  effVendorSpecific = 50,
  effCanDo = 51,
  effGetTailSize = 52,
  effGetParameterProperties = 56,
  effGetVstVersion = 58,
  effEditKeyDown = 59,
  effEditKeyUp = 60,
  effSetEditKnobMode = 61,
  effGetMidiProgramName = 62,
  effGetCurrentMidiProgram = 63,
  effGetMidiProgramCategory = 64,
  effHasMidiProgramsChanged = 65,
  effGetMidiKeyName = 66,
  effBeginSetProgram = 67,
  effEndSetProgram = 68,
  effGetSpeakerArrangement = 69,
  effShellGetNextPlugin = 70,
  effStartProcess = 71,
  effStopProcess = 72,
  effSetTotalSampleToProcess = 73,
  effSetPanLaw = 74,
  effBeginLoadBank = 75,
  effBeginLoadProgram = 76,
  effSetProcessPrecision = 77,
  effGetNumMidiInputChannels = 78,
  effGetNumMidiOutputChannels = 79,
};

// Plug-in to host.
enum AudioMasterOpcodes : VstInt32 {
  audioMasterAutomate = 0,
  audioMasterVersion = 1,
  audioMasterCurrentId = 2,
  audioMasterIdle = 3,
  audioMasterPinConnected = 4,
  audioMasterGetTime = 7,
  audioMasterProcessEvents = 8,
  audioMasterIOChanged = 13,
  audioMasterSizeWindow = 15,
  audioMasterGetSampleRate = 16,
  audioMasterGetBlockSize = 17,
  audioMasterGetInputLatency = 18,
  audioMasterGetOutputLatency = 19,
  audioMasterGetCurrentProcessLevel = 23,
  audioMasterGetAutomationState = 24,
  audioMasterGetVendorString = 32,
  audioMasterGetProductString = 33,
  audioMasterGetVendorVersion = 34,
  audioMasterVendorSpecific = 35,
  audioMasterCanDo = 37,
  audioMasterGetLanguage = 38,
  audioMasterGetDirectory = 41,
  audioMasterUpdateDisplay = 42,
  audioMasterBeginEdit = 43,
  audioMasterEndEdit = 44,
  audioMasterOpenFileSelector = 45,
  audioMasterCloseFileSelector = 46,
};

// Window rectangle in pixels.
struct ERect {
  VstInt16 top;
  VstInt16 left;
  VstInt16 bottom;
  VstInt16 right;
};

struct VstKeyCode;  // see vstkeycode.h

struct VstPinProperties {
  char label[kVstMaxLabelLen];
  VstInt32 flags;
  VstInt32 arrangementType;
  char shortLabel[kVstMaxShortLabelLen];
  char future[48];
};

enum VstPinPropertiesFlags : VstInt32 {
  kVstPinIsActive = 1,
  kVstPinIsStereo = 2,
  kVstPinUseSpeaker = 4,
};

struct VstParameterProperties {
  float stepFloat;
  float smallStepFloat;
  float largeStepFloat;
  char label[kVstMaxLabelLen];
  VstInt32 flags;
  VstInt32 minInteger;
  VstInt32 maxInteger;
  VstInt32 stepInteger;
  VstInt32 largeStepInteger;
  char shortLabel[kVstMaxShortLabelLen];
  VstInt16 displayIndex;
  VstInt16 category;
  VstInt16 numParametersInCategory;
  VstInt16 reserved;
  char categoryLabel[24];
  char future[16];
};

enum VstParameterFlags : VstInt32 {
  kVstParameterIsSwitch = 1,
  kVstParameterUsesIntegerMinMax = 2,
  kVstParameterUsesFloatStep = 4,
  kVstParameterUsesIntStep = 8,
};

struct VstSpeakerProperties {
  float azimuth;
  float elevation;
  float radius;
  float reserved;
  char name[64];
  VstInt32 type;
  char future[28];
};

struct VstSpeakerArrangement {
  VstInt32 type;
  VstInt32 numChannels;
  VstSpeakerProperties speakers[8];
};

enum VstSpeakerArrangementType : VstInt32 {
  kSpeakerArrUserDefined = -2,
  kSpeakerArrEmpty = -1,
  kSpeakerArrMono = 0,
  kSpeakerArrStereo = 1,
};

struct VstEvent {
  VstInt32 type;  // 1 MIDI, 6 system exclusive
  VstInt32 byteSize;
  VstInt32 deltaFrames;
  VstInt32 flags;
  char data[16];
};

struct VstEvents {
  VstInt32 numEvents;
  VstIntPtr reserved;
  VstEvent* events[2];  // in truth numEvents of them
};

struct VstTimeInfo {
  double samplePos;
  double sampleRate;
  double nanoSeconds;
  double ppqPos;
  double tempo;
  double barStartPos;
  double cycleStartPos;
  double cycleEndPos;
  VstInt32 timeSigNumerator;
  VstInt32 timeSigDenominator;
  VstInt32 smpteOffset;
  VstInt32 smpteFrameRate;
  VstInt32 samplesToNextClock;
  VstInt32 flags;
};

enum VstPlugCategory : VstInt32 {
  kPlugCategUnknown = 0,
  kPlugCategEffect = 1,
  kPlugCategSynth = 2,
  kPlugCategAnalysis = 3,
  kPlugCategMastering = 4,
  kPlugCategSpacializer = 5,
  kPlugCategRoomFx = 6,
  kPlugSurroundFx = 7,
  kPlugCategRestoration = 8,
  kPlugCategOfflineProcess = 9,
  kPlugCategShell = 10,
  kPlugCategGenerator = 11,
};

// Not of the interface: what our window asks its host by audioMasterVendorSpecific, with its
// effect's uniqueID as index and this as value. ptr: a float, into which a host that knows the
// question writes the scale at which it wants the window, and returns 1. Others return 0.
constexpr VstInt32 kWindowScaleWanted = vstFourChars('W', 'S', 'c', 'l');

// The layout is the contract: 64-bit, natural alignment.
static_assert(sizeof(void*) == 8);
static_assert(sizeof(AEffect) == 192);
static_assert(offsetof(AEffect, magic) == 0);
static_assert(offsetof(AEffect, dispatcher) == 8);
static_assert(offsetof(AEffect, process) == 16);
static_assert(offsetof(AEffect, setParameter) == 24);
static_assert(offsetof(AEffect, getParameter) == 32);
static_assert(offsetof(AEffect, numPrograms) == 40);
static_assert(offsetof(AEffect, numParams) == 44);
static_assert(offsetof(AEffect, numInputs) == 48);
static_assert(offsetof(AEffect, numOutputs) == 52);
static_assert(offsetof(AEffect, flags) == 56);
static_assert(offsetof(AEffect, resvd1) == 64);
static_assert(offsetof(AEffect, resvd2) == 72);
static_assert(offsetof(AEffect, initialDelay) == 80);
static_assert(offsetof(AEffect, realQualities) == 84);
static_assert(offsetof(AEffect, offQualities) == 88);
static_assert(offsetof(AEffect, ioRatio) == 92);
static_assert(offsetof(AEffect, object) == 96);
static_assert(offsetof(AEffect, user) == 104);
static_assert(offsetof(AEffect, uniqueID) == 112);
static_assert(offsetof(AEffect, version) == 116);
static_assert(offsetof(AEffect, processReplacing) == 120);
static_assert(offsetof(AEffect, processDoubleReplacing) == 128);
static_assert(offsetof(AEffect, future) == 136);
static_assert(sizeof(ERect) == 8);
static_assert(sizeof(VstPinProperties) == 128);
static_assert(sizeof(VstParameterProperties) == 152);
static_assert(sizeof(VstSpeakerProperties) == 112);
static_assert(sizeof(VstSpeakerArrangement) == 904);
static_assert(sizeof(VstEvent) == 32);
static_assert(sizeof(VstTimeInfo) == 88);
