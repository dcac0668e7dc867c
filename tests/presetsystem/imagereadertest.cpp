// The reader of current banks: what it takes, skips, repairs and refuses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "presetsystem/image/presetimage.h"
#include "tests/support/records.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::kDefault;
using imagebytes::Writer;
using presetimage::Bank;
using presetimage::Reading;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

class ReadBank : public testing::Test {
 protected:
  Reading read(const Bytes& entries, std::int32_t entryCount, bool swapped = false) {
    return read(entries, headerFor(entries, entryCount), swapped);
  }
  Reading read(const Bytes& entries, const newpresetheader& header, bool swapped = false) {
    return presetimage::readBank(entries, header, swapped, recordOf(kDefault), bank, repaired);
  }

  imagebytes::Bank before = distinctBank();
  Bank bank = recordsOf(before);
  presetimage::InvalidParameters repaired;
};

imagebytes::Bank otherBank() {
  imagebytes::Bank bank;
  for (std::size_t i = 0; i < bank.size(); ++i) {
    bank[i] = {"other " + std::to_string(i),
               {0.9F, 0.8F, 0.7F, 0.6F, static_cast<float>(i) / 32.0F}};
  }
  return bank;
}

TEST_F(ReadBank, TakesAWholeBankOfBothByteOrders) {
  for (const bool other : {false, true}) {
    bank = recordsOf(before);
    EXPECT_EQ(read(imagebytes::bankEntries(otherBank(), other), 192, other), Reading::done);
    EXPECT_TRUE(sameBank(bank, recordsOf(otherBank())));
    EXPECT_TRUE(repaired.empty());
  }
}

TEST_F(ReadBank, DoesNothingForANegativeEntryCount) {
  for (const std::int32_t count : {-1, kLeast}) {
    EXPECT_EQ(read(imagebytes::bankEntries(otherBank()), count), Reading::stopped);
    EXPECT_TRUE(sameBank(bank, recordsOf(before)));
  }
}

TEST_F(ReadBank, ChangesNothingForAnEntryCountOfZero) {
  EXPECT_EQ(read(imagebytes::bankEntries(otherBank()), 0), Reading::done);
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, ReadsNoMoreEntriesThanItIsTold) {
  EXPECT_EQ(read(imagebytes::bankEntries(otherBank()), 6), Reading::done);
  before[0] = otherBank()[0];
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, StopsAtTheEndOfTheDataWhateverTheEntryCount) {
  EXPECT_EQ(read(imagebytes::bankEntries(otherBank()), kMost), Reading::done);
  EXPECT_TRUE(sameBank(bank, recordsOf(otherBank())));
}

