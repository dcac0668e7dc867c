// The bytes of preset and bank files, against the same put together by the test.
#include "host/state/fxfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/base/failure.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using Bytes = std::vector<unsigned char>;

Bytes operator+(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

Bytes text(const std::string& letters, std::size_t size) {
  Bytes bytes(letters.begin(), letters.end());
  bytes.resize(size);
  return bytes;
}

Bytes tag(const std::string& letters) {
  return text(letters, 4);
}

Bytes word(unsigned value) {
  return {static_cast<unsigned char>(value >> 24), static_cast<unsigned char>(value >> 16),
          static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value)};
}

// What follows the size, with the size in front.
Bytes file(const Bytes& rest) {
  return tag("CcnK") + word(static_cast<unsigned>(rest.size())) + rest;
}

Bytes head(const std::string& kind, unsigned version) {
  return tag(kind) + word(version) + tag("Abcd") + word(0x01020304);
}

constexpr int kEffect = 0x41626364;  // "Abcd"
// 0.5 and 1, as floats are stored
const Bytes kHalf{0x3F, 0, 0, 0};
const Bytes kOne{0x3F, 0x80, 0, 0};

Bytes valuesFile() {
  return file(head("FxCk", 1) + word(2) + text("Warm", 28) + kHalf + kOne);
}
Bytes programChunkFile() {
  return file(head("FPCh", 1) + word(7) + text("Cold", 28) + word(3) + Bytes{9, 8, 7});
}
Bytes programsFile() {
  return file(head("FxBk", 2) + word(2) + word(1) + Bytes(124) + valuesFile() + valuesFile());
}
Bytes bankChunkFile() {
  return file(head("FBCh", 2) + word(16) + word(5) + Bytes(124) + word(2) + Bytes{1, 2});
}

std::string refusalOf(const Bytes& bytes) {
  try {
    FxFile::read(bytes, "x.fxp");
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "accepted";
}

}  // namespace

TEST(FxFiles, HoldTheValuesOfAProgram) {
  const FxFile read = FxFile::read(valuesFile(), "x.fxp");
  EXPECT_EQ(read.kind, FxFile::Kind::program);
  EXPECT_EQ(read.effect, kEffect);
  EXPECT_EQ(read.effectVersion, 0x01020304);
  ASSERT_THAT(read.programs, SizeIs(1));
  EXPECT_EQ(read.programs[0].name, "Warm");
  EXPECT_THAT(read.programs[0].values, ElementsAre(0.5F, 1.0F));
  EXPECT_EQ(read.bytes(), valuesFile());
}

TEST(FxFiles, HoldAProgramsChunk) {
  const FxFile read = FxFile::read(programChunkFile(), "x.fxp");
  EXPECT_EQ(read.kind, FxFile::Kind::program);
  ASSERT_TRUE(read.programs.at(0).chunk);
  EXPECT_EQ(read.programs[0].name, "Cold");
  EXPECT_THAT(read.programs[0].chunk->bytes, ElementsAre(9, 8, 7));
  EXPECT_EQ(read.bytes(), programChunkFile());
}

TEST(FxFiles, HoldTheProgramsOfABank) {
  const FxFile read = FxFile::read(programsFile(), "x.fxb");
  EXPECT_EQ(read.kind, FxFile::Kind::bank);
  EXPECT_EQ(read.current, 1);
  ASSERT_THAT(read.programs, SizeIs(2));
  EXPECT_THAT(read.programs[1].values, ElementsAre(0.5F, 1.0F));
  EXPECT_EQ(read.bytes(), programsFile());
}

TEST(FxFiles, HoldABanksChunk) {
  const FxFile read = FxFile::read(bankChunkFile(), "x.fxb");
  EXPECT_EQ(read.kind, FxFile::Kind::bank);
  EXPECT_THAT(read.programs, IsEmpty());
  ASSERT_TRUE(read.chunk);
  EXPECT_THAT(read.chunk->bytes, ElementsAre(1, 2));
  EXPECT_EQ(read.bytes(), bankChunkFile());
}

