// Collected words and bytes.
#include "presetsystem/image/bytewriter.h"

#include <gtest/gtest.h>

#include "tests/presetsystem/imagebytes.h"

namespace {

TEST(ByteWriter, LaysThingsOneBehindTheOther) {
  ByteWriter out;
  out.uint8(7);
  out.int32(-2);
  out.float32(0.5F);
  out.zeros(3);
  out.bytes("ab", 2);
  EXPECT_EQ(out.size(), 14U);
  const imagebytes::Bytes expected =
      imagebytes::Writer().byte(7).number(-2).real(0.5F).zeros(3).byte('a').byte('b').bytes;
  EXPECT_EQ(out.take(), expected);
}

TEST(ByteWriter, TakesNothingFromNowhere) {
  ByteWriter out;
  out.bytes(nullptr, 0);
  EXPECT_TRUE(out.take().empty());
}

}  // namespace
