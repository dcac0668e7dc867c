// The effect's record as the module hands it over, and its answers about itself.
#include <gtest/gtest.h>

#include "tests/module/instance.h"

namespace {

class Record : public ModuleTest {};

TEST_F(Record, SaysWhatTheEffectIs) {
  Instance instance(module);
  const AEffect& record = *instance.effect;
  EXPECT_EQ(record.magic, 0x56737450);
  EXPECT_NE(record.dispatcher, nullptr);
  EXPECT_NE(record.process, nullptr);
  EXPECT_NE(record.setParameter, nullptr);
  EXPECT_NE(record.getParameter, nullptr);
  EXPECT_NE(record.processReplacing, nullptr);
  EXPECT_NE(record.processDoubleReplacing, nullptr);
  EXPECT_EQ(record.numPrograms, 1);
  EXPECT_EQ(record.numParams, 5);
  EXPECT_EQ(record.numInputs, 2);
  EXPECT_EQ(record.numOutputs, 2);
  EXPECT_EQ(record.flags, 1 | 16 | 32 | 4096);
  EXPECT_EQ(record.initialDelay, 0);
  EXPECT_EQ(record.ioRatio, 1.0F);
  EXPECT_NE(record.object, nullptr);
  EXPECT_EQ(record.user, nullptr) << "the host's";
  EXPECT_EQ(record.uniqueID, 0x546C766E);
  EXPECT_EQ(record.version, 1);
}

// Hosts use all of it from inside their first callback.
TEST_F(Record, IsCompleteBeforeTheFirstCallbackThatPassesIt) {
  AEffect atFirst{};
  host.onCall = [&](const RecordingHost::Call& call) {
    if (atFirst.magic == 0) std::memcpy(static_cast<void*>(&atFirst), call.effect, sizeof atFirst);
  };
  Instance instance(module);
  EXPECT_EQ(std::memcmp(&atFirst, instance.effect, sizeof atFirst), 0);
}

TEST_F(Record, LeavesTheHostsPointerAlone) {
  Instance instance(module);
  instance.effect->user = this;
  instance.send(effOpen);
  instance.mainsChanged(true);
  instance.render(noise(100));
  instance.setChunk(instance.chunk());
  EXPECT_EQ(instance.effect->user, this);
}

TEST_F(Record, AddsNothingThroughTheDeprecatedProcessing) {
  Instance instance(module);
  instance.mainsChanged(true);
  float in[64] = {1.0F};
  float out[64] = {0.5F};
  float* ins[] = {in, in};
  float* outs[] = {out, out};
  instance.effect->process(instance.effect, ins, outs, 64);
  EXPECT_EQ(out[0], 0.5F);
}

TEST_F(Record, HasTheSameNamesForEverybody) {
  Instance instance(module);
  EXPECT_EQ(instance.text(effGetEffectName), "Orv Trelvan");
  EXPECT_EQ(instance.text(effGetProductString), "Orv Trelvan - Trelvan processor");
  EXPECT_FALSE(instance.text(effGetVendorString).empty());
  EXPECT_EQ(instance.send(effGetVendorVersion), 1990);
  EXPECT_EQ(instance.send(effGetPlugCategory), 4);
  EXPECT_EQ(instance.send(effGetVstVersion), 2400);
  EXPECT_EQ(instance.send(effIdentify), 0x4E764566);
}

TEST_F(Record, CanDoFourThingsAndNothingElse) {
  Instance instance(module);
  const auto canDo = [&](std::string question) {
    return instance.send(effCanDo, 0, 0, question.data());
  };
  for (const char* question : {"offline", "plugAsChannelInsert", "1in2out", "2in2out"}) {
    EXPECT_EQ(canDo(question), 1) << question;
  }
  for (const char* question :
       {"bypass", "receiveVstMidiEvent", "receiveVstEvents", "Offline", "2in2outs", ""}) {
    EXPECT_EQ(canDo(question), 0) << question;
  }
}

TEST_F(Record, TakesOneOrTwoInputsToTwoOutputsAndNoOtherArrangement) {
  Instance instance(module);
  instance.setSampleRate(44100.0F);
  instance.setParameter(0, 0.5F);
  const auto arrange = [&](VstInt32 ins, VstInt32 outs) {
    VstSpeakerArrangement in{}, out{};
    in.numChannels = ins;
    out.numChannels = outs;
    return instance.send(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out);
  };
  // Both flags of the effect, by what it does with the second buffers: mid of 1 and 3 is 2, of 1
  // alone 1.
  const auto isStereo = [&] {
    instance.mainsChanged(true);
    const Audio out = instance.render({{1.0F}, {3.0F}});
    return out.left[0] == 2.0F && out.right[0] == 2.0F;
  };
  EXPECT_EQ(arrange(1, 2), 1);
  EXPECT_FALSE(isStereo());
  EXPECT_EQ(arrange(1, 1), 0);
  EXPECT_TRUE(isStereo()) << "refused, and both are read and written again";
  EXPECT_EQ(arrange(2, 2), 1);
  EXPECT_TRUE(isStereo());
  EXPECT_EQ(arrange(6, 6), 0);
}

TEST_F(Record, HasPinsUpToTheSecondAndBelowTheFirst) {
  Instance instance(module);
  struct {
    VstPinProperties pin;
    char more[64];  // for hosts' records that are longer than ours
  } room{};
  EXPECT_EQ(instance.send(effGetOutputProperties, 1, 0, &room.pin), 1);
  EXPECT_STREQ(room.pin.label, "My 2 Out");
  EXPECT_EQ(room.pin.flags, 1 | 2) << "active and stereo";
  EXPECT_EQ(instance.send(effGetOutputProperties, -1, 0, &room.pin), 1);
  EXPECT_STREQ(room.pin.label, "My 0 Out");
  EXPECT_EQ(instance.send(effGetInputProperties, -1, 0, &room.pin), 1);
  EXPECT_STREQ(room.pin.label, "My 0 In");
  EXPECT_EQ(instance.send(effGetOutputProperties, 2, 0, &room.pin), 0);
  EXPECT_EQ(instance.send(effGetInputProperties, 2, 0, &room.pin), 0);
  EXPECT_STREQ(room.pin.label, "My 0 In") << "untouched";
}

TEST_F(Record, HasPropertiesOfItsFiveParametersOnly) {
  Instance instance(module);
  VstParameterProperties properties{};
  EXPECT_EQ(instance.send(effGetParameterProperties, 4, 0, &properties), 1);
  EXPECT_STREQ(properties.label, "phase");
  for (const VstInt32 index : {5, -1})
    EXPECT_EQ(instance.send(effGetParameterProperties, index, 0, &properties), 0);
  EXPECT_STREQ(properties.label, "phase") << "untouched";
}

// Names are keys in hosts' presets: unique and not empty.
TEST_F(Record, HasUniqueParameterNames) {
  Instance instance(module);
  std::vector<std::string> names;
  for (VstInt32 index = 0; index < 5; ++index)
    names.push_back(instance.text(effGetParamName, index));
  EXPECT_EQ(names, (std::vector<std::string>{"width", "baseFreq", "emphasis", "process", "phase"}));
}

TEST_F(Record, WritesTextsNoLongerThanHostsGiveRoomFor) {
  Instance instance(module);
  const auto written = [&](VstInt32 opcode, VstInt32 index) {
    char buffer[256];
    std::memset(buffer, '#', sizeof buffer);
    instance.send(opcode, index, 0, buffer);
    std::size_t end = sizeof buffer;
    while (end > 0 && buffer[end - 1] == '#') --end;
    return end;
  };
  EXPECT_LE(written(effGetEffectName, 0), 32U);
  EXPECT_LE(written(effGetVendorString, 0), 64U);
  EXPECT_LE(written(effGetProductString, 0), 64U);
  EXPECT_EQ(written(effGetProgramName, 0), 25U);
  EXPECT_EQ(written(effGetProgramNameIndexed, 31), 25U);
  for (VstInt32 index = 0; index < 5; ++index) {
    EXPECT_LE(written(effGetParamName, index), 9U);
    EXPECT_LE(written(effGetParamLabel, index), 10U);
    EXPECT_LE(written(effGetParamDisplay, index), 8U);
  }
}

}  // namespace
