// The readers of current presets and MIDI maps: what they take, skip and refuse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "presetsystem/image/presetimage.h"
#include "tests/support/records.h"

namespace {

using imagebytes::Bytes;
using imagebytes::kDefault;
using imagebytes::Writer;
using presetimage::Reading;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

class ReadPreset : public testing::Test {
 protected:
  Reading read(const Bytes& entries, std::int32_t entryCount, bool swapped = false) {
    preset = recordOf(kDefault);
    return presetimage::readPreset(entries, headerFor(entries, entryCount), swapped, preset);
  }

  ACombProgram preset;
  const imagebytes::Preset other{"other", {0.9F, 0.8F, 0.7F, 0.6F, 0.5F}};
};

TEST_F(ReadPreset, TakesAWholePresetOfBothByteOrders) {
  for (const bool swapped : {false, true}) {
    EXPECT_EQ(read(Writer(swapped).presetEntries(0, other).bytes, 6, swapped), Reading::done);
    EXPECT_TRUE(sameRecord(preset, recordOf(other)));
  }
}

TEST_F(ReadPreset, DoesNotLookAtThePresetIndex) {
  EXPECT_EQ(read(Writer().presetEntries(-7, other).bytes, 6), Reading::done);
  EXPECT_TRUE(sameRecord(preset, recordOf(other)));
}

TEST_F(ReadPreset, KeepsTheDefaultsForWhatIsMissing) {
  EXPECT_EQ(read(Writer().parameterEntry(0, 3, 0.125F).bytes, 1), Reading::done);
  EXPECT_TRUE(sameRecord(preset, recordOf({"the default", {0.11F, 0.22F, 0.33F, 0.125F, 0.55F}})));
}

TEST_F(ReadPreset, DoesNothingForANegativeEntryCount) {
  EXPECT_EQ(read(Writer().presetEntries(0, other).bytes, -1), Reading::stopped);
}

TEST_F(ReadPreset, IsDoneWithNoEntriesAtAll) {
  EXPECT_EQ(read({}, 0), Reading::done);
  EXPECT_TRUE(sameRecord(preset, recordOf(kDefault)));
}

TEST_F(ReadPreset, RefusesEveryValueOutsideTheRange) {
  for (const float value : {1.25F, -0.5F, kNaN, kInfinity, -kInfinity, 1.0000001F}) {
    EXPECT_EQ(read(Writer().nameEntry(0, "n").parameterEntry(0, 2, value).bytes, 2),
              Reading::refused)
        << value;
  }
}

TEST_F(ReadPreset, IgnoresAnyValueOfAParameterThatItHasNot) {
  const Bytes entries = Writer()
                            .parameterEntry(0, 5, 1.25F)
                            .parameterEntry(0, -1, kNaN)
                            .parameterEntry(0, 0, 0.5F)
                            .bytes;
  EXPECT_EQ(read(entries, 3), Reading::done);
  EXPECT_EQ(preset.width, 0.5F);
}

TEST_F(ReadPreset, SkipsEntriesOfAnotherKind) {
  EXPECT_EQ(read(Writer()
                     .entryHead(7, 40, 0)
                     .zeros(40)
                     .valueEntry(2, 0, 0, 0.9F)
                     .parameterEntry(0, 0, 0.5F)
                     .bytes,
                 3),
            Reading::done);
  EXPECT_EQ(preset.width, 0.5F);
}

// The name entry's 156 bytes, turned round, are a negative number: a file that lies about
// its byte order.
TEST_F(ReadPreset, RefusesEntriesOfTheOtherByteOrderThanItIsTold) {
  for (const bool swapped : {false, true}) {
    EXPECT_EQ(read(Writer(swapped).presetEntries(0, other).bytes, 6, !swapped), Reading::refused);
  }
}

TEST_F(ReadPreset, RefusesAPayloadOfNegativeSize) {
  for (const std::int32_t payload : {-1, -12, kLeast}) {
    EXPECT_EQ(
        read(Writer().parameterEntry(0, 0, 0.5F).entryHead(0, payload, 0).zeros(156).bytes, 2),
        Reading::refused);
  }
}

TEST_F(ReadPreset, StopsAtTheEndOfTheData) {
  const Bytes whole = Writer().presetEntries(0, other).bytes;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<long>(length));
    EXPECT_EQ(read(cut, 6), Reading::done);
    imagebytes::Preset expected = kDefault;
    if (length >= 168) expected.name = other.name;
    for (std::size_t j = 0; j < 5; ++j) {
      if (length >= 168 + 32 * (j + 1)) expected.values[j] = other.values[j];
    }
    ASSERT_TRUE(sameRecord(preset, recordOf(expected))) << length << " bytes";
  }
}

using Assignments = std::vector<std::pair<int, float>>;

Assignments midiMap(const Bytes& entries, std::int32_t entryCount, bool swapped = false) {
  Assignments list;
  for (const auto& read :
       presetimage::readMidiMap(entries, headerFor(entries, entryCount), swapped)) {
    list.emplace_back(read.parameter, read.value);
  }
  return list;
}

TEST(ReadMidiMap, TakesAssignmentsOfBothByteOrders) {
  for (const bool other : {false, true}) {
    const Bytes entries = Writer(other).valueEntry(2, 0, 4, 0.25F).valueEntry(2, 9, 0, 1.0F).bytes;
    EXPECT_EQ(midiMap(entries, 2, other), (Assignments{{4, 0.25F}, {0, 1.0F}}));
  }
}

TEST(ReadMidiMap, DoesNothingForAnEntryCountBelowOne) {
  const Bytes entries = Writer().valueEntry(2, 0, 4, 0.25F).bytes;
  for (const std::int32_t count : {0, -1, kLeast}) EXPECT_TRUE(midiMap(entries, count).empty());
}

TEST(ReadMidiMap, SkipsOtherKindsIndexesAndValues) {
  const Bytes entries = Writer()
                            .nameEntry(0, "name")
                            .parameterEntry(0, 0, 0.5F)
                            .valueEntry(2, 0, 5, 0.5F)
                            .valueEntry(2, 0, -1, 0.5F)
                            .valueEntry(2, 0, kLeast, 0.5F)
                            .valueEntry(2, 0, 0, 1.5F)
                            .valueEntry(2, 0, 0, -0.5F)
                            .valueEntry(2, 0, 0, kNaN)
                            .valueEntry(2, 0, 1, 0.5F)
                            .bytes;
  EXPECT_EQ(midiMap(entries, 9), (Assignments{{1, 0.5F}}));
}

TEST(ReadMidiMap, StopsAtTheEndOfTheData) {
  const Bytes entries = Writer().valueEntry(2, 0, 4, 0.25F).valueEntry(2, 0, 3, 0.5F).bytes;
  const Bytes cut(entries.begin(), entries.end() - 1);
  EXPECT_EQ(midiMap(cut, kMost), (Assignments{{4, 0.25F}}));
}

}  // namespace
