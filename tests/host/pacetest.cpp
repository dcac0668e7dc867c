// Waiting for the clock to come to a frame. All bounds are wide: the machine may be busy.
#include "host/play/pace.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class PaceTest : public testing::Test {
 protected:
  double passed() const {
    return std::chrono::duration<double>(steady_clock::now() - start).count();
  }
  static void wait(Pace& pace, std::int64_t frames) {
    while (!pace.reached(frames)) continue;
  }

  const steady_clock::time_point start = steady_clock::now();
};

}  // namespace

TEST_F(PaceTest, ComesToAFrameInItsTime) {
  Pace pace(1000.0);
  wait(pace, 100);
  EXPECT_GE(passed(), 0.099);
  wait(pace, 200);
  EXPECT_GE(passed(), 0.199);
  EXPECT_LT(passed(), 5.0);
  EXPECT_TRUE(pace.reached(150)) << "long gone";
}

TEST_F(PaceTest, SleepsAPieceOnly) {
  Pace pace(1000.0);
  EXPECT_FALSE(pace.reached(60000));
  EXPECT_LT(passed(), 5.0) << "whoever waits can be stopped";
}

TEST_F(PaceTest, LetsAsMuchAheadAsItBeganBehind) {
  Pace pace(1000.0, Pace::Beginning::behind);
  EXPECT_TRUE(pace.reached(200)) << "of 250";
  EXPECT_FALSE(pace.reached(60000));
}

TEST_F(PaceTest, MakesUpForAQuarterOfASecondAndNoMore) {
  Pace pace(1000.0);
  std::this_thread::sleep_for(milliseconds(1000));
  EXPECT_TRUE(pace.reached(1)) << "and the rest of the second is forgotten";
  EXPECT_TRUE(pace.reached(200)) << "of 250";
  EXPECT_FALSE(pace.reached(900)) << "which the clock alone has passed";
}
