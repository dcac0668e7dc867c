// What real hosts were seen to call, in their order: afterwards the effect plays and saves as if it
// had had one host only.
#include <gtest/gtest.h>

#include <array>

#include "tests/module/instance.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;

class HostSequence : public ModuleTest {
 protected:
  HostSequence() {
    // A preset whose sound tells whether it was taken over: wide, with emphasis, side turned.
    bank[9] = {"the project's", {0.8F, 0.3F, 0.4F, 1.0F, 1.0F}};
    state = imagebytes::chunk(bank, 9);
  }

  static VstIntPtr canDo(Instance& instance, std::string question) {
    return instance.send(effCanDo, 0, 0, question.data());
  }
  static void canDoAll(Instance& instance, std::initializer_list<const char*> questions) {
    for (const char* question : questions) {
      const VstIntPtr answer = canDo(instance, question);
      EXPECT_TRUE(answer == 0 || answer == 1) << question;
    }
  }
  static void properties(Instance& instance, VstInt32 index) {
    VstParameterProperties record{};
    EXPECT_EQ(instance.send(effGetParameterProperties, index, 0, &record), 1);
  }
  static void rateAndBlock(Instance& instance, float rate, VstInt32 block) {
    instance.setSampleRate(rate);
    instance.setBlockSize(block);
  }
  // The stored values of the project's preset, in some order of the host's.
  void setAll(Instance& instance, std::array<VstInt32, 5> order = {0, 1, 2, 3, 4}) {
    for (const VstInt32 index : order)
      instance.setParameter(index, bank[9].values[static_cast<std::size_t>(index)]);
  }

  imagebytes::Bank bank = distinctBank();
  Bytes state;
  const Audio input = noise(6000);
};

TEST_F(HostSequence, ArdoursScan) {
  Instance instance(module);
  instance.send(effOpen);
  EXPECT_EQ(instance.send(effGetVstVersion), 2400);
  EXPECT_EQ(instance.text(effGetEffectName), "Orv Trelvan");
  instance.text(effGetVendorString);
  instance.send(effGetPlugCategory);
  canDoAll(instance, {"receiveVstEvents", "receiveVstMidiEvent", "receiveVstMidiEvents"});
  canDoAll(instance, {"sendVstEvents", "sendVstMidiEvent", "sendVstMidiEvents"});
  instance.mainsChanged(false);
  EXPECT_EQ(instance.close(), 1);
}

// The real inputs are "not connected" during the first switching on, and connected ever after.
TEST_F(HostSequence, ArdoursSessionAndExport) {
  Instance instance(module);
  instance.send(effOpen);
  instance.send(effGetVstVersion);
  rateAndBlock(instance, 48000.0F, 1024);
  for (VstInt32 i = 0; i < 5; ++i) EXPECT_EQ(instance.send(effCanBeAutomated, i), 1);
  for (VstInt32 i = 0; i < 5; ++i) {
    properties(instance, i);
    instance.text(effGetParamName, i);
    instance.getParameter(i);
    instance.text(effGetParamName, i);
  }
  EXPECT_EQ(canDo(instance, "bypass"), 0);
  for (VstInt32 i = 0; i < 5; ++i) instance.setParameter(i, 0.25F);
  host.answers[audioMasterPinConnected] = 1;
  instance.mainsChanged(true);
  host.answers[audioMasterPinConnected] = 0;
  instance.send(effSetProgram, 0, 0);
  EXPECT_EQ(instance.setChunk(state, 0), 0);
  instance.mainsChanged(true);
  const Audio audio = instance.render(input, Buffers::separate, {1024, 768, 256});
  EXPECT_TRUE(audio == plainRendering(state, input));
  EXPECT_EQ(instance.chunk(0), state);
  EXPECT_EQ(instance.send(effGetProgram), 0);
  instance.mainsChanged(false);
  instance.mainsChanged(true);  // the transport has stopped
  EXPECT_TRUE(instance.render(input) == plainRendering(state, input));
  instance.mainsChanged(false);
}

void audacityStart(Instance& instance) {
  instance.setSampleRate(48000.0F);
  instance.setBlockSize(512);
  EXPECT_EQ(instance.send(effIdentify), 0x4E764566);
  instance.send(effOpen);
  instance.send(effGetVstVersion);
  instance.setSampleRate(48000.0F);
  instance.setBlockSize(512);
  instance.text(effGetEffectName);
  instance.text(effGetVendorString);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(instance.send(effGetVendorVersion), 1990);
  EXPECT_EQ(instance.send(effCanBeAutomated, 0), 1) << "always asked with index 0";
  instance.send(effBeginSetProgram);
  instance.send(effSetProgram, 0, 0);
  instance.send(effEndSetProgram);
}

