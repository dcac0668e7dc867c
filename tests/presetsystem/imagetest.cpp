// The door: what bytes are, in which order, and how much of them may be read; and chunks
// of both generations.
#include "presetsystem/image/image.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "tests/support/records.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::kDefault;
using imagebytes::kTrelvan;
using imagebytes::Writer;
using presetimage::Bank;

constexpr auto kID = static_cast<std::int32_t>(kTrelvan);

using presetimage::Image;
using presetimage::Reading;

Image identified(const Bytes& data) {
  return presetimage::identify(data, kID);
}

TEST(ChunkPrefix, IsTheTagAndTheUniqueId) {
  const Image image = identified(Writer().word(0x02000000).word(kTrelvan).bytes);
  EXPECT_TRUE(image.isChunk);
  EXPECT_FALSE(image.isOld);
  EXPECT_FALSE(image.swapped);
  EXPECT_EQ(image.content, Image::Content::bank);
  EXPECT_EQ(image.extent, Image::Extent::headless);
}

TEST(ChunkPrefix, TurnsTheTagOfTheOtherByteOrder) {
  const Image image = identified(Writer(true).word(0x01000000).word(kTrelvan).bytes);
  EXPECT_TRUE(image.isChunk);
  EXPECT_TRUE(image.isOld);
  EXPECT_TRUE(image.swapped);
}

TEST(ChunkPrefix, IsForeignWithAnotherUniqueId) {
  EXPECT_EQ(identified(Writer().word(0x02000000).word(kTrelvan + 1).bytes).content,
            Image::Content::foreign);
  EXPECT_FALSE(identified(Writer().word(kTrelvan).word(0x02000000).bytes).isChunk);
}

TEST(ChunkPrefix, WithAnotherTagIsOfAFormatThatNobodyKnows) {
  for (const std::uint32_t tag : {0U, 1U, 2U, 0x03000000U, kTrelvan + 1}) {
    const Image image = identified(Writer().word(tag).word(kTrelvan).zeros(100).bytes);
    EXPECT_TRUE(image.isChunk) << tag;
    EXPECT_EQ(image.content, Image::Content::unknown) << tag;
  }
}

TEST(WriteChunk, PutsEightBytesInFrontOfTheBank) {
  Bytes chunk(presetimage::kChunkSize);
  presetimage::InvalidParameters none;
  EXPECT_EQ(presetimage::writeChunk(std::span<unsigned char, presetimage::kChunkSize>(chunk),
                                    recordsOf(distinctBank()), kID, 3, {}, none),
            10545U);
  EXPECT_EQ(chunk, imagebytes::chunk(distinctBank(), 3));
}

struct KindOfFile {
  int kind;
  Image::Content content;
  bool isOld;
};
constexpr KindOfFile kKinds[] = {
    {33, Image::Content::preset, true},   {34, Image::Content::preset, false},
    {55, Image::Content::bank, true},     {56, Image::Content::bank, false},
    {12, Image::Content::midiMap, false}, {57, Image::Content::unknown, false}};

TEST(Identify, TellsAFileByTheKindAfterItsUniqueId) {
  for (const KindOfFile& kind : kKinds) {
    for (const bool other : {false, true}) {
      const Image image = identified(Writer(other).header(kind.kind, 0, 0, 0).bytes);
      EXPECT_EQ(image.content, kind.content) << kind.kind;
      EXPECT_EQ(image.isOld, kind.isOld) << kind.kind;
      EXPECT_EQ(image.swapped, other) << kind.kind;
      EXPECT_FALSE(image.isChunk) << kind.kind;
    }
  }
}

TEST(Identify, TakesEverythingElseForForeign) {
  EXPECT_EQ(identified({}).content, Image::Content::foreign);
  EXPECT_EQ(identified(Writer().word(kTrelvan).bytes).content, Image::Content::foreign)
      << "no kind";
  EXPECT_EQ(identified(Writer().word(kTrelvan + 1).byte(34).zeros(36).bytes).content,
            Image::Content::foreign);
  EXPECT_EQ(identified(Writer().word(0x02000000).bytes).content, Image::Content::foreign);
}

