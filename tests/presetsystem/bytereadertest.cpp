// Words of either byte order out of bounded memory.
#include "presetsystem/image/bytereader.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "tests/support/imagebytes.h"

namespace {

TEST(ByteReader, ReadsWordsOfBothByteOrders) {
  for (const bool other : {false, true}) {
    const imagebytes::Bytes data =
        imagebytes::Writer(other).word(0x01020304).real(0.75F).byte(200).number(-5).bytes;
    ByteReader in(data, other);
    EXPECT_EQ(in.int32(), 0x01020304);
    EXPECT_EQ(in.float32(), 0.75F);
    EXPECT_EQ(in.uint8(), 200);
    EXPECT_EQ(in.int32(), -5) << "not on a word's boundary";
    EXPECT_EQ(in.left(), 0U);
  }
}

TEST(ByteReader, ReadsZerosBehindTheEnd) {
  const imagebytes::Bytes data = {0xFF};
  ByteReader in(data, false);
  EXPECT_EQ(static_cast<std::uint32_t>(in.int32()) & 0xFFFFFF00U, 0U)
      << "the three bytes that are not there";
  EXPECT_EQ(in.left(), 0U);
  EXPECT_EQ(in.int32(), 0);
  EXPECT_EQ(in.float32(), 0.0F);
  EXPECT_EQ(in.uint8(), 0);
  char some[3] = {'a', 'b', 'c'};
  in.bytes(some, 3);
  EXPECT_EQ(std::memcmp(some, "\0\0\0", 3), 0);
}

TEST(ByteReader, DoesNotTurnBytes) {
  const imagebytes::Bytes data = {'a', 'b', 'c', 'd'};
  ByteReader in(data, true);
  char some[4];
  in.bytes(some, 4);
  EXPECT_EQ(std::memcmp(some, "abcd", 4), 0);
}

TEST(ByteReader, SkipsNoFurtherThanTheEnd) {
  const imagebytes::Bytes data(10);
  ByteReader in(data, false);
  in.skip(4);
  EXPECT_EQ(in.left(), 6U);
  in.skip(1000);
  EXPECT_EQ(in.left(), 0U);
}

TEST(ByteReader, TakesAPartOutAsAReaderOfItsOwn) {
  const imagebytes::Bytes data = imagebytes::Writer(true).number(1).number(2).number(3).bytes;
  ByteReader in(data, true);
  ByteReader part = in.part(4);
  EXPECT_EQ(in.int32(), 2);
  EXPECT_EQ(part.int32(), 1) << "in the same byte order";
  EXPECT_EQ(part.int32(), 0) << "its own end";
  EXPECT_EQ(in.part(100).left(), 4U);
  EXPECT_EQ(in.left(), 0U);
}

TEST(ByteReader, ReversesTheBytesOfAWord) {
  EXPECT_EQ(reversedBytes(0x01020304U), 0x04030201U);
  EXPECT_EQ(reversedBytes(0xFF000080U), 0x800000FFU);
}

}  // namespace