TEST(FxFiles, MayHoldChunksForTheProgramsOfABank) {
  const Bytes bytes = file(head("FxBk", 2) + word(1) + word(0) + Bytes(124) + programChunkFile());
  EXPECT_THAT(FxFile::read(bytes, "x.fxb").programs.at(0).chunk->bytes, ElementsAre(9, 8, 7));
}

TEST(FxFiles, TellNoCurrentProgramInTheirFirstVersion) {
  const Bytes bytes =
      file(head("FxBk", 1) + word(2) + word(77) + Bytes(124) + valuesFile() + valuesFile());
  EXPECT_EQ(FxFile::read(bytes, "x.fxb").current, 0);
}

TEST(FxFiles, MayNameAWrongSizeOfTheirOwn) {
  Bytes bytes = valuesFile();
  for (std::size_t i = 4; i < 8; ++i) bytes[i] = 0;
  EXPECT_EQ(refusalOf(bytes), "accepted");
}

TEST(FxFiles, KeepTheFirst27BytesOfALongName) {
  FxFile written = FxFile::read(valuesFile(), "x.fxp");
  written.programs[0].name = std::string(40, 'n');
  EXPECT_EQ(FxFile::read(written.bytes(), "x.fxp").programs[0].name, std::string(27, 'n'));
  EXPECT_THAT(written.bytes(), SizeIs(valuesFile().size()));
}

TEST(FxFiles, AreRefusedWhereverTheyAreCut) {
  for (const Bytes& whole : {valuesFile(), programChunkFile(), programsFile(), bankChunkFile()}) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
      const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
      EXPECT_EQ(refusalOf(cut), "x.fxp: is cut short") << size << " of " << whole.size();
    }
  }
}

TEST(FxFiles, AreRefusedWhenTheyHoldSomethingElse) {
  EXPECT_THAT(refusalOf(text("RIFFand more", 200)), HasSubstr("is no preset or bank file"));
  EXPECT_THAT(refusalOf(file(head("FxXx", 1) + Bytes(100))), HasSubstr("is damaged"));
  EXPECT_THAT(refusalOf(file(head("FxBk", 2) + word(1) + word(0) + Bytes(124) + bankChunkFile())),
              HasSubstr("is damaged"))
      << "a bank in a bank";
  EXPECT_THAT(refusalOf(file(head("FxBk", 2) + word(1) + word(1) + Bytes(124) + valuesFile())),
              HasSubstr("is damaged"))
      << "a current program that is not there";
  const Bytes nan{0x7F, 0xC0, 0, 0};
  EXPECT_THAT(refusalOf(file(head("FxCk", 1) + word(1) + text("", 28) + nan)),
              HasSubstr("not a number"));
}

TEST(FxFiles, AreRefusedWhenTheyNameMoreThanThereIs) {
  for (const unsigned length : {0x7FFFFFFFU, 0x10000000U, 0xFFFFFFFFU, 0x80000000U}) {
    const std::string text1 =
        refusalOf(file(head("FxCk", 1) + word(length) + text("", 28) + kHalf));
    const std::string text2 =
        refusalOf(file(head("FPCh", 1) + word(1) + text("", 28) + word(length) + Bytes(9)));
    const std::string text3 =
        refusalOf(file(head("FBCh", 2) + word(1) + word(0) + Bytes(124) + word(length)));
    const std::string text4 =
        refusalOf(file(head("FxBk", 2) + word(length) + word(0) + Bytes(124) + valuesFile()));
    for (const std::string& refusal : {text1, text2, text3, text4}) {
      EXPECT_THAT(refusal, testing::AnyOf(HasSubstr("is cut short"), HasSubstr("is damaged")))
          << length;
    }
  }
}
