// Images as they are written, against their tables, and the diagnostic line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "presetsystem/image/presetimage.h"
#include "tests/support/hostsettings.h"
#include "tests/support/records.h"

namespace {

using imagebytes::distinctBank;
using imagebytes::kTrelvan;
using presetimage::DummySlots;
using presetimage::InvalidParameter;
using presetimage::InvalidParameters;
using presetimage::ParameterValues;

constexpr auto kID = static_cast<std::int32_t>(kTrelvan);
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

std::string line(const char* name, float value, const char* operation = "save") {
  InvalidParameter invalid{2, value, 3, {}};
  std::memcpy(invalid.name, name, std::min<std::size_t>(std::strlen(name), sizeof invalid.name));
  return presetimage::diagnosticLine(invalid, operation).text;
}

TEST(WriteBank, Writes10537BytesWith192Entries) {
  InvalidParameters repaired;
  const auto image = presetimage::writeBank(recordsOf(distinctBank()), kID, 17, {}, repaired);
  EXPECT_EQ(image.size(), 10537U);
  EXPECT_EQ(image, imagebytes::bankImage(distinctBank(), 17));
  EXPECT_TRUE(repaired.empty());
}

TEST(WriteBank, WritesValuesOutsideTheRangeAsItsEndsAndNotesThem) {
  imagebytes::Bank bank = distinctBank();
  bank[3].values[2] = 1.25F;
  bank[31].values[4] = -0.5F;
  InvalidParameters repaired;
  const auto image = presetimage::writeBank(recordsOf(bank), kID, 0, {}, repaired);
  ASSERT_EQ(repaired.size(), 2U);
  EXPECT_EQ(repaired[0].parameter, 2);
  EXPECT_EQ(repaired[0].value, 1.25F);
  EXPECT_EQ(repaired[0].preset, 3);
  EXPECT_STREQ(repaired[0].name, "preset number 3");
  EXPECT_EQ(repaired[1].parameter, 4);
  EXPECT_EQ(repaired[1].preset, 31);
  bank[3].values[2] = 1.0F;
  bank[31].values[4] = 0.0F;
  EXPECT_EQ(image, imagebytes::bankImage(bank, 0));
}

TEST(WriteBank, KeepsTheEndsOfTheRangeWithoutANote) {
  imagebytes::Bank bank = distinctBank();
  bank[0].values = {0.0F, 1.0F, -0.0F, 0.5F, 1.0F};
  InvalidParameters repaired;
  EXPECT_EQ(presetimage::writeBank(recordsOf(bank), kID, 0, {}, repaired),
            imagebytes::bankImage(bank, 0));
  EXPECT_TRUE(repaired.empty());
}

// Neither below 0 nor above 1.
TEST(WriteBank, WritesANaNAsItIsWithoutANote) {
  imagebytes::Bank bank = distinctBank();
  bank[5].values[1] = kNaN;
  InvalidParameters repaired;
  EXPECT_EQ(presetimage::writeBank(recordsOf(bank), kID, 0, {}, repaired),
            imagebytes::bankImage(bank, 0));
  EXPECT_TRUE(repaired.empty());
}

TEST(WriteBank, LeavesPlaceholdersOut) {
  InvalidParameters repaired;
  const auto image = presetimage::writeBank(recordsOf(distinctBank()), kID, 4,
                                            {true, false, false, true, false}, repaired);
  imagebytes::Writer entries;
  for (std::int32_t preset = 0; preset < 32; ++preset) {
    const imagebytes::Preset from = distinctBank()[static_cast<std::size_t>(preset)];
    entries.nameEntry(preset, from.name);
    for (const std::int32_t index : {1, 2, 4}) {
      entries.parameterEntry(preset, index, from.values[static_cast<std::size_t>(index)]);
    }
  }
  const auto size = static_cast<std::int32_t>(entries.bytes.size());
  EXPECT_EQ(image, imagebytes::Writer()
                       .header(imagebytes::kBankKind, 32 * 4, 4, size)
                       .append(entries.bytes)
                       .bytes);
}

TEST(WriteBank, WritesAllBytesOfANameAsStored) {
  imagebytes::Bank bank = distinctBank();
  bank[0].name = std::string("ab\0junk behind", 14);
  bank[1].name = std::string(24, 'x');
  InvalidParameters repaired;
  EXPECT_EQ(presetimage::writeBank(recordsOf(bank), kID, 0, {}, repaired),
            imagebytes::bankImage(bank, 0));
}

TEST(WritePreset, Writes369Bytes) {
  const imagebytes::Preset preset{"mix 1", {0.75F, 0.25F, 0.125F, 1.0F, 0.0F}};
  const auto image = presetimage::writePreset(recordOf(preset), kID, {});
  EXPECT_EQ(image.size(), 369U);
  EXPECT_EQ(image, imagebytes::presetImage(preset));
}

TEST(WritePreset, WritesValuesAsTheyStand) {
  const imagebytes::Preset preset{"odd", {1.25F, -3.0F, kNaN, 1e30F, 0.0F}};
  EXPECT_EQ(presetimage::writePreset(recordOf(preset), kID, {}), imagebytes::presetImage(preset));
}

TEST(WritePreset, LeavesPlaceholdersOut) {
  const imagebytes::Preset preset{"p", {0.1F, 0.2F, 0.3F, 0.4F, 0.5F}};
  const auto image =
      presetimage::writePreset(recordOf(preset), kID, {false, true, true, true, true});
  EXPECT_EQ(image, imagebytes::Writer()
                       .header(imagebytes::kPresetKind, 2, 0, 200)
                       .nameEntry(0, "p")
                       .parameterEntry(0, 0, 0.1F)
                       .bytes);
}

TEST(WriteMidiMap, Writes201BytesWithoutAName) {
  const ParameterValues values = {0.0F, 0.25F, 0.5F, 0.75F, 1.0F};
  const auto image = presetimage::writeMidiMap(values, kID, {});
  EXPECT_EQ(image.size(), 201U);
  EXPECT_EQ(image, imagebytes::midiMapImage(values));
}

TEST(WriteMidiMap, LeavesPlaceholdersOut) {
  const auto image = presetimage::writeMidiMap({0.1F, 0.2F, 0.3F, 0.4F, 0.5F}, kID,
                                               {true, true, true, true, false});
  EXPECT_EQ(image, imagebytes::Writer()
                       .header(imagebytes::kMidiMapKind, 1, 0, 32)
                       .valueEntry(2, 0, 4, 0.5F)
                       .bytes);
}

TEST(DiagnosticLine, NamesParameterValueOperationAndPreset) {
  EXPECT_EQ(line("mix 3", 1.25F), "Invalid parameter 2 value 1.250000 on save of preset 3 mix 3\n");
  EXPECT_EQ(line("mix 3", -0.5F, "load"),
            "Invalid parameter 2 value -0.500000 on load of preset 3 mix 3\n");
}

TEST(DiagnosticLine, ShowsAnyFloat) {
  EXPECT_EQ(line("n", std::numeric_limits<float>::infinity()),
            "Invalid parameter 2 value inf on save of preset 3 n\n");
  EXPECT_EQ(line("n", -std::numeric_limits<float>::infinity()),
            "Invalid parameter 2 value -inf on save of preset 3 n\n");
  EXPECT_EQ(line("n", 1e-10F + 1.0F), "Invalid parameter 2 value 1.000000 on save of preset 3 n\n");
  EXPECT_EQ(line("n", -std::numeric_limits<float>::max()),
            "Invalid parameter 2 value -340282346638528859811704183484516925440.000000 on save of "
            "preset 3 n\n");
}

TEST(DiagnosticLine, EndsWithTheBlankAndTheNewlineForAnEmptyName) {
  EXPECT_EQ(line("", 2.0F), "Invalid parameter 2 value 2.000000 on save of preset 3 \n");
}

TEST(DiagnosticLine, ShowsOneSignForTwoPerCentSigns) {
  EXPECT_THAT(line("100%% wide", 2.0F), testing::EndsWith(" 3 100% wide\n"));
  EXPECT_THAT(line("%%%%", 2.0F), testing::EndsWith(" 3 %%\n"));
  EXPECT_THAT(line("%%n", 2.0F), testing::EndsWith(" 3 %n\n"));
}

TEST(DiagnosticLine, TakesEveryOtherCharacterAsData) {
  EXPECT_THAT(line("%s%n%d %x %1$p", 2.0F), testing::EndsWith(" 3 %s%n%d %x %1$p\n"));
  EXPECT_THAT(line("50%", 2.0F), testing::EndsWith(" 3 50%\n"));
  EXPECT_THAT(line("%%%", 2.0F), testing::EndsWith(" 3 %%\n"));
  EXPECT_THAT(line("back\\n", 2.0F), testing::EndsWith(" 3 back\\n\n"));
}

TEST(DiagnosticLine, EndsWithANameThatFillsAllItsBytes) {
  const std::string full(24, 'x');
  EXPECT_THAT(line(full.c_str(), 2.0F), testing::EndsWith(" 3 " + full + "\n"));
  const std::string signs(24, '%');
  EXPECT_THAT(line(signs.c_str(), 2.0F), testing::EndsWith(" 3 " + std::string(12, '%') + "\n"));
  const std::string odd = std::string(23, 'x') + "%";
  EXPECT_THAT(line(odd.c_str(), 2.0F), testing::EndsWith(" 3 " + odd + "\n"));
}

TEST(DiagnosticLine, IsTheSameUnderEveryRounding) {
  for (const float value : {1.1F, -1.0e-7F, 1.0000005F, -0.3F, 3.3e38F}) {
    const std::string expected = line("init", value);
    for (const int rounding : kRoundings) {
      const ScopedRounding hosts(rounding);
      EXPECT_EQ(line("init", value), expected) << value;
    }
  }
  EXPECT_EQ(line("init", 1.1F), "Invalid parameter 2 value 1.100000 on save of preset 3 init\n");
}

TEST(DiagnosticLine, HasAPointInEveryLanguage) {
  for (const char* point : {",", "\u066b"}) {
    const ScopedPoint hosts(point);
    if (!hosts.isSet()) GTEST_SKIP() << "locales are kept in another way here";
    ASSERT_EQ(ScopedPoint::quarter(), std::string("1") + point + "25");
    EXPECT_EQ(line("init", 1.25F), "Invalid parameter 2 value 1.250000 on save of preset 3 init\n");
    EXPECT_EQ(line("init", -std::numeric_limits<float>::infinity()),
              "Invalid parameter 2 value -inf on save of preset 3 init\n");
  }
}

}  // namespace
