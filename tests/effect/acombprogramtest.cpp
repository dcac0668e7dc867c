// One preset's record.
#include "presetsystem/image/acombprogram.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(ACombProgram, StartsAsInitWithMiddleValues) {
  const ACombProgram preset;
  EXPECT_STREQ(preset.name, "init");
  EXPECT_EQ(preset.width, 0.5F);
  EXPECT_EQ(preset.baseFreq, 0.5F);
  EXPECT_EQ(preset.emphasis, 0.5F);
  EXPECT_EQ(preset.process, 1.0F);
  EXPECT_EQ(preset.phase, 0.0F);
}

TEST(ACombProgram, IsANameOf24BytesAndFiveFloats) {
  EXPECT_EQ(sizeof(ACombProgram), 24U + 5U * 4U);
  EXPECT_EQ(offsetof(ACombProgram, name), 0U);
  EXPECT_EQ(offsetof(ACombProgram, width), 24U);
  EXPECT_EQ(offsetof(ACombProgram, baseFreq), 28U);
  EXPECT_EQ(offsetof(ACombProgram, emphasis), 32U);
  EXPECT_EQ(offsetof(ACombProgram, process), 36U);
  EXPECT_EQ(offsetof(ACombProgram, phase), 40U);
}

TEST(ACombProgram, ZeroedHasOnlyZeroBytes) {
  const ACombProgram preset = ACombProgram::zeroed();
  for (const char byte : preset.name) EXPECT_EQ(byte, 0);
  for (int index = 0; index < 5; ++index) EXPECT_EQ(preset.parameter(index), 0.0F);
}

TEST(ACombProgram, NumbersItsValuesInParameterOrder) {
  ACombProgram preset;
  for (int index = 0; index < 5; ++index) preset.setParameter(index, static_cast<float>(index + 1));
  EXPECT_EQ(preset.width, 1.0F);
  EXPECT_EQ(preset.baseFreq, 2.0F);
  EXPECT_EQ(preset.emphasis, 3.0F);
  EXPECT_EQ(preset.process, 4.0F);
  EXPECT_EQ(preset.phase, 5.0F);
  for (int index = 0; index < 5; ++index)
    EXPECT_EQ(preset.parameter(index), static_cast<float>(index + 1));
}

TEST(ACombProgram, KeepsAtMost23CharactersOfAName) {
  ACombProgram preset;
  for (const std::size_t length : {0U, 1U, 22U, 23U, 24U, 25U, 500U}) {
    const std::string name(length, 'n');
    preset.rename(name.c_str());
    EXPECT_EQ(std::string(preset.name), name.substr(0, 23)) << length;
    EXPECT_EQ(preset.name[23], 0);
  }
}

TEST(ACombProgram, ClearsTheBytesBehindAShorterName) {
  ACombProgram preset;
  preset.rename("a name that is much longer");
  preset.rename("ab");
  EXPECT_EQ(std::string(preset.name, sizeof preset.name),
            std::string("ab") + std::string(22, '\0'));
}

}  // namespace
