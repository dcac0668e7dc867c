// How often a stereo signal is where in the plane of side and mid.
#include "host/plot/goniometer.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/plot/goniometerplot.h"

namespace {

std::uint64_t total(const Goniometer& goniometer) {
  std::uint64_t sum = 0;
  for (int row = 0; row < Goniometer::kCells; ++row) {
    for (int column = 0; column < Goniometer::kCells; ++column)
      sum += goniometer.count(column, row);
  }
  return sum;
}

}  // namespace

TEST(Goniometer, CountsEveryFrameWhileItsRangeGrows) {
  Goniometer goniometer;
  for (int i = 0; i < 2000; ++i) goniometer.add(i * 0.001, -i * 0.0007);
  EXPECT_EQ(total(goniometer), 2000U);
}

TEST(Goniometer, CoversTheSignalAndNotMuchMore) {
  Goniometer goniometer;
  goniometer.add(0.6, 0.6);  // mid 0.6, side 0
  EXPECT_GT(goniometer.range(), 0.6);
  EXPECT_LE(goniometer.range(), 1.2);
  EXPECT_NEAR(extentOf(goniometer), 0.6, 2.0 * goniometer.range() / Goniometer::kCells);
}

TEST(Goniometer, PutsTheLeftChannelOnPositiveSideAndMid) {
  Goniometer goniometer;
  goniometer.add(0.5, 0.0);
  EXPECT_EQ(goniometer.range(), 0.5) << "0.25 lies just outside of a range of 0.25";
  // mid and side are 0.25: three quarters of the way from -0.5 to 0.5.
  EXPECT_EQ(goniometer.count(Goniometer::kCells * 3 / 4, Goniometer::kCells * 3 / 4), 1U);
}

TEST(Goniometer, KeepsPlacesWhenTheRangeDoubles) {
  Goniometer goniometer;
  goniometer.add(0.1, 0.0);  // side 0.05, mid 0.05
  goniometer.add(3.0, 3.0);  // side 0, mid 3
  EXPECT_EQ(goniometer.range(), 4.0);
  const double cell = 2.0 * goniometer.range() / Goniometer::kCells;
  const auto near = [&](double value) {
    return static_cast<int>((value + goniometer.range()) / cell);
  };
  EXPECT_EQ(goniometer.count(near(0.05), near(0.05)), 1U);
  EXPECT_EQ(goniometer.count(near(0.0), near(3.0)), 1U);
}

TEST(Goniometer, CountsBeyondSixteenBits) {
  Goniometer goniometer;
  for (int i = 0; i < 200000; ++i) goniometer.add(0.5, 0.0);
  EXPECT_EQ(goniometer.count(Goniometer::kCells * 3 / 4, Goniometer::kCells * 3 / 4), 200000U);
  goniometer.add(3.0, 3.0);
  EXPECT_EQ(total(goniometer), 200001U) << "after the range has doubled";
}

TEST(Goniometer, LeavesOutWhatIsNoNumber) {
  Goniometer goniometer;
  goniometer.add(std::numeric_limits<double>::quiet_NaN(), 1.0);
  goniometer.add(std::numeric_limits<double>::infinity(), 1.0);
  EXPECT_EQ(total(goniometer), 0U);
}

TEST(Goniometer, HasNoExtentForSilence) {
  Goniometer goniometer;
  goniometer.add(0.0, 0.0);
  EXPECT_EQ(extentOf(goniometer), 0.0);
}
