// The chunk around the bank image, and the old fixed layout.
#include "presetsystem/image/chunkimage.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/presetsystem/records.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::kDefault;
using imagebytes::kTrelvan;
using imagebytes::Writer;
using presetimage::Bank;

constexpr auto kID = static_cast<std::int32_t>(kTrelvan);

chunkimage::Prefix prefixOf(const Bytes& data) {
  return chunkimage::readPrefix(std::span<const unsigned char, chunkimage::kPrefixSize>(data.data(), 8), kID);
}

TEST(ChunkPrefix, IsTheTagAndTheUniqueId) {
  const chunkimage::Prefix prefix = prefixOf(Writer().word(0x02000000).word(kTrelvan).bytes);
  EXPECT_EQ(prefix.formatTag, 0x02000000);
  EXPECT_EQ(prefix.order, ByteOrder::native);
}

TEST(ChunkPrefix, TurnsTheTagOfTheOtherByteOrder) {
  const chunkimage::Prefix prefix = prefixOf(Writer(true).word(0x01000000).word(kTrelvan).bytes);
  EXPECT_EQ(prefix.formatTag, 0x01000000);
  EXPECT_EQ(prefix.order, ByteOrder::swapped);
}

TEST(ChunkPrefix, IsForeignWithAnotherUniqueId) {
  EXPECT_EQ(prefixOf(Writer().word(0x02000000).word(kTrelvan + 1).bytes).order, ByteOrder::foreign);
  EXPECT_EQ(prefixOf(Writer().word(kTrelvan).word(0x02000000).bytes).order, ByteOrder::foreign);
}

TEST(WrapBank, PutsEightBytesInFront) {
  const Bytes image = imagebytes::bankImage(distinctBank(), 3);
  EXPECT_EQ(chunkimage::wrapBank(image, kID), imagebytes::chunk(distinctBank(), 3));
  EXPECT_EQ(chunkimage::wrapBank(image, kID).size(), 10545U);
}

class OldChunk : public testing::Test {
 protected:
  // Cut or filled with zeros to what is taken in.
  chunkimage::OldReading read(Bytes data, std::int64_t byteSize, bool swapped = false) {
    data.resize(chunkimage::kOldSize);
    return chunkimage::readOldChunk(std::span<const unsigned char, chunkimage::kOldSize>(data.data(), data.size()),
                                    byteSize, swapped, {}, recordOf(kDefault), bank);
  }
  chunkimage::OldReading read(const Bytes& data, bool swapped = false) {
    return read(data, static_cast<std::int64_t>(data.size()), swapped);
  }
  // Records 0..records-1 hold the first `floats` values of the distinct bank, all others are untouched.
  testing::AssertionResult holds(std::size_t records, int floats) const {
    for (std::size_t i = 0; i < bank.size(); ++i) {
      imagebytes::Preset expected = distinctBank()[i];
      for (std::size_t j = 0; j < 5; ++j) {
        if (static_cast<int>(j) >= floats) expected.values[j] = kDefault.values[j];
      }
      const ACombProgram record = i < records ? recordOf(expected) : ACombProgram();
      if (!isSame(bank[i], record)) return sameRecord(bank[i], record) << " in preset " << i;
    }
    return testing::AssertionSuccess();
  }

  Bank bank{};
};

TEST_F(OldChunk, Of1440BytesHasFiveFloatsPerRecord) {
  for (const bool other : {false, true}) {
    bank.fill(ACombProgram());
    const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 5, 17, other);
    ASSERT_EQ(data.size(), 1440U);
    const chunkimage::OldReading reading = read(data, other);
    EXPECT_TRUE(reading.complete);
    EXPECT_EQ(reading.presetToSelect, 17);
    EXPECT_TRUE(holds(32, 5));
  }
}

TEST_F(OldChunk, Of36BytesARecordHasThreeFloats) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 3, 0);
  ASSERT_EQ(data.size(), 32U + 32U * 36U);
  EXPECT_TRUE(read(data).complete);
  EXPECT_TRUE(holds(32, 3));
}

TEST_F(OldChunk, MayHoldNamesOnly) {
  EXPECT_TRUE(read(imagebytes::oldChunk(distinctBank(), 32, 0, 0)).complete);
  EXPECT_TRUE(holds(32, 0));
}

