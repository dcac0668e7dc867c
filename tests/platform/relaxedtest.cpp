// The word that several threads share.
#include "platform/relaxed.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <thread>
#include <type_traits>

namespace {

TEST(Relaxed, IsAsLargeAsTheWordItself) {
  EXPECT_EQ(sizeof(Relaxed<float>), sizeof(float));
  EXPECT_EQ(sizeof(Relaxed<std::int64_t>), sizeof(std::int64_t));
}

TEST(Relaxed, StartsAtZeroOrAtWhatItIsGiven) {
  EXPECT_EQ(Relaxed<float>().load(), 0.0F);
  EXPECT_EQ(Relaxed<float>(0.5F).load(), 0.5F);
  EXPECT_FALSE(Relaxed<bool>().load());
}

TEST(Relaxed, IsUsedLikeThePlainValue) {
  Relaxed<int> word = 3;
  word = word + 4;
  const int plain = word;
  EXPECT_EQ(plain, 7);
}

TEST(Relaxed, CopiesTheValueOnly) {
  Relaxed<int> first{1};
  Relaxed<int> second{first};
  first = 2;
  EXPECT_EQ(second.load(), 1);
  second = first;
  EXPECT_EQ(second.load(), 2);
}

TEST(Relaxed, HandsWholeWordsBetweenThreads) {
  Relaxed<std::int64_t> word{0};
  std::thread writer([&] {
    for (int i = 0; i < 20000; ++i) word = i % 2 == 0 ? 0 : -1;
  });
  for (int i = 0; i < 20000; ++i) {
    const std::int64_t seen = word;
    ASSERT_TRUE(seen == 0 || seen == -1);
  }
  writer.join();
}

}  // namespace
