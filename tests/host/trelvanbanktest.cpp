// Trelvan's bank as it travels in the chunk.
#include "host/state/trelvanbank.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>

#include "host/base/failure.h"
#include "plugin/vst24.h"
#include "tests/support/imageblocks.h"
#include "tests/support/imagebytes.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Bytes = std::vector<unsigned char>;

constexpr VstInt32 kID = vstFourChars('T', 'l', 'v', 'n');
constexpr presetimage::DummySlots kNone = {};

ACombProgram preset(const std::string& name, float width, float baseFreq, float emphasis,
                    float process, float phase) {
  ACombProgram made = ACombProgram::zeroed();
  std::memcpy(made.name, name.c_str(), name.size());
  const float values[] = {width, baseFreq, emphasis, process, phase};
  for (int i = 0; i < ACombProgram::kParameterCount; ++i) made.setParameter(i, values[i]);
  return made;
}

// Each preset is another.
presetimage::Bank someBank() {
  presetimage::Bank bank;
  for (std::size_t i = 0; i < bank.size(); ++i) {
    const float step = static_cast<float>(i) / 64.0F;
    bank[i] = preset("preset " + std::to_string(i), step, 1.0F - step, step / 2, 1.0F, 0.0F);
  }
  return bank;
}

Bytes bankFile(const presetimage::Bank& bank, int current) {
  presetimage::InvalidParameters none;
  return presetimage::writeBank(bank, kID, current, kNone, none);
}

Bytes someChunk() {
  return presetimage::wrapBank(bankFile(someBank(), 7), kID);
}

TrelvanBank bankOf(const Bytes& chunk) {
  return {chunk, kID, "chunk"};
}

void expectEqual(const ACombProgram& a, const ACombProgram& b) {
  EXPECT_STREQ(a.name, b.name);
  for (int i = 0; i < ACombProgram::kParameterCount; ++i)
    EXPECT_EQ(a.parameter(i), b.parameter(i)) << a.name << i;
}

// A file as a machine of the other byte order writes it.
imagebytes::Writer turned() {
  return imagebytes::Writer(true);
}

std::string refusalOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "accepted";
}

}  // namespace

TEST(TrelvanBank, TakesAChunkApartAndPutsItTogetherTheSame) {
  const Bytes chunk = someChunk();
  const TrelvanBank bank = bankOf(chunk);
  EXPECT_EQ(bank.current(), 7);
  const auto expected = someBank();
  for (std::size_t i = 0; i < expected.size(); ++i) expectEqual(bank.presets()[i], expected[i]);
  EXPECT_EQ(bank.chunk(), chunk);
}

TEST(TrelvanBank, SelectsAPresetInTheChunkAndNothingElse) {
  TrelvanBank bank = bankOf(someChunk());
  bank.select(12);
  const TrelvanBank again = bankOf(bank.chunk());
  EXPECT_EQ(again.current(), 12);
  expectEqual(again.presets()[12], someBank()[12]);
}

TEST(TrelvanBank, LoadsAPresetFileIntoTheCurrentPlace) {
  const ACombProgram loaded = preset("mine", 0.1F, 0.2F, 0.3F, 0.0F, 1.0F);
  TrelvanBank bank = bankOf(someChunk());
  bank.loadPreset(presetimage::writePreset(loaded, kID, kNone), "a.orv");
  expectEqual(bank.presets()[7], loaded);
  expectEqual(bank.presets()[6], someBank()[6]);
  expectEqual(bank.presets()[8], someBank()[8]);
  EXPECT_EQ(bank.current(), 7);
}

TEST(TrelvanBank, LoadsABankFileAndSelectsItsFirstPreset) {
  presetimage::Bank other = someBank();
  other[0] = preset("first", 0.9F, 0.8F, 0.7F, 0.0F, 1.0F);
  TrelvanBank bank = bankOf(someChunk());
  bank.loadBank(bankFile(other, 5), "a.orb");
  EXPECT_EQ(bank.current(), 0) << "though the file names another";
  expectEqual(bank.presets()[0], other[0]);
}

TEST(TrelvanBank, LoadsAnOldPresetOfTheOtherByteOrder) {
  const Bytes file =
      turned().number(kID).byte(33).text("old one", 24).real(0.25F).real(0.5F).real(0.75F).bytes;
  TrelvanBank bank = bankOf(someChunk());
  bank.loadPreset(file, "old.orv");
  expectEqual(bank.presets()[7], preset("old one", 0.25F, 0.5F, 0.75F, 1.0F, 0.0F));
}

TEST(TrelvanBank, LoadsACurrentPresetOfTheOtherByteOrder) {
  imagebytes::Writer file = turned();
  file.number(kID).byte(34).word(0x01090900).word(5).word(2).word(0).word(168 + 32).zeros(16);
  file.word(0).word(156).word(0).text("turned", 24).zeros(132);
  file.word(1).word(20).word(0).word(2).word(0).word(0).real(0.625F).word(0);
  TrelvanBank bank = bankOf(someChunk());
  bank.loadPreset(file.bytes, "turned.orv");
  EXPECT_STREQ(bank.presets()[7].name, "turned");
  EXPECT_EQ(bank.presets()[7].parameter(2), 0.625F);
  EXPECT_EQ(bank.presets()[7].parameter(0), 0.0F) << "left out: the first factory preset's width";
}

TEST(TrelvanBank, LoadsAnOldBankOfTheOtherByteOrder) {
  imagebytes::Writer file = turned();
  file.number(kID).byte(55);
  for (int i = 0; i < 32; ++i) {
    file.text("old", 24)
        .real(0.5F)
        .real(static_cast<float>(i) / 32.0F)
        .real(0.0F)
        .real(1.0F)
        .real(1.0F);
  }
  TrelvanBank bank = bankOf(someChunk());
  bank.loadBank(file.bytes, "old.orb");
  expectEqual(bank.presets()[31], preset("old", 0.5F, 31.0F / 32.0F, 0.0F, 1.0F, 1.0F));
  EXPECT_EQ(bank.current(), 0);
}