void audacityLoad(Instance& instance, const Bytes& state) {
  char record[64] = "";
  EXPECT_EQ(instance.send(effBeginLoadProgram, 0, 0, record), 0);
  instance.send(effBeginSetProgram);
  EXPECT_EQ(instance.setChunk(state, 1), 0);
  instance.send(effEndSetProgram);
}

// It switches on at 44100 Hz, names the track's rate and processes; an instance that did just this
// sounds the same.
TEST_F(HostSequence, AudacitysEffectOnATrack) {
  Instance first(module);
  audacityStart(first);
  for (int round = 0; round < 3; ++round) {
    audacityLoad(first, state);
    first.send(effBeginSetProgram);
    setAll(first);
    first.send(effEndSetProgram);
    EXPECT_EQ(first.chunk(1), state);
  }
  Instance second(module);
  audacityStart(second);
  rateAndBlock(second, 44100.0F, 8192);
  second.mainsChanged(true);
  second.send(effStartProcess);
  audacityLoad(second, first.chunk(1));
  second.send(effBeginSetProgram);
  setAll(second);
  second.send(effEndSetProgram);
  rateAndBlock(second, 48000.0F, 8192);
  const Audio audio = second.render(input, Buffers::separate, {8192});
  second.send(effStopProcess);
  second.mainsChanged(false);

  Instance plain(module);
  plain.setSampleRate(44100.0F);
  plain.mainsChanged(true);
  plain.setChunk(state);
  plain.setSampleRate(48000.0F);
  EXPECT_TRUE(audio == plain.render(input));
  EXPECT_EQ(second.chunk(1), state);
}

// What one host saved as a bank, another gets as a program.
TEST_F(HostSequence, ArdoursChunkInAudacity) {
  Instance ardour(module);
  ardour.setChunk(state, 0);
  Instance audacity(module);
  audacityStart(audacity);
  audacityLoad(audacity, ardour.chunk(0));
  EXPECT_EQ(audacity.chunk(1), state);
}

// From inside every callback it names rate and block size, through the record that it
// was just passed.
TEST_F(HostSequence, QtractorsScan) {
  host.answers[audioMasterVersion] = 2;
  host.onCall = [](const RecordingHost::Call& call) {
    call.effect->dispatcher(call.effect, effSetSampleRate, 0, 0, nullptr, 44100.0F);
    call.effect->dispatcher(call.effect, effSetBlockSize, 0, 1024, nullptr, 0.0F);
  };
  Instance instance(module);
  EXPECT_EQ(instance.send(effGetPlugCategory), 4);
  instance.send(effOpen);
  instance.text(effGetEffectName);
  canDoAll(instance, {"sendVstEvents", "sendVstMidiEvent", "sendVstTimeInfo", "receiveVstEvents",
                      "receiveVstMidiEvent", "receiveVstTimeInfo", "offline", "plugAsChannelInsert",
                      "plugAsSend", "mixDryWet", "midiProgramNames"});
  EXPECT_EQ(instance.close(), 1);
  Instance second(module);
  EXPECT_EQ(second.send(effGetPlugCategory), 4);
}

// Parameters come after the chunk, in no order at all.
TEST_F(HostSequence, QtractorsSession) {
  host.answers[audioMasterVersion] = 2;
  Instance instance(module);
  instance.send(effGetPlugCategory);
  instance.send(effOpen);
  instance.text(effGetEffectName);
  canDoAll(instance, {"sendVstMidiEvent", "receiveVstMidiEvent"});
  for (VstInt32 i = 0; i < 5; ++i) {
    instance.text(effGetParamName, i);
    properties(instance, i);
    instance.getParameter(i);
  }
  rateAndBlock(instance, 48000.0F, 2048);
  EXPECT_EQ(instance.setChunk(state, 0), 0);
  setAll(instance, {3, 0, 4, 2, 1});
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(input, Buffers::separate, {1024}) == plainRendering(state, input));
  EXPECT_EQ(instance.chunk(0), state);
  EXPECT_EQ(instance.close(), 1) << "without switching off";
}

