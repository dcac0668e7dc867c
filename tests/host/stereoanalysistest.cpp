// What an effect did to the stereo image of a signal.
#include "host/plot/stereoanalysis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

TEST(StereoAnalysis, MeasuresLevelsOfMidAndSide) {
  StereoImage image;
  for (int i = 0; i < 1000; ++i) image.add(0.75, 0.25);  // mid 0.5, side 0.25
  EXPECT_NEAR(image.midLevel(), 0.5, 1e-12);
  EXPECT_NEAR(image.sideLevel(), 0.25, 1e-12);
  EXPECT_EQ(image.peak(), 0.75);
}

TEST(StereoAnalysis, TellsTheSameOppositeAndUnrelatedChannelsApart) {
  StereoImage same;
  StereoImage opposite;
  StereoImage unrelated;
  for (int i = 0; i < 1000; ++i) {
    const double x = std::sin(0.1 * i);
    same.add(x, 0.5 * x);
    opposite.add(x, -2.0 * x);
    unrelated.add(i % 2 == 0 ? 1.0 : 0.0, i % 2 == 0 ? 0.0 : 1.0);
  }
  EXPECT_NEAR(same.correlation(), 1.0, 1e-9);
  EXPECT_NEAR(opposite.correlation(), -1.0, 1e-9);
  EXPECT_EQ(unrelated.correlation(), 0.0);
  EXPECT_EQ(StereoImage().correlation(), 0.0) << "nothing at all";
}

TEST(StereoAnalysis, FindsTheLargestFoldError) {
  StereoAnalysis analysis(44100);
  const std::vector<double> left = {0.5, 0.25, 0.0};
  const std::vector<double> right = {0.5, 0.75, 0.0};  // mid 0.5, 0.5, 0
  analysis.addBefore(left.data(), right.data(), 3);
  const std::vector<double> outLeft = {1.0, 0.5, 0.125};
  const std::vector<double> outRight = {0.0, 0.25, 0.125};  // folds to 0.5, 0.375, 0.125
  analysis.addAfter(outLeft.data(), outRight.data(), 3);
  EXPECT_EQ(analysis.foldError(), 0.125);
}

TEST(StereoAnalysis, ExpectsTheGainInTheFold) {
  StereoAnalysis analysis(44100, 2.0);
  const double before = 0.25;
  const double after = 0.5;
  analysis.addBefore(&before, &before, 1);
  analysis.addAfter(&after, &after, 1);
  EXPECT_EQ(analysis.foldError(), 0.0);
}

TEST(StereoAnalysis, ComparesLateFramesWithTheirOwnInput) {
  StereoAnalysis analysis(44100);
  std::vector<double> signal;
  signal.reserve(5000);
  for (int i = 0; i < 5000; ++i) signal.push_back(std::sin(0.01 * i));
  // Blocks go in, and come out in other pieces and 300 frames later.
  std::size_t out = 0;
  for (std::size_t in = 0; in < signal.size(); in += 100) {
    analysis.addBefore(&signal[in], &signal[in], 100);
    for (; out + 300 < in; out += 50) analysis.addAfter(&signal[out], &signal[out], 50);
  }
  for (; out < signal.size(); out += 50) analysis.addAfter(&signal[out], &signal[out], 50);
  EXPECT_EQ(analysis.foldError(), 0.0);
}

TEST(StereoAnalysis, ComparesATailWithSilence) {
  StereoAnalysis analysis(44100);
  const std::vector<double> one = {1.0};
  analysis.addBefore(one.data(), one.data(), 1);
  analysis.addAfter(one.data(), one.data(), 1);
  const std::vector<double> left = {0.5, 0.5};
  const std::vector<double> right = {-0.5, -0.25};
  analysis.addAfter(left.data(), right.data(), 2);
  EXPECT_EQ(analysis.foldError(), 0.125);
}
