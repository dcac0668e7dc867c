// Words and bytes written into memory.
#include "presetsystem/image/bytewriter.h"

#include <gtest/gtest.h>

#include "tests/support/imagebytes.h"

namespace {

TEST(ByteWriter, LaysThingsOneAfterTheOther) {
  imagebytes::Bytes memory(14);
  ByteWriter out(memory);
  out.uint8(7);
  out.int32(-2);
  out.float32(0.5F);
  out.zeros(3);
  out.bytes("ab", 2);
  EXPECT_EQ(out.size(), 14U);
  const imagebytes::Bytes expected =
      imagebytes::Writer().byte(7).number(-2).real(0.5F).zeros(3).byte('a').byte('b').bytes;
  EXPECT_EQ(memory, expected);
}

TEST(ByteWriter, TakesNothingFromNowhere) {
  imagebytes::Bytes memory(1);
  ByteWriter out(memory);
  out.bytes(nullptr, 0);
  EXPECT_EQ(out.size(), 0U);
}

TEST(ByteWriter, WritesNothingPastTheEndAndNothingAfterWhatFoundNoRoom) {
  imagebytes::Bytes memory(8, 0xEE);
  ByteWriter out(std::span<unsigned char>(memory).first(6));
  out.int32(0);
  out.int32(0);
  out.uint8(0);
  EXPECT_EQ(out.size(), 4U);
  EXPECT_EQ(memory, (imagebytes::Bytes{0, 0, 0, 0, 0xEE, 0xEE, 0xEE, 0xEE}));
}

}  // namespace