TEST_F(HostSequence, MusesScan) {
  host.answers[audioMasterVersion] = 2300;
  Instance instance(module);
  instance.send(effGetPlugCategory);
  instance.send(effOpen);
  instance.text(effGetEffectName);
  instance.text(effGetVendorString);
  EXPECT_EQ(instance.text(effGetProductString), "Orv Trelvan - Trelvan processor");
  instance.send(effGetVendorVersion);
  instance.send(effGetVstVersion);
  for (VstInt32 i = 0; i < 5; ++i) {
    properties(instance, i);
    instance.text(effGetParamName, i);
  }
  canDoAll(instance, {"receiveVstEvents", "sendVstEvents", "sendVstMidiEvent", "sendVstTimeInfo",
                      "receiveVstMidiEvent", "receiveVstTimeInfo", "offline", "plugAsChannelInsert",
                      "plugAsSend", "mixDryWet", "midiProgramNames", "receiveVstEvents"});
  EXPECT_EQ(instance.close(), 1);
}

// Switched on twice, the chunk last, in place, with a block cut at an automation event.
TEST_F(HostSequence, MusesSong) {
  host.answers[audioMasterVersion] = 2300;
  Instance instance(module);
  instance.send(effOpen);
  for (int i = 0; i < 2; ++i) {
    rateAndBlock(instance, 48000.0F, 1024);
    instance.mainsChanged(true);
    for (VstInt32 index = 0; index < 5; ++index) {
      instance.getParameter(index);
      instance.text(effGetParamName, index);
    }
  }
  instance.send(effStartProcess);
  EXPECT_EQ(instance.setChunk(state, 0), 0);
  EXPECT_EQ(instance.send(effCanBeAutomated, 0), 1);
  const Audio audio = instance.render(input, Buffers::inPlace, {1024, 919, 105});

  Instance plain(module);
  plain.setSampleRate(48000.0F);
  plain.mainsChanged(true);
  plain.setChunk(state);
  EXPECT_TRUE(audio == plain.render(input));
  EXPECT_EQ(instance.chunk(0), state);
}

void juceStart(Instance& instance, float rate, VstInt32 block) {
  // Its records end after the short label.
  struct ShortPin {
    char label[64];
    VstInt32 flags;
    VstInt32 arrangement;
    char shortLabel[8];
    unsigned char more[48];
  } pin;
  std::memset(&pin, 0x5A, sizeof pin);
  instance.send(effIdentify);
  instance.setSampleRate(rate);
  instance.setBlockSize(block);
  instance.send(effOpen);
  VstSpeakerArrangement stereo{};
  stereo.type = kSpeakerArrStereo;
  stereo.numChannels = 2;
  for (int round = 0; round < 2; ++round) {
    VstSpeakerArrangement* in = nullptr;
    VstSpeakerArrangement* out = nullptr;
    EXPECT_EQ(instance.send(effGetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out),
              0);
    for (VstInt32 i = 0; i < 2; ++i) {
      EXPECT_EQ(instance.send(effGetInputProperties, i, 0, &pin), 1);
      EXPECT_EQ(instance.send(effGetOutputProperties, i, 0, &pin), 1);
    }
    if (round == 0) {
      EXPECT_EQ(
          instance.send(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), &stereo),
          1);
    }
  }
  for (const unsigned char byte : pin.more) EXPECT_EQ(byte, 0x5A);
  for (VstInt32 i = 0; i < 5; ++i) instance.send(effCanBeAutomated, i);
  std::string bypass = "bypass";
  EXPECT_EQ(instance.send(effCanDo, 0, 0, bypass.data()), 0);
  instance.send(effGetVendorVersion);
  instance.send(effIdentify);
  instance.setSampleRate(rate);
  instance.setBlockSize(block);
  instance.send(effOpen);
  instance.send(effSetProgram, 0, 0);
  for (const VstInt32 opcode : {100303, 100303, 100304, 100304})
    EXPECT_EQ(instance.send(opcode), 0);
  instance.send(effGetPlugCategory);
  char name[64];
  EXPECT_EQ(instance.send(effGetProgramNameIndexed, 0, -1, name), 1);
}

TEST_F(HostSequence, JucesScanWithThreeOpens) {
  Instance instance(module);
  juceStart(instance, 44100.0F, 512);
  instance.send(effOpen);
  EXPECT_EQ(instance.close(), 1);
}

TEST_F(HostSequence, JucesSessionInPlace) {
  Instance instance(module);
  juceStart(instance, 48000.0F, 1024);
  rateAndBlock(instance, 48000.0F, 1024);
  EXPECT_EQ(instance.send(effSetProcessPrecision, 0, 0), 0);
  EXPECT_EQ(instance.setChunk(state), 0);
  instance.mainsChanged(true);
  instance.send(effStartProcess);
  instance.text(effGetProgramName);
  EXPECT_TRUE(instance.render(input, Buffers::inPlace, {1024}) == plainRendering(state, input));
  EXPECT_EQ(instance.send(100289), 0);
  EXPECT_EQ(instance.chunk(), state);
}

}  // namespace
