// Readers of the old files: raw records behind a five-byte prefix.
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
const imagebytes::Preset kOther{"other", {0.9F, 0.8F, 0.7F, 0.6F, 0.5F}};

// The first `floats` values of one, the rest of the default's.
imagebytes::Preset partOf(const imagebytes::Preset& preset, int floats) {
  imagebytes::Preset part{preset.name, kDefault.values};
  for (std::size_t i = 0; i < 5 && static_cast<int>(i) < floats; ++i)
    part.values[i] = preset.values[i];
  return part;
}

TEST(OldFileSize, TellsTheFloatsOfAPreset) {
  EXPECT_EQ(presetimage::floatsInOldPreset(5 + 24 + 20), 5);
  EXPECT_EQ(presetimage::floatsInOldPreset(5 + 24 + 19), 4) << "rounded down";
  EXPECT_EQ(presetimage::floatsInOldPreset(5 + 24), 0);
  EXPECT_EQ(presetimage::floatsInOldPreset(5 + 24 + 4000), 1000);
  EXPECT_LT(presetimage::floatsInOldPreset(5 + 23), 0) << "no room for the name";
  EXPECT_LT(presetimage::floatsInOldPreset(0), 0);
}

TEST(OldFileSize, TellsTheFloatsOfABanksRecords) {
  EXPECT_EQ(presetimage::floatsPerOldBankRecord(5 + 32 * 44), 5);
  EXPECT_EQ(presetimage::floatsPerOldBankRecord(5 + 32 * 36), 3);
  EXPECT_EQ(presetimage::floatsPerOldBankRecord(5 + 32 * 36 - 1), 2) << "both divisions round down";
  EXPECT_EQ(presetimage::floatsPerOldBankRecord(5 + 32 * 24), 0);
  EXPECT_LT(presetimage::floatsPerOldBankRecord(5 + 32 * 24 - 1), 0) << "no room for the names";
  EXPECT_LT(presetimage::floatsPerOldBankRecord(0), 0);
}

TEST(OldPreset, IsANameAndTheFirstFiveFloats) {
  for (const bool other : {false, true}) {
    for (const int floats : {0, 1, 3, 5, 9}) {
      ACombProgram preset = recordOf(kDefault);
      const Bytes data = imagebytes::oldPresetData(kOther, floats, other);
      EXPECT_EQ(presetimage::readOldPreset(data, other, floats, {}, preset), Reading::done);
      EXPECT_TRUE(sameRecord(preset, recordOf(partOf(kOther, floats)))) << floats;
    }
  }
}

TEST(OldPreset, RefusesEveryValueOutsideTheRange) {
  for (const float value : {1.25F, -0.5F, kNaN, std::numeric_limits<float>::infinity()}) {
    imagebytes::Preset damaged = kOther;
    damaged.values[2] = value;
    ACombProgram preset = recordOf(kDefault);
    EXPECT_EQ(
        presetimage::readOldPreset(imagebytes::oldPresetData(damaged, 5), false, 5, {}, preset),
        Reading::refused);
  }
}

TEST(OldPreset, DoesNotLookBehindTheFifthFloat) {
  ACombProgram preset = recordOf(kDefault);
  const Bytes data = Writer().append(imagebytes::oldPresetData(kOther, 5)).real(7.0F).bytes;
  EXPECT_EQ(presetimage::readOldPreset(data, false, 6, {}, preset), Reading::done);
}

TEST(OldPreset, PassesOverPlaceholders) {
  imagebytes::Preset damaged = kOther;
  damaged.values[2] = 99.0F;
  ACombProgram preset = recordOf(kDefault);
  const Bytes data = imagebytes::oldPresetData(damaged, 5);
  EXPECT_EQ(presetimage::readOldPreset(data, false, 5, {false, false, true, false, false}, preset),
            Reading::done);
  imagebytes::Preset expected = kOther;
  expected.values[2] = kDefault.values[2];
  EXPECT_TRUE(sameRecord(preset, recordOf(expected)));
}

TEST(OldPreset, ReadsNothingForANegativeNumberOfFloats) {
  ACombProgram preset = recordOf(kDefault);
  EXPECT_EQ(presetimage::readOldPreset(imagebytes::oldPresetData(kOther, 5), false, -1, {}, preset),
            Reading::stopped);
  EXPECT_TRUE(sameRecord(preset, recordOf(kDefault)));
}

class OldBank : public testing::Test {
 protected:
  Reading read(const Bytes& data, int records, int floats, bool swapped = false) {
    bank.fill(ACombProgram());
    return presetimage::readOldBank(data, swapped, records, floats, {}, recordOf(kDefault), bank);
  }

  Bank bank;
};

