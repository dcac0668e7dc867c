// Parameters and state: values come back exactly, the chunk is a function of the state and of
// nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>

#include "tests/module/instance.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;

class State : public ModuleTest {
 protected:
  const Bytes state = imagebytes::chunk(distinctBank(), 9);
};

TEST_F(State, KeepsEveryParameterExactly) {
  Instance instance(module);
  for (VstInt32 index = 0; index < 5; ++index) {
    for (const float value : {0.0F, 1.0F, 0.1F, 1.0F / 3.0F, 0.99999994F, 1e-30F}) {
      instance.setParameter(index, value);
      EXPECT_EQ(instance.getParameter(index), value);
    }
  }
}

TEST_F(State, HasNoValueForAnIndexThatItHasNot) {
  Instance instance(module);
  for (const VstInt32 index : {-1, 5, 7, 1000, 2147483647, -2147483647 - 1})
    EXPECT_EQ(instance.getParameter(index), 0.0F);
}

TEST_F(State, DoesNotChangeWhenParametersAreSetToWhatTheyAreInAnyOrder) {
  const Audio expected = plainRendering(state, noise(2048));
  std::array<VstInt32, 5> order = {0, 1, 2, 3, 4};
  do {
    Instance instance(module);
    instance.setSampleRate(48000.0F);
    instance.setChunk(state);
    instance.mainsChanged(true);
    for (const VstInt32 index : order) instance.setParameter(index, instance.getParameter(index));
    ASSERT_EQ(instance.chunk(), state);
    ASSERT_TRUE(instance.render(noise(2048)) == expected);
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(State, IsRestoredByTheChunkAlone) {
  Instance instance(module);
  for (VstInt32 index = 0; index < 5; ++index)
    instance.setParameter(index, 0.1F * static_cast<float>(index));
  std::string name = "my own";
  instance.send(effSetProgramName, 0, 0, name.data());
  const Bytes saved = instance.chunk();
  Instance restored(module);
  EXPECT_EQ(restored.setChunk(saved), 0);
  EXPECT_EQ(restored.text(effGetProgramName), "my own");
  for (VstInt32 index = 0; index < 5; ++index) {
    EXPECT_EQ(restored.getParameter(index), 0.1F * static_cast<float>(index));
    EXPECT_EQ(restored.text(effGetParamDisplay, index), instance.text(effGetParamDisplay, index));
  }
  EXPECT_TRUE(plainRendering(saved, noise(1000)) == plainRendering(restored.chunk(), noise(1000)));
}

TEST_F(State, GivesTheSameChunkTwice) {
  Instance instance(module);
  EXPECT_EQ(instance.chunk(), instance.chunk());
  instance.setChunk(state);
  EXPECT_EQ(instance.chunk(), instance.chunk());
}

TEST_F(State, GivesTheSameChunkForBankAndProgram) {
  Instance instance(module);
  instance.setChunk(state);
  EXPECT_EQ(instance.chunk(0), instance.chunk(1));
  Instance other(module);
  other.setChunk(instance.chunk(0), 1);
  EXPECT_EQ(other.chunk(1), state);
  Instance third(module);
  third.setChunk(instance.chunk(1), 0);
  EXPECT_EQ(third.chunk(0), state);
}

// The one came to it by its own ways, the other by the chunk.
TEST_F(State, GivesTheSameChunkInEveryInstanceThatHasIt) {
  Instance traveller(module);
  traveller.send(effOpen);
  traveller.setSampleRate(96000.0F);
  traveller.mainsChanged(true);
  traveller.render(noise(3000));
  for (std::string name : {"a rather long name, cut", "short"})
    traveller.send(effSetProgramName, 0, 0, name.data());
  traveller.setParameter(0, 0.9F);
  traveller.setParameter(0, 0.75F);
  traveller.setParameter(6, 0.5F);
  traveller.mainsChanged(false);

  Instance direct(module);
  std::string name = "short";
  direct.send(effSetProgramName, 0, 0, name.data());
  direct.setParameter(0, 0.75F);
  EXPECT_EQ(traveller.chunk(), direct.chunk());
}

TEST_F(State, IsNotChangedByProcessingAndTexts) {
  Instance instance(module);
  instance.setChunk(state);
  instance.mainsChanged(true);
  instance.render(noise(3000));
  for (VstInt32 index = 0; index < 7; ++index) {
    for (const VstInt32 opcode :
         {effGetParamName, effGetParamLabel, effGetParamDisplay, effGetProgramNameIndexed}) {
      instance.text(opcode, index);
    }
  }
  EXPECT_EQ(instance.chunk(), state);
}

TEST_F(State, IsNotChangedByTheHostsProgramCalls) {
  Instance instance(module);
  instance.setChunk(state);
  instance.send(effBeginSetProgram);
  for (const VstIntPtr program : {0, 1, 5, -1}) instance.send(effSetProgram, 0, program);
  instance.send(effEndSetProgram);
  EXPECT_EQ(instance.chunk(), state);
  EXPECT_EQ(instance.send(effGetProgram), 0);
  EXPECT_EQ(instance.text(effGetProgramName), "preset number 9");
}

TEST_F(State, KeepsTwentyThreeCharactersOfAName) {
  Instance instance(module);
  std::string name = "abcdefghijklmnopqrstuvwxyz1234";
  instance.send(effSetProgramName, 0, 0, name.data());
  EXPECT_EQ(instance.text(effGetProgramName), "abcdefghijklmnopqrstuvw");
  EXPECT_EQ(instance.text(effGetProgramNameIndexed, 0), "abcdefghijklmnopqrstuvw");
}

TEST_F(State, IsNotChangedByAParameterThatIsNotThere) {
  Instance instance(module);
  instance.setChunk(state);
  for (const VstInt32 index : {5, -1, 7}) instance.setParameter(index, 0.75F);
  EXPECT_EQ(instance.chunk(), state);
}

// A NaN of a host is neither heard nor saved.
TEST_F(State, IsNotChangedByAValueThatIsNoNumber) {
  Instance instance(module);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  for (const VstInt32 index : {-1, 0, 1, 2, 3, 4, 5, 6, 7})
    instance.setParameter(index, std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(instance.chunk(), state);
  EXPECT_TRUE(instance.render(noise(2048)) == plainRendering(state, noise(2048)));
  for (VstInt32 index = 0; index < 5; ++index)
    EXPECT_EQ(instance.getParameter(index), distinctBank()[9].values[std::size_t(index)]);
  Instance restored(module);
  restored.setChunk(instance.chunk());
  EXPECT_EQ(restored.chunk(), state) << "with all its presets";
}

TEST_F(State, NamesTheThirtyTwoPresets) {
  Instance instance(module);
  instance.setChunk(state);
  char text[64];
  for (VstInt32 index = 0; index < 32; ++index) {
    EXPECT_EQ(instance.send(effGetProgramNameIndexed, index, -1, text), 1);
    EXPECT_EQ(text, "preset number " + std::to_string(index));
  }
  EXPECT_EQ(instance.send(effGetProgramNameIndexed, 32, 0, text), 0);
}

TEST_F(State, StartsWithTheFactoryPresets) {
  Instance instance(module);
  EXPECT_EQ(instance.text(effGetProgramName), "init");
  char text[64];
  instance.send(effGetProgramNameIndexed, 23, 0, text);
  EXPECT_STREQ(text, "over heads 2");
  EXPECT_EQ(instance.text(effGetParamDisplay, 0), "0.0");
  EXPECT_EQ(instance.text(effGetParamDisplay, 1), "265.0");
  EXPECT_EQ(instance.text(effGetParamDisplay, 3), "On");
}

TEST_F(State, ShowsTextsInThePublishedBuffers) {
  Instance instance(module);
  instance.setParameter(0, 0.5F);
  EXPECT_EQ(instance.text(effGetParamDisplay, 0), "50.0");
  instance.setParameter(1, 0.0F);
  EXPECT_EQ(instance.text(effGetParamDisplay, 1), "20.0");
  instance.setParameter(1, 1.0F);
  EXPECT_EQ(instance.text(effGetParamDisplay, 1), "1000.0");
  for (const VstInt32 index : {3, 4}) {
    instance.setParameter(index, 0.49F);
    EXPECT_EQ(instance.text(effGetParamDisplay, index), "Off");
    instance.setParameter(index, 0.5F);
    EXPECT_EQ(instance.text(effGetParamDisplay, index), "On");
  }
  EXPECT_EQ(instance.text(effGetParamLabel, 0), "    %   ");
  EXPECT_EQ(instance.text(effGetParamLabel, 1), "    Hz   ");
  EXPECT_EQ(instance.text(effGetParamLabel, 4), "         ");
  EXPECT_EQ(instance.text(effGetParamDisplay, 5), "UNDEF");
}

}  // namespace
