// The documents of --json.
#include "host/cli/json.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(JsonDocuments, KeepTheirMembersInOrderAndEndWithALine) {
  EXPECT_EQ(documentText({{"b", 1}, {"a", nullptr}}), "{\n  \"b\": 1,\n  \"a\": null\n}\n");
}

TEST(JsonDocuments, HoldNamesThatAreNoUtf8) {
  EXPECT_EQ(documentText(Json(std::string("a\xFF\"b\n"))), "\"a\xEF\xBF\xBD\\\"b\\n\"\n");
}

TEST(JsonDocuments, ShowASingleAsItIsTyped) {
  EXPECT_EQ(numberOf(0.1F).dump(), "0.1");
  EXPECT_EQ(numberOf(1.0F).dump(), "1.0");
  EXPECT_EQ(numberOf(0.0F).dump(), "0.0");
  EXPECT_EQ(numberOf(0.333333343F).dump(), "0.33333334") << "the next ones end with 1 and 7";
  EXPECT_EQ(numberOf(0x1p-149F).dump(), "1e-45");
  EXPECT_EQ(numberOf(16777215.0F).dump(), "16777215.0");
}

TEST(JsonDocuments, HaveNoNumberThatIsNone) {
  EXPECT_EQ(numberOf(std::nanf("")).dump(), "null");
  EXPECT_EQ(numberOf(-INFINITY).dump(), "null");
}

TEST(JsonDocuments, RoundDecibelsAndCallSilenceNull) {
  EXPECT_EQ(decibelsOf(0.5).dump(), "-6.021");  // 20 lg 0.5 = -6.0206
  EXPECT_EQ(decibelsOf(1.0).dump(), "0.0");
  EXPECT_EQ(decibelsOf(0.999999).dump(), "0.0") << "without a sign";
  EXPECT_TRUE(decibelsOf(0.0).is_null());
}
