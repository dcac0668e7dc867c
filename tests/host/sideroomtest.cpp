// How much of the side signal fits into full scale.
#include "host/measure/sideroom.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// mid, side
double factorFor(const std::vector<std::pair<double, double>>& frames) {
  SideRoom room;
  for (const auto& [mid, side] : frames) {
    const double left = mid + side;
    const double right = mid - side;
    room.add(&left, &right, 1);
  }
  return room.factor();
}

}  // namespace

TEST(SideRooms, AreWhatIsLeftByTheMid) {
  EXPECT_EQ(factorFor({{0.5, 1.0}}), 0.5);
  EXPECT_EQ(factorFor({{-0.5, 1.0}}), 0.5);
  EXPECT_EQ(factorFor({{0.5, -1.0}}), 0.5);
  EXPECT_EQ(factorFor({{0.5, 1.0}, {0.75, 1.0}, {0.25, 1.0}}), 0.25) << "the narrowest counts";
}

TEST(SideRooms, AreOneWhereNothingIsBeyondFullScale) {
  EXPECT_EQ(factorFor({}), 1.0);
  EXPECT_EQ(factorFor({{0.5, 0.5}, {0.0, -1.0}, {-1.0, 0.0}}), 1.0);
}

TEST(SideRooms, AreNoneWhereTheMidAloneIsBeyondIt) {
  EXPECT_EQ(factorFor({{1.25, 0.0}}), 0.0);
  EXPECT_EQ(factorFor({{0.5, 1.0}, {-1.25, 0.5}, {0.5, 1.0}}), 0.0);
  EXPECT_EQ(factorFor({{1.0, 0.5}}), 0.0);
}
