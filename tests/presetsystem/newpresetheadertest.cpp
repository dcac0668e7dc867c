// The image header's 41 bytes.
#include "presetsystem/image/newpresetheader.h"

#include <gtest/gtest.h>

#include "presetsystem/image/bytewriter.h"
#include "tests/support/imagebytes.h"

namespace {

using imagebytes::Bytes;
using imagebytes::Writer;

Bytes written(const newpresetheader& header) {
  Bytes bytes(newpresetheader::kSize);
  ByteWriter out(bytes);
  header.write(out);
  EXPECT_EQ(out.size(), newpresetheader::kSize);
  return bytes;
}

// A different number in every word.
newpresetheader numbered() {
  newpresetheader header;
  header.uniqueID = 0x11121314;
  header.kind = ImageKind::bank;
  header.formatVersion = 0x21222324;
  header.parameterCount = 0x31323334;
  header.entryCount = 0x41424344;
  header.currentPreset = 0x51525354;
  header.dataSize = 0x61626364;
  header.reserved = {0x71727374, 0x01020304, 0x11223344, 0x55667708};
  return header;
}

Bytes numberedBytes(bool otherOrder) {
  return Writer(otherOrder)
      .word(0x11121314)
      .byte(56)
      .word(0x21222324)
      .word(0x31323334)
      .word(0x41424344)
      .word(0x51525354)
      .word(0x61626364)
      .word(0x71727374)
      .word(0x01020304)
      .word(0x11223344)
      .word(0x55667708)
      .bytes;
}

TEST(NewPresetHeader, IsWrittenIn41BytesWithoutPadding) {
  EXPECT_EQ(written(numbered()), numberedBytes(false));
  EXPECT_EQ(written(numbered()).size(), 41U);
}

TEST(NewPresetHeader, SaysVersion1990AndFiveParametersByItself) {
  EXPECT_EQ(written(newpresetheader()),
            Writer().word(0).byte(34).word(0x01090900).number(5).zeros(28).bytes);
}

TEST(NewPresetHeader, IsReadAsItWasWritten) {
  const newpresetheader header = newpresetheader::read(numberedBytes(false));
  EXPECT_EQ(written(header), numberedBytes(false));
  EXPECT_EQ(header.kind, ImageKind::bank);
  EXPECT_EQ(header.dataSize, 0x61626364);
}

TEST(NewPresetHeader, ReadsZerosWhereThereIsNoMoreData) {
  const newpresetheader header = newpresetheader::read(Bytes{0x14});
  EXPECT_EQ(header.kind, ImageKind{});
  EXPECT_EQ(header.formatVersion, 0);
  EXPECT_EQ(header.parameterCount, 0);
  EXPECT_EQ(header.entryCount, 0);
  EXPECT_EQ(header.currentPreset, 0);
  EXPECT_EQ(header.dataSize, 0);
}

TEST(NewPresetHeader, SwapReversesNineWordsAndNeitherTheIdNorTheKind) {
  newpresetheader header = numbered();
  byteSwapHeader(&header);
  Bytes expected = numberedBytes(true);
  const Bytes native = numberedBytes(false);
  std::copy_n(native.begin(), 5, expected.begin());
  EXPECT_EQ(written(header), expected);
}

TEST(NewPresetHeader, SwapTwiceIsTheSame) {
  newpresetheader header = numbered();
  byteSwapHeader(&header);
  byteSwapHeader(&header);
  EXPECT_EQ(written(header), numberedBytes(false));
}

TEST(NewPresetHeader, TellsTheByteOrderByTheUniqueId) {
  EXPECT_EQ(byteOrderOf(0x546C766E, 0x546C766E), ByteOrder::native);
  EXPECT_EQ(byteOrderOf(0x6E766C54, 0x546C766E), ByteOrder::swapped);
  EXPECT_EQ(byteOrderOf(0x546C766F, 0x546C766E), ByteOrder::foreign);
  EXPECT_EQ(byteOrderOf(0, 0x546C766E), ByteOrder::foreign);
}

TEST(NewPresetHeader, KindsAreTheCharactersOfTheFiles) {
  EXPECT_EQ(static_cast<int>(ImageKind::midiMap), 12);
  EXPECT_EQ(static_cast<int>(ImageKind::oldPreset), '!');
  EXPECT_EQ(static_cast<int>(ImageKind::preset), '"');
  EXPECT_EQ(static_cast<int>(ImageKind::oldBank), '7');
  EXPECT_EQ(static_cast<int>(ImageKind::bank), '8');
}

}  // namespace
