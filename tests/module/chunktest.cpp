// Current chunks through the module: byte orders, refusals, the host's own pointer.
#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tests/module/instance.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::Writer;

class ModuleChunk : public ModuleTest {
 protected:
  // A chunk with these entries alone, preset 9 being the current one.
  static Bytes chunkOf(std::int32_t count, const Bytes& entries) {
    return Writer()
        .word(0x02000000)
        .word(imagebytes::kTrelvan)
        .header(imagebytes::kBankKind, count, 9, static_cast<std::int32_t>(entries.size()))
        .append(entries)
        .bytes;
  }

  const Bytes state = imagebytes::chunk(distinctBank(), 9);
};

TEST_F(ModuleChunk, IsWrittenAsItsTableSays) {
  Instance instance(module);
  instance.setChunk(state);
  EXPECT_EQ(instance.chunk(), state);
  EXPECT_EQ(instance.chunk().size(), 10545U);
}

// Hosts copy it when it suits them.
TEST_F(ModuleChunk, StaysAsItIsUntilTheNextOneIsAskedFor) {
  Instance instance(module);
  instance.setChunk(state);
  void* data = nullptr;
  const VstIntPtr size = instance.send(effGetChunk, 0, 0, &data);
  const auto* bytes = static_cast<const unsigned char*>(data);
  instance.setChunk(imagebytes::chunk(distinctBank(), 3, true));
  instance.setChunk(imagebytes::oldChunk(distinctBank(), 32, 5, 4));
  instance.setChunk({1, 2, 3});
  std::string name = "another";
  instance.send(effSetProgramName, 0, 0, name.data());
  instance.setParameter(0, 0.625F);
  instance.mainsChanged(true);
  instance.render(noise(1000));
  instance.mainsChanged(false);
  EXPECT_EQ(Bytes(bytes, bytes + size), state);
  EXPECT_NE(instance.chunk(), state);
}

TEST_F(ModuleChunk, OfTheOtherByteOrderLoadsWithEveryValueIntact) {
  Instance instance(module);
  EXPECT_EQ(instance.setChunk(imagebytes::chunk(distinctBank(), 9, true)), 0);
  EXPECT_EQ(instance.chunk(), state);
}

TEST_F(ModuleChunk, TurnedWordForWordGivesTheSameBank) {
  std::mt19937 random(11);
  for (int round = 0; round < 50; ++round) {
    const int current = static_cast<int>(random() % 32);
    const Bytes written = imagebytes::chunk(imagebytes::randomBank(random), current);
    Bytes turned = written;
    std::reverse(turned.begin(), turned.begin() + 4);
    std::reverse(turned.begin() + 4, turned.begin() + 8);
    imagebytes::turnImage(turned, 8);
    Instance instance(module);
    EXPECT_EQ(instance.setChunk(turned), 0);
    EXPECT_EQ(instance.chunk(), written);
  }
}

TEST_F(ModuleChunk, OfAnotherPlugInIsRefusedAndChangesNothing) {
  Instance instance(module);
  instance.setChunk(state);
  Bytes foreign = imagebytes::chunk({}, 3);
  foreign[4] ^= 1;
  EXPECT_EQ(instance.setChunk(foreign), -1);
  EXPECT_EQ(instance.chunk(), state);
}

TEST_F(ModuleChunk, MayComeBackByTheVeryPointerThatWasHandedOut) {
  Instance instance(module);
  instance.setChunk(state);
  void* data = nullptr;
  const VstIntPtr size = instance.send(effGetChunk, 0, 0, &data);
  for (VstInt32 index = 0; index < 5; ++index) instance.setParameter(index, 0.9F);
  EXPECT_EQ(instance.send(effSetChunk, 0, size, data), 0);
  EXPECT_EQ(instance.chunk(), state);
}

TEST_F(ModuleChunk, StaysValidUntilTheNextIsAskedFor) {
  Instance instance(module);
  instance.setChunk(state);
  void* data = nullptr;
  instance.send(effGetChunk, 0, 0, &data);
  instance.setParameter(0, 0.9F);
  instance.mainsChanged(true);
  instance.render(noise(500));
  EXPECT_EQ(std::memcmp(data, state.data(), state.size()), 0);
}

TEST_F(ModuleChunk, WithANaNChangesNothingAndAnswersZero) {
  Instance instance(module);
  instance.setChunk(state);
  imagebytes::Bank damaged{};
  damaged[20].values[1] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(instance.setChunk(imagebytes::chunk(damaged, 3)), 0);
  EXPECT_EQ(instance.chunk(), state);
}

TEST_F(ModuleChunk, WithAnEntryCountOfZeroOnlySelects) {
  Instance instance(module);
  instance.setChunk(state);
  Bytes other = imagebytes::chunk({}, 14);
  std::memset(other.data() + 8 + 13, 0, 4);
  EXPECT_EQ(instance.setChunk(other), 0);
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(distinctBank(), 14));
}

TEST_F(ModuleChunk, WithAnEntryOfAnUnknownKindReadsTheOneBehindIt) {
  Instance instance(module);
  instance.setChunk(state);
  const Bytes entries = Writer().entryHead(99, 40, 3).zeros(40).parameterEntry(3, 2, 0.875F).bytes;
  EXPECT_EQ(instance.setChunk(chunkOf(2, entries)), 0);
  imagebytes::Bank expected = distinctBank();
  expected[3].values[2] = 0.875F;
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(expected, 9));
}

TEST_F(ModuleChunk, WithoutEntriesForAPresetLeavesItAndWithoutAValueTakesTheDefaultOne) {
  Instance instance(module);
  instance.setChunk(state);
  const Bytes entries = Writer()
                            .nameEntry(7, "seven")
                            .parameterEntry(7, 0, 0.5F)
                            .parameterEntry(7, 1, 0.25F)
                            .parameterEntry(7, 2, 0.5F)
                            .parameterEntry(7, 3, 0.5F)
                            .bytes;
  EXPECT_EQ(instance.setChunk(chunkOf(5, entries)), 0);
  imagebytes::Bank expected = distinctBank();
  expected[7] = {"seven", {0.5F, 0.25F, 0.5F, 0.5F, 0.0F}};  // the first factory preset's phase
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(expected, 9));
}

TEST_F(ModuleChunk, OfRandomBanksComesBackByteForByte) {
  std::mt19937 random(5);
  Instance instance(module);
  for (int round = 0; round < 100; ++round) {
    const Bytes written =
        imagebytes::chunk(imagebytes::randomBank(random), static_cast<std::int32_t>(random() % 32));
    EXPECT_EQ(instance.setChunk(written), 0);
    ASSERT_EQ(instance.chunk(), written);
  }
}

}  // namespace