TEST_F(OldChunk, RoundsTheFloatsDown) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 10, 4, 0);
  EXPECT_TRUE(read(data, static_cast<std::int64_t>(data.size()) + 39).complete) << "3.9 bytes more for each record";
  EXPECT_TRUE(holds(10, 4));
}

TEST_F(OldChunk, TakesFiveOfMoreFloats) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 10, 9, 0);
  EXPECT_TRUE(read(data).complete);
  EXPECT_TRUE(holds(10, 5));
}

// 19 floats make 100 bytes a record; of the 1408 bytes behind the header 14 records have their five floats.
TEST_F(OldChunk, StopsAtTheEndOfWhatIsTakenIn) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 19, 4);
  const chunkimage::OldReading reading = read(data);
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(reading.presetToSelect, 4);
  EXPECT_TRUE(holds(14, 5));
}

TEST_F(OldChunk, TakesAtMostThirtyTwoRecords) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 50, 5, 0);
  EXPECT_TRUE(read(data).complete);
  EXPECT_TRUE(holds(32, 5));
}

TEST_F(OldChunk, WithoutRecordsOnlySelects) {
  for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
    Writer data;
    data.word(0x01000000).word(kTrelvan).number(count).number(9).zeros(16);
    imagebytes::oldRecord(data, distinctBank()[0], 5);
    const chunkimage::OldReading reading = read(data.bytes);
    EXPECT_TRUE(reading.complete);
    EXPECT_EQ(reading.presetToSelect, 9);
    EXPECT_TRUE(holds(0, 5));
  }
}

TEST_F(OldChunk, SelectsPresetZeroForANumberThatItHasNot) {
  for (const std::int32_t number : {32, 40, std::numeric_limits<std::int32_t>::max(), -1}) {
    EXPECT_EQ(read(imagebytes::oldChunk(distinctBank(), 32, 5, number)).presetToSelect, 0) << number;
  }
}

TEST_F(OldChunk, StopsAtAValueOutsideTheRangeAndKeepsWhatItHasRead) {
  for (const float value : {1.25F, -0.5F, std::numeric_limits<float>::infinity()}) {
    bank.fill(ACombProgram());
    imagebytes::Bank damaged = distinctBank();
    damaged[5].values[2] = value;
    EXPECT_FALSE(read(imagebytes::oldChunk(damaged, 32, 5, 17)).complete);
    EXPECT_TRUE(sameRecord(bank[4], recordOf(distinctBank()[4])));
    damaged[5].values[2] = kDefault.values[2];
    damaged[5].values[3] = kDefault.values[3];
    damaged[5].values[4] = kDefault.values[4];
    EXPECT_TRUE(sameRecord(bank[5], recordOf(damaged[5]))) << "reset, and read up to there";
    EXPECT_TRUE(sameRecord(bank[6], ACombProgram())) << "untouched";
  }
}

TEST_F(OldChunk, TakesTheEndsOfTheRange) {
  imagebytes::Bank bankOfEnds = distinctBank();
  bankOfEnds[0].values = {0.0F, 1.0F, -0.0F, 1.0F, 0.0F};
  EXPECT_TRUE(read(imagebytes::oldChunk(bankOfEnds, 32, 5, 0)).complete);
  EXPECT_TRUE(sameRecord(bank[0], recordOf(bankOfEnds[0])));
}

// The stride comes from the host's number; whatever it says, reading stays inside the 1440 bytes.
TEST_F(OldChunk, TakesAnySizeAndCount) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 5, 17);
  for (const std::int64_t byteSize : {std::int64_t{-2147483648}, std::int64_t{-1}, std::int64_t{0}, std::int64_t{8},
                                      std::int64_t{31}, std::int64_t{32}, std::int64_t{33}, std::int64_t{100},
                                      std::int64_t{1439}, std::int64_t{1441}, std::int64_t{2147483647}}) {
    for (const std::int32_t count : {1, 2, 31, 32, 33, 1000, std::numeric_limits<std::int32_t>::max()}) {
      Bytes changed = data;
      std::memcpy(changed.data() + 8, &count, 4);
      read(changed, byteSize);
    }
  }
}

}  // namespace