TEST(Identify, TurnsTheOrderThatTheUserSaysIsWrong) {
  const Bytes file = imagebytes::bankImage(distinctBank(), 3);
  EXPECT_TRUE(presetimage::identify(file, kID, {.orderReversed = true}).swapped);
  const Bytes other = imagebytes::bankImage(distinctBank(), 3, true);
  EXPECT_FALSE(presetimage::identify(other, kID, {.orderReversed = true}).swapped);
}

TEST(Identify, BoundsTheEntriesOfAFileByItsHeaderAndByWhatIsThere) {
  const Bytes file = Writer().header(56, 3, 40, 100).zeros(150).bytes;
  Image image = identified(file);
  EXPECT_EQ(image.extent, Image::Extent::whole);
  EXPECT_EQ(image.header.dataSize, 100);
  EXPECT_EQ(image.body.size(), 150U);
  EXPECT_EQ(image.presetToSelect, 0) << "there is no preset 40";
  image = presetimage::identify(std::span(file).first(60), kID);
  EXPECT_EQ(image.extent, Image::Extent::cut);
  EXPECT_EQ(image.header.dataSize, 19);
  image = presetimage::identify(std::span(file).first(40), kID);
  EXPECT_EQ(image.extent, Image::Extent::headless);
  EXPECT_EQ(identified(Writer().header(56, 3, 4, -1).bytes).extent, Image::Extent::cut);
}

TEST(Identify, BoundsTheEntriesOfAChunkByTheHostsSizeOrByItsHeader) {
  Writer writer;
  const Bytes chunk =
      writer.word(0x02000000).word(kTrelvan).header(56, 3, 31, 100).zeros(150).bytes;
  Image image = identified(chunk);
  EXPECT_EQ(image.header.dataSize, 150) << "the host's size holds";
  EXPECT_EQ(image.presetToSelect, 31);
  image = presetimage::identify(chunk, kID, {.sizeKnown = false});
  EXPECT_EQ(image.header.dataSize, 100) << "nobody knows more than the header";
}

TEST(Identify, SeesAChunkWhoseBankIsAnothers) {
  const auto chunk = [](std::uint32_t second) {
    Writer writer;
    return writer.word(0x02000000).word(kTrelvan).word(second).byte(56).zeros(36).bytes;
  };
  EXPECT_TRUE(identified(chunk(kTrelvan)).headerIsOurs);
  EXPECT_FALSE(identified(chunk(kTrelvan + 1)).headerIsOurs);
}

TEST(Identify, DoesNotPlaceTheRecordsOfAnOldBankThatIsNotWhole) {
  Writer writer;
  const Bytes file =
      writer.word(kTrelvan).byte(55).append(imagebytes::oldBankData(distinctBank(), 5)).bytes;
  EXPECT_EQ(identified(file).content, Image::Content::bank);
  EXPECT_EQ(identified(file).floatsPerRecord, 5);
  EXPECT_EQ(identified(file).recordCount, 32);
  EXPECT_EQ(presetimage::identify(file, kID, {.whole = false}).content, Image::Content::unknown);
}