TEST(TrelvanBank, RepairsABankAndTakesNotes) {
  presetimage::Bank other = someBank();
  Bytes file = bankFile(other, 0);
  // Preset 3, parameter 2: after the header and three presets, its name entry and two parameter
  // entries; the value is 24 bytes into the entry.
  const std::size_t at = 41 + 3 * (168 + 5 * 32) + 168 + 2 * 32 + 24;
  const float wrong = 1.25F;
  std::memcpy(&file[at], &wrong, sizeof wrong);
  TrelvanBank bank = bankOf(someChunk());
  bank.loadBank(file, "a.orb");
  EXPECT_EQ(bank.presets()[3].parameter(2), 1.0F);
  EXPECT_THAT(bank.takeNotes(),
              ElementsAre(AllOf(HasSubstr("parameter 2 of preset 3"), HasSubstr("1.25"))));
  EXPECT_THAT(bank.takeNotes(), IsEmpty());
}

TEST(TrelvanBank, RefusesFilesThatItCannotTakeAndKeepsWhatItHad) {
  TrelvanBank bank = bankOf(someChunk());
  const Bytes before = bank.chunk();
  const Bytes presetFile = presetimage::writePreset(preset("x", 0, 0, 0, 0, 0), kID, kNone);
  const Bytes bankBytes = bankFile(someBank(), 0);
  Bytes foreign = presetFile;
  foreign[0] ^= 1;
  Bytes unknown = presetFile;
  unknown[4] = 12;
  Bytes cut(presetFile.begin(), presetFile.end() - 5);
  Bytes stub(presetFile.begin(), presetFile.begin() + 20);
  const Bytes wild = presetimage::writePreset(preset("x", 1.25F, 0, 0, 0, 0), kID, kNone);
  const Bytes nan = presetimage::writePreset(preset("x", std::nanf(""), 0, 0, 0, 0), kID, kNone);
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(foreign, "f"); }),
              HasSubstr("f: not a file of this plug-in"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset({}, "f"); }),
              HasSubstr("not a file of this plug-in"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(bankBytes, "f"); }), HasSubstr("use --bank"));
  EXPECT_THAT(refusalOf([&] { bank.loadBank(presetFile, "f"); }), HasSubstr("use --preset"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(unknown, "f"); }), HasSubstr("holds no preset"));
  EXPECT_THAT(refusalOf([&] { bank.loadBank(unknown, "f"); }), HasSubstr("holds no bank"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(cut, "f"); }), HasSubstr("cut short"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(stub, "f"); }), HasSubstr("cut short"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(wild, "f"); }), HasSubstr("not within 0 to 1"));
  EXPECT_THAT(refusalOf([&] { bank.loadPreset(nan, "f"); }), HasSubstr("not within 0 to 1"));
  EXPECT_EQ(bank.chunk(), before);
}

TEST(TrelvanBank, RefusesChunksThatAreNone) {
  Bytes foreign = someChunk();
  foreign[4] ^= 1;
  Bytes unknown = someChunk();
  unknown[3] = 9;
  const Bytes whole = someChunk();
  const Bytes cut(whole.begin(), whole.end() - 1);
  EXPECT_THAT(refusalOf([&] { bankOf(foreign); }), HasSubstr("another plug-in's"));
  EXPECT_THAT(refusalOf([&] { bankOf(unknown); }), HasSubstr("unknown format"));
  EXPECT_THAT(refusalOf([&] { bankOf(cut); }), HasSubstr("cut short"));
  EXPECT_THAT(refusalOf([&] { bankOf({1, 2, 3}); }), HasSubstr("too short"));
  // The bank inside names its owner a second time, in the four bytes after the chunk's prefix of
  // eight; its kind is the next byte.
  Bytes foreignBank = whole;
  foreignBank[8] ^= 1;
  const auto firstBytes = [](const Bytes& chunk, int count) {
    return Bytes(chunk.begin(), chunk.begin() + count);
  };
  const auto notOurs = HasSubstr("not a file of this plug-in");
  EXPECT_THAT(refusalOf([&] { bankOf(foreignBank); }), notOurs);
  EXPECT_THAT(refusalOf([&] { bankOf(firstBytes(foreignBank, 20)); }), notOurs);
  EXPECT_THAT(refusalOf([&] { bankOf(firstBytes(whole, 8)); }), notOurs);
  EXPECT_THAT(refusalOf([&] { bankOf(firstBytes(whole, 12)); }), notOurs);
  EXPECT_THAT(refusalOf([&] { bankOf(firstBytes(whole, 13)); }), HasSubstr("cut short"));
}

TEST(TrelvanBank, LetsOldStatesPassTheCheckAndFindsDamageInCurrentOnes) {
  const auto check = [](const Bytes& chunk) {
    return refusalOf([&] { TrelvanBank::checkState(chunk, kID, "s"); });
  };
  EXPECT_EQ(check(someChunk()), "accepted");
  EXPECT_EQ(
      check(imagebytes::Writer().number(presetimage::kOldChunkTag).number(kID).zeros(24).bytes),
      "accepted");
  Bytes damaged = someChunk();
  const float nan = std::nanf("");
  std::memcpy(&damaged[8 + 41 + 168 + 24], &nan, sizeof nan);  // preset 0, parameter 0
  EXPECT_THAT(check(damaged), HasSubstr("not within 0 to 1"));
}