TEST_F(ReadBank, LeavesPresetsWithoutEntriesAsTheyWere) {
  Writer entries;
  for (std::int32_t i = 0; i < 32; ++i) {
    if (i != 7) entries.presetEntries(i, otherBank()[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(read(entries.bytes, 31 * 6), Reading::done);
  imagebytes::Bank expected = otherBank();
  expected[7] = before[7];
  EXPECT_TRUE(sameBank(bank, recordsOf(expected)));
}

TEST_F(ReadBank, GivesAPresetWithANameTheDefaultsForWhatIsMissing) {
  const Bytes entries = Writer()
                            .nameEntry(7, "seven")
                            .parameterEntry(7, 0, 0.5F)
                            .parameterEntry(7, 1, 0.5F)
                            .parameterEntry(7, 2, 0.5F)
                            .parameterEntry(7, 3, 0.5F)
                            .bytes;
  EXPECT_EQ(read(entries, 5), Reading::done);
  before[7] = {"seven", {0.5F, 0.5F, 0.5F, 0.5F, kDefault.values[4]}};
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, ChangesOneValueWhereThereIsNoName) {
  EXPECT_EQ(read(Writer().parameterEntry(7, 2, 0.625F).bytes, 1), Reading::done);
  before[7].values[2] = 0.625F;
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

// The name entry resets the preset: a value in front of it is lost.
TEST_F(ReadBank, TakesEntriesInTheirOrder) {
  const Bytes entries = Writer()
                            .parameterEntry(7, 2, 0.625F)
                            .nameEntry(7, "seven")
                            .parameterEntry(7, 0, 0.1F)
                            .parameterEntry(7, 0, 0.2F)
                            .bytes;
  EXPECT_EQ(read(entries, 4), Reading::done);
  before[7] = {"seven", kDefault.values};
  before[7].values[0] = 0.2F;
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, TakesAll24BytesOfAName) {
  const std::string full(24, 'x');
  const std::string withJunk("ab\0junk", 7);
  EXPECT_EQ(read(Writer().nameEntry(0, full).nameEntry(1, withJunk).bytes, 2), Reading::done);
  EXPECT_EQ(nameBytes(bank[0]), full);
  EXPECT_EQ(nameBytes(bank[1]), withJunk + std::string(17, '\0'));
}

TEST_F(ReadBank, RepairsValuesOutsideTheRangeAndNotesThemAsTheyWere) {
  const Bytes entries = Writer()
                            .nameEntry(3, "three")
                            .parameterEntry(3, 2, 1.25F)
                            .parameterEntry(3, 1, -0.5F)
                            .parameterEntry(3, 0, kInfinity)
                            .parameterEntry(3, 4, -kInfinity)
                            .bytes;
  EXPECT_EQ(read(entries, 5), Reading::done);
  before[3] = {"three", {1.0F, 0.0F, 1.0F, kDefault.values[3], 0.0F}};
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
  ASSERT_EQ(repaired.size(), 4U);
  EXPECT_EQ(repaired[0].parameter, 2);
  EXPECT_EQ(repaired[0].value, 1.25F);
  EXPECT_EQ(repaired[0].preset, 3);
  EXPECT_STREQ(repaired[0].name, "three");
  EXPECT_EQ(repaired[1].value, -0.5F);
  EXPECT_EQ(repaired[2].value, kInfinity);
  EXPECT_EQ(repaired[3].value, -kInfinity);
}

TEST_F(ReadBank, NotesTheNameThatThePresetHasAtThatMoment) {
  read(Writer().parameterEntry(3, 2, 1.25F).nameEntry(3, "three").parameterEntry(3, 2, 1.5F).bytes,
       3);
  ASSERT_EQ(repaired.size(), 2U);
  EXPECT_STREQ(repaired[0].name, "preset number 3");
  EXPECT_STREQ(repaired[1].name, "three");
}

TEST_F(ReadBank, TakesTheEndsOfTheRangeWithoutANote) {
  EXPECT_EQ(read(Writer()
                     .parameterEntry(3, 0, 0.0F)
                     .parameterEntry(3, 1, 1.0F)
                     .parameterEntry(3, 2, -0.0F)
                     .bytes,
                 3),
            Reading::done);
  EXPECT_EQ(bank[3].width, 0.0F);
  EXPECT_EQ(bank[3].baseFreq, 1.0F);
  EXPECT_EQ(bank[3].emphasis, 0.0F);
  EXPECT_TRUE(repaired.empty());
}

TEST_F(ReadBank, NotesAValueBeforeItLooksAtTheParameterIndex) {
  for (const std::int32_t index : {5, 6, -1, kLeast, kMost}) {
    repaired.clear();
    EXPECT_EQ(read(Writer().parameterEntry(3, index, 1.25F).bytes, 1), Reading::done);
    ASSERT_EQ(repaired.size(), 1U) << index;
    EXPECT_EQ(repaired[0].parameter, index);
    EXPECT_TRUE(sameBank(bank, recordsOf(before))) << "the value itself is ignored";
  }
}

TEST_F(ReadBank, SkipsAPresetThatItHasNotBeforeItLooksAtTheValue) {
  for (const std::int32_t preset : {32, 33, -1, kLeast, kMost}) {
    const Bytes entries = Writer()
                              .nameEntry(preset, "nowhere")
                              .parameterEntry(preset, 0, 1.25F)
                              .parameterEntry(preset, 0, kNaN)
                              .parameterEntry(9, 0, 0.5F)
                              .bytes;
    EXPECT_EQ(read(entries, 4), Reading::done);
    EXPECT_TRUE(repaired.empty());
  }
  before[9].values[0] = 0.5F;
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, RefusesANaN) {
  for (std::int32_t index = 0; index < 5; ++index) {
    EXPECT_EQ(
        read(
            Writer().nameEntry(0, "new").parameterEntry(0, index, kNaN).nameEntry(1, "never").bytes,
            3),
        Reading::refused);
    EXPECT_STREQ(bank[1].name, "preset number 1") << "it stops there";
  }
}

TEST_F(ReadBank, IgnoresANaNOfAParameterThatItHasNot) {
  EXPECT_EQ(read(Writer().parameterEntry(0, 5, kNaN).parameterEntry(0, -1, kNaN).bytes, 2),
            Reading::done);
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, SkipsEntriesOfAnotherKindByTheirPayload) {
  const Bytes entries = Writer()
                            .entryHead(99, 40, 0)
                            .zeros(40)
                            .valueEntry(2, 0, 0, 0.9F)
                            .entryHead(-1, 0, 0)
                            .parameterEntry(4, 4, 0.75F)
                            .bytes;
  EXPECT_EQ(read(entries, 4), Reading::done);
  before[4].values[4] = 0.75F;
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, FindsTheNextEntryBehindThePayload) {
  const Bytes entries = Writer()
                            .entryHead(1, 60, 4)
                            .number(1)
                            .zeros(8)
                            .real(0.375F)
                            .zeros(44)
                            .entryHead(0, 24, 5)
                            .text("short entry", 24)
                            .parameterEntry(4, 4, 0.75F)
                            .bytes;
  EXPECT_EQ(read(entries, 3), Reading::done);
  before[4].values[1] = 0.375F;
  before[4].values[4] = 0.75F;
  before[5] = {"short entry", kDefault.values};
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, EndsAtANegativePayload) {
  for (const std::int32_t payload : {-1, -12, kLeast}) {
    const Bytes entries = Writer()
                              .parameterEntry(4, 4, 0.75F)
                              .entryHead(0, payload, 5)
                              .zeros(156)
                              .parameterEntry(6, 0, 0.5F)
                              .bytes;
    EXPECT_EQ(read(entries, 3), Reading::done);
  }
  before[4].values[4] = 0.75F;
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, EndsAtAPayloadThatGoesPastTheEnd) {
  for (const std::int32_t payload : {189, 1000000, kMost}) {  // 188 bytes follow
    const Bytes entries = Writer()
                              .parameterEntry(4, 4, 0.75F)
                              .entryHead(0, payload, 5)
                              .zeros(156)
                              .parameterEntry(6, 0, 0.5F)
                              .bytes;
    EXPECT_EQ(read(entries, 3), Reading::done);
  }
  before[4].values[4] = 0.75F;
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, ReadsNoFurtherThanTheDataSize) {
  const Bytes entries = imagebytes::bankEntries(otherBank());
  newpresetheader header = headerFor(entries, 192);
  header.dataSize = 328;  // one preset
  EXPECT_EQ(read(entries, header), Reading::done);
  before[0] = otherBank()[0];
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

TEST_F(ReadBank, ReadsNothingForANegativeDataSize) {
  const Bytes entries = imagebytes::bankEntries(otherBank());
  newpresetheader header = headerFor(entries, 192);
  header.dataSize = -1;
  EXPECT_EQ(read(entries, header), Reading::done);
  EXPECT_TRUE(sameBank(bank, recordsOf(before)));
}

// Cut anywhere, the entries in front of the cut count and nothing behind it is looked at.
TEST_F(ReadBank, TakesTheWholeEntriesOfTruncatedData) {
  const Bytes whole = imagebytes::bankEntries(otherBank());
  for (std::size_t length = 0; length < 3 * 328; ++length) {
    // its end is the allocation's end
    const Bytes cut(whole.begin(), whole.begin() + static_cast<long>(length));
    bank = recordsOf(before);
    newpresetheader header = headerFor(whole, 192);
    EXPECT_EQ(read(cut, header), Reading::done);

    imagebytes::Bank expected = before;
    std::size_t at = 0;
    for (std::size_t i = 0; i < 3 && at + 168 <= length; ++i) {
      expected[i] = {otherBank()[i].name, kDefault.values};
      at += 168;
      for (std::size_t j = 0; j < 5 && at + 32 <= length; ++j, at += 32)
        expected[i].values[j] = otherBank()[i].values[j];
    }
    ASSERT_TRUE(sameBank(bank, recordsOf(expected))) << length << " bytes";
  }
}

TEST(PresetToSelect, IsTheNumberItselfOrPresetZero) {
  for (int number = 0; number < 32; ++number)
    EXPECT_EQ(presetimage::presetToSelect(number), number);
  for (const std::int32_t number : {32, 33, 40, kMost, -1, kLeast})
    EXPECT_EQ(presetimage::presetToSelect(number), 0);
}

}  // namespace