TEST(Read, TakesWhatTheImageHoldsAndNothingElse) {
  const auto files = [](bool other) {
    const Bytes oldBank = Writer(other).word(kTrelvan).byte(55).bytes;
    const Bytes oldPreset = Writer(other).word(kTrelvan).byte(33).bytes;
    return std::array{imagebytes::bankImage(distinctBank(), 3, other),
                      imagebytes::chunk(distinctBank(), 3, other),
                      Writer(other)
                          .append(oldBank)
                          .append(imagebytes::oldBankData(distinctBank(), 5, other))
                          .bytes,
                      imagebytes::presetImage(distinctBank()[4], other),
                      Writer(other)
                          .append(oldPreset)
                          .append(imagebytes::oldPresetData(distinctBank()[4], 5, other))
                          .bytes};
  };
  for (const bool other : {false, true}) {
    const auto all = files(other);
    for (std::size_t i = 0; i < all.size(); ++i) {
      const Image image = identified(all[i]);
      Bank bank{};
      presetimage::InvalidParameters none;
      const bool isBank = i < 3;
      EXPECT_EQ(presetimage::readBank(image, {}, recordOf(kDefault), bank, none),
                isBank ? Reading::done : Reading::stopped);
      EXPECT_TRUE(sameBank(bank, isBank ? recordsOf(distinctBank()) : Bank{})) << i;
      ACombProgram preset = recordOf(kDefault);
      EXPECT_EQ(presetimage::readPreset(image, {}, preset),
                isBank ? Reading::stopped : Reading::done);
      EXPECT_TRUE(sameRecord(preset, recordOf(isBank ? kDefault : distinctBank()[4]))) << i;
    }
  }
}

struct OldReading {
  bool complete;
  int presetToSelect;
};

class OldChunk : public testing::Test {
 protected:
  // As a host hands it over: byteSize says how much of it there is; memory holds what is taken in
  // at most.
  OldReading read(Bytes data, std::int64_t byteSize) {
    data.resize(std::max(data.size(), presetimage::kOldChunkSize));
    const bool known = byteSize > 0;
    const Image image = presetimage::identify(
        {data.data(), known ? static_cast<std::size_t>(byteSize) : presetimage::kChunkSize}, kID,
        {.sizeKnown = known});
    presetimage::InvalidParameters none;
    if (!image.isChunk) return {false, 0};
    return {presetimage::readBank(image, {}, recordOf(kDefault), bank, none) == Reading::done,
            image.presetToSelect};
  }
  OldReading read(const Bytes& data) { return read(data, static_cast<std::int64_t>(data.size())); }
  // Records 0..records-1 hold the first `floats` values of the distinct bank, all
  // others are untouched.
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
    const OldReading reading = read(data);
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
  EXPECT_TRUE(read(data, static_cast<std::int64_t>(data.size()) + 39).complete)
      << "3.9 bytes more for each record";
  EXPECT_TRUE(holds(10, 4));
}

TEST_F(OldChunk, TakesFiveOfMoreFloats) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 10, 9, 0);
  EXPECT_TRUE(read(data).complete);
  EXPECT_TRUE(holds(10, 5));
}

// 19 floats make 100 bytes a record; of the 1408 bytes after the header 14 records have
// their five floats.
TEST_F(OldChunk, StopsAtTheEndOfWhatIsTakenIn) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 19, 4);
  const OldReading reading = read(data);
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
    const OldReading reading = read(data.bytes);
    EXPECT_TRUE(reading.complete);
    EXPECT_EQ(reading.presetToSelect, 9);
    EXPECT_TRUE(holds(0, 5));
  }
}

TEST_F(OldChunk, SelectsPresetZeroForANumberThatItHasNot) {
  for (const std::int32_t number : {32, 40, std::numeric_limits<std::int32_t>::max(), -1}) {
    EXPECT_EQ(read(imagebytes::oldChunk(distinctBank(), 32, 5, number)).presetToSelect, 0)
        << number;
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
  for (const std::int64_t byteSize :
       {std::int64_t{-2147483648}, std::int64_t{-1}, std::int64_t{0}, std::int64_t{8},
        std::int64_t{31}, std::int64_t{32}, std::int64_t{33}, std::int64_t{100}, std::int64_t{1439},
        std::int64_t{1441}, std::int64_t{2147483647}}) {
    for (const std::int32_t count :
         {1, 2, 31, 32, 33, 1000, std::numeric_limits<std::int32_t>::max()}) {
      Bytes changed = data;
      std::memcpy(changed.data() + 8, &count, 4);
      read(changed, byteSize);
    }
  }
}

}  // namespace