TEST_F(OldBank, IsThirtyTwoRecordsOfBothByteOrders) {
  for (const bool other : {false, true}) {
    for (const int floats : {0, 3, 5, 7}) {
      EXPECT_EQ(read(imagebytes::oldBankData(distinctBank(), floats, other), 32, floats, other),
                Reading::done);
      for (std::size_t i = 0; i < 32; ++i) {
        EXPECT_TRUE(sameRecord(bank[i], recordOf(partOf(distinctBank()[i], floats)))) << i;
      }
    }
  }
}

TEST_F(OldBank, LeavesPresetsWithoutARecordAsTheyWere) {
  EXPECT_EQ(read(imagebytes::oldBankData(distinctBank(), 5), 2, 5), Reading::done);
  EXPECT_TRUE(sameRecord(bank[1], recordOf(distinctBank()[1])));
  EXPECT_TRUE(sameRecord(bank[2], ACombProgram()));
}

TEST_F(OldBank, TakesAtMostThirtyTwoRecords) {
  Writer data;
  for (int i = 0; i < 40; ++i) imagebytes::oldRecord(data, kOther, 5);
  EXPECT_EQ(read(data.bytes, 40, 5), Reading::done);
  for (const ACombProgram& preset : bank) EXPECT_TRUE(sameRecord(preset, recordOf(kOther)));
}

TEST_F(OldBank, StopsAtTheEndOfTheData) {
  const Bytes whole = imagebytes::oldBankData(distinctBank(), 5);
  for (std::size_t length = 0; length <= whole.size(); length += 7) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<long>(length));
    EXPECT_EQ(read(cut, 32, 5), Reading::done);
    for (std::size_t i = 0; i < 32; ++i) {
      const bool there = (i + 1) * 44 <= length;
      ASSERT_TRUE(sameRecord(bank[i], there ? recordOf(distinctBank()[i]) : ACombProgram()))
          << length << " bytes, " << i;
    }
  }
}

TEST_F(OldBank, RefusesAValueOutsideTheRangeInAnyRecord) {
  for (const std::size_t damagedPreset : {0U, 15U, 31U}) {
    for (const float value : {1.25F, -0.5F, kNaN}) {
      imagebytes::Bank damaged = distinctBank();
      damaged[damagedPreset].values[4] = value;
      EXPECT_EQ(read(imagebytes::oldBankData(damaged, 5), 32, 5), Reading::refused);
    }
  }
}

TEST_F(OldBank, ReadsNothingForANegativeNumberOfFloatsOrRecords) {
  EXPECT_EQ(read(imagebytes::oldBankData(distinctBank(), 5), 32, -1), Reading::stopped);
  EXPECT_EQ(read(imagebytes::oldBankData(distinctBank(), 5), -1, 5), Reading::done);
  for (const ACombProgram& preset : bank) EXPECT_TRUE(sameRecord(preset, ACombProgram()));
}

using Assignments = std::vector<std::pair<int, float>>;

Assignments oldMidiMap(const Bytes& data, int floats, bool swapped = false,
                       const presetimage::DummySlots& dummies = {}) {
  Assignments list;
  for (const auto& read : presetimage::readOldMidiMap(data, swapped, floats, dummies)) {
    list.emplace_back(read.parameter, read.value);
  }
  return list;
}

TEST(OldMidiMap, IsTheFirstFiveFloats) {
  for (const bool other : {false, true}) {
    const Bytes data =
        Writer(other).real(0.0F).real(0.25F).real(0.5F).real(0.75F).real(1.0F).real(0.9F).bytes;
    EXPECT_EQ(oldMidiMap(data, 6, other),
              (Assignments{{0, 0.0F}, {1, 0.25F}, {2, 0.5F}, {3, 0.75F}, {4, 1.0F}}));
    EXPECT_EQ(oldMidiMap(data, 2, other), (Assignments{{0, 0.0F}, {1, 0.25F}}));
  }
}

TEST(OldMidiMap, StopsAtTheFirstValueOutsideTheRange) {
  for (const float value : {1.25F, -0.5F, kNaN}) {
    EXPECT_EQ(oldMidiMap(Writer().real(0.25F).real(value).real(0.5F).bytes, 3),
              (Assignments{{0, 0.25F}}));
  }
}

TEST(OldMidiMap, PassesOverPlaceholders) {
  const Bytes data = Writer().real(0.25F).real(99.0F).real(0.5F).bytes;
  EXPECT_EQ(oldMidiMap(data, 3, false, {false, true, false, false, false}),
            (Assignments{{0, 0.25F}, {2, 0.5F}}));
}

TEST(OldMidiMap, StopsAtTheEndOfTheData) {
  EXPECT_EQ(oldMidiMap(Writer().real(0.25F).byte(1).bytes, 5), (Assignments{{0, 0.25F}}));
  EXPECT_TRUE(oldMidiMap({}, 5).empty());
  EXPECT_TRUE(oldMidiMap(Writer().real(0.25F).bytes, -1).empty());
}

}  // namespace
