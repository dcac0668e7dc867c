// The tables of what follows from a sample rate: one for all that run at a rate, right for each,
// whoever comes and goes, and on however many threads.
#include "effect/sharedrates.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

namespace {

constexpr double kRemainder = 1.0 / 16.0;  // of a step after one closing time
constexpr double kMeterSeconds = 0.6;
constexpr double kGlideSeconds = 0.277;

// What a frame leaves of a level and of a glide's way, as powers of each other have it: all frames
// of a closing time leave a sixteenth.
testing::AssertionResult isOf(const kernel::Rates& rates, double hz) {
  const double levelFrames = std::log(kRemainder) / std::log(1.0 - rates.level);
  const double glideFrames =
      std::log(kRemainder) / std::log(1.0 - static_cast<double>(rates.glide));
  constexpr double kDigits = 1e-3;  // a glide's coefficient is a float near 0
  if (std::fabs(levelFrames / (kMeterSeconds * hz) - 1.0) > kDigits)
    return testing::AssertionFailure() << "levels close in " << levelFrames << " at " << hz;
  if (std::fabs(glideFrames / (kGlideSeconds * hz) - 1.0) > kDigits)
    return testing::AssertionFailure() << "glides close in " << glideFrames << " at " << hz;
  if (std::fabs(rates.left[0] - std::pow(1.0 - rates.level, kernel::kRunFrames - 1)) > 1e-12 ||
      rates.left[kernel::kRunFrames - 1] != 1.0)
    return testing::AssertionFailure() << "what is left of a level is wrong at " << hz;
  return testing::AssertionSuccess();
}

// A hold, and the table of its own.
struct User {
  void take(float hz) { rates.take(hz, own); }
  const kernel::Rates& operator*() const { return *rates; }

  kernel::Rates own;
  SharedRates rates;
};

constexpr float kLowest = 8000.0F;  // Hz
constexpr int kMany = 30;           // rates, more than are shared at a time

float rateNumber(int number) {
  return kLowest + 1000.0F * static_cast<float>(number);
}

}  // namespace

// A host that tells a rate of 0 gets a table, too: nothing is left of anything.
// The first test, since all others fill the tables.
TEST(SharedRates, AreMadeForARateOfZero) {
  User rates;
  rates.take(0.0F);
  EXPECT_EQ((*rates).level, 1.0);
  EXPECT_EQ((*rates).glide, 1.0F);
}

TEST(SharedRates, AreOneTableForAllThatRunAtARate) {
  User first;
  User second;
  User other;
  first.take(44100.0F);
  second.take(44100.0F);
  other.take(48000.0F);
  EXPECT_EQ(&*first, &*second);
  EXPECT_NE(&*first, &*other);
  EXPECT_TRUE(isOf(*first, 44100.0));
  EXPECT_TRUE(isOf(*other, 48000.0));
}

TEST(SharedRates, StayWhileOneOfTheirUsersIsThere) {
  User stays;
  stays.take(44100.0F);
  const kernel::Rates* const table = &*stays;
  {
    User goes;
    goes.take(44100.0F);
    goes.take(48000.0F);
    goes.take(44100.0F);
    EXPECT_EQ(&*goes, table);
  }
  User other;
  for (int number = 0; number < kMany; ++number) other.take(rateNumber(number));
  EXPECT_EQ(&*stays, table);
  EXPECT_TRUE(isOf(*stays, 44100.0));
}

TEST(SharedRates, AreRightForMoreRatesThanAreShared) {
  std::vector<User> many(kMany);
  for (int number = 0; number < kMany; ++number)
    many[static_cast<std::size_t>(number)].take(rateNumber(number));
  for (int number = 0; number < kMany; ++number)
    EXPECT_TRUE(
        isOf(*many[static_cast<std::size_t>(number)], static_cast<double>(rateNumber(number))));
}

TEST(SharedRates, AreSharedAgainAfterTheManyHaveGone) {
  {
    std::vector<User> many(kMany);
    for (int number = 0; number < kMany; ++number)
      many[static_cast<std::size_t>(number)].take(rateNumber(number));
  }
  User first;
  User second;
  first.take(96000.0F);
  second.take(96000.0F);
  EXPECT_EQ(&*first, &*second);
}

// Threads that all take a rate at once, which nobody had before: one of them makes the table, and
// nobody reads it before it is done.
TEST(SharedRates, AreRightOnAllThreadsThatTakeThem) {
  constexpr int kThreads = 4;
  constexpr int kTurns = 2000;
  std::atomic<int> arrived{0};
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&arrived, &wrong] {
      User rates;
      for (int turn = 0; turn < kTurns; ++turn) {
        ++arrived;
        while (arrived < (turn + 1) * kThreads) std::this_thread::yield();
        const float hz = rateNumber(turn % 5);
        rates.take(hz);
        if (!isOf(*rates, static_cast<double>(hz))) ++wrong;
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}
