// The level meter's picture, its fall and its redraws.
#include "editor/controls/cvumeter1.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

constexpr int kWidth = 182, kHeight = 15;  // pixels

// Each column (or row) of each bitmap has a colour of its own, so that a pixel tells where
// it was read.
CColor lit(int place) {
  return {static_cast<std::uint8_t>(place), 255, 0};
}
CColor unlit(int place) {
  return {static_cast<std::uint8_t>(place), 0, 255};
}

class Meter : public ControlTest {
 protected:
  CVuMeter1* make(std::int32_t steps = 182, bool withUnlit = true, float decrease = 1.0F) {
    const auto on = bitmapOf(kWidth, kHeight, [](int x, int) { return lit(x); });
    const auto off = bitmapOf(kWidth, kHeight, [](int x, int) { return unlit(x); });
    auto* meter =
        add(new CVuMeter1(CRect(60, 25, 60 + kWidth, 25 + kHeight), on,
                          withUnlit ? off.get() : nullptr, steps, VSTGUI::CVuMeter::kHorizontal));
    meter->setDecreaseStepValue(decrease);
    return meter;
  }

  // Columns that are lit, from the left; every other column must be unlit, and all read from their
  // own place.
  int litColumns() {
    const Picture picture(frame, frame->getViewSize());
    int columns = 0;
    while (columns < kWidth && picture.at(60 + columns, 30) == lit(columns)) ++columns;
    for (int x = columns; x < kWidth; ++x)
      EXPECT_EQ(picture.at(60 + x, 30), unlit(x)) << "column " << x;
    return columns;
  }
};

TEST_F(Meter, OneShowsTheWholeLitBitmap) {
  make()->setValue(1);
  EXPECT_EQ(litColumns(), 182);
}

TEST_F(Meter, ZeroShowsTheWholeUnlitBitmap) {
  make()->setValue(0);
  EXPECT_EQ(litColumns(), 0);
}

TEST_F(Meter, TheBoundaryIsTheNearestStep) {
  CVuMeter1* meter = make();
  for (const int steps : {1, 45, 91, 92, 181}) {
    meter->setValue((static_cast<float>(steps) - 0.25F) / 182);
    EXPECT_EQ(litColumns(), steps);
    meter->setValue((static_cast<float>(steps) + 0.25F) / 182);
    EXPECT_EQ(litColumns(), steps);
  }
}

TEST_F(Meter, TheBoundaryMovesInStepsOfTheBitmapsWidth) {
  CVuMeter1* meter = make(13);  // 14 pixels each
  meter->setValue(0.49F);       // 6.37 steps
  EXPECT_EQ(litColumns(), 6 * 14);
  meter->setValue(0.51F);  // 6.63 steps
  EXPECT_EQ(litColumns(), 7 * 14);
}

TEST_F(Meter, RisesAtOnceAndFallsOneDecreaseStepPerRedraw) {
  CVuMeter1* meter = make(182, true, 0.1F);
  meter->setValue(1);
  EXPECT_EQ(litColumns(), 182);
  meter->setValue(0);
  for (const int tenths : {9, 8, 7, 6, 5, 4, 3, 2, 1, 0}) {
    EXPECT_EQ(litColumns(), (182 * tenths + 5) / 10)
        << "the nearest step to " << tenths << " tenths";
    EXPECT_NEAR(meter->getOldValue(), static_cast<float>(tenths) / 10.0F, 1e-6F);
  }
  meter->setValue(0.95F);
  EXPECT_EQ(litColumns(), 173);  // 172.9 steps
  EXPECT_EQ(meter->getOldValue(), 0.95F);
}

TEST_F(Meter, FallsNoFurtherThanItsValue) {
  CVuMeter1* meter = make(182, true, 0.1F);
  meter->setOldValue(0.55F);
  meter->setValue(0.5F);
  EXPECT_EQ(litColumns(), 91);
  EXPECT_EQ(meter->getOldValue(), 0.5F);
}

TEST_F(Meter, IdlePassesAloneDoNotMakeItFall) {
  CVuMeter1* meter = make(182, true, 0.1F);
  meter->setOldValue(1);
  meter->setValue(0);
  for (int i = 0; i < 5; ++i) frame->idle();
  EXPECT_EQ(meter->getOldValue(), 1.0F);
}

TEST_F(Meter, AChangeRedrawsTheMetersRectangleOnly) {
  CVuMeter1* meter = make();
  meter->setValue(0.5F);
  litColumns();
  root->redrawn.clear();
  frame->idle();
  EXPECT_TRUE(root->redrawn.empty());
  meter->setValue(0.75F);
  frame->idle();
  EXPECT_EQ(root->redrawn, std::vector<CRect>{meter->getViewSize()});
}

TEST_F(Meter, KeepsRedrawingWhileItFalls) {
  CVuMeter1* meter = make(182, true, 0.4F);
  meter->setOldValue(1);
  meter->setValue(0);
  int redraws = 0;
  while (meter->isDirty() && redraws < 10) {
    litColumns();
    ++redraws;
  }
  EXPECT_EQ(redraws, 3);  // 0.6, 0.2, 0
}

TEST_F(Meter, WithoutAnUnlitBitmapOnlyTheLitPartIsDrawn) {
  make(182, false)->setValue(0.5F);
  const Picture picture(frame, frame->getViewSize());
  EXPECT_EQ(picture.at(60, 30), lit(0));
  EXPECT_EQ(picture.at(60 + 90, 30), lit(90));
  EXPECT_EQ(picture.at(60 + 91, 30), kBack);
  EXPECT_EQ(picture.at(60 + 181, 30), kBack);
}

TEST_F(Meter, WithoutALitBitmapNothingIsDrawn) {
  const auto off = bitmapOf(kWidth, kHeight, [](int x, int) { return unlit(x); });
  auto* meter = add(new CVuMeter1(CRect(60, 25, 60 + kWidth, 25 + kHeight), nullptr, off, 182, 1));
  meter->setValue(0.5F);
  EXPECT_EQ(pixel(60, 30), kBack);
  EXPECT_EQ(pixel(241, 30), kBack);
}

TEST_F(Meter, AVerticalOneIsLitAtTheBottom) {
  const auto on = bitmapOf(10, 100, [](int, int y) { return lit(y); });
  const auto off = bitmapOf(10, 100, [](int, int y) { return unlit(y); });
  auto* meter =
      add(new CVuMeter1(CRect(20, 30, 30, 130), on, off, 10, VSTGUI::CVuMeter::kVertical));
  meter->setDecreaseStepValue(1);
  meter->setValue(0.32F);  // 10 * 0.68 + 0.5 = 7.3: seven steps of 10 pixels are unlit
  const Picture picture(frame, frame->getViewSize());
  for (int y = 0; y < 100; ++y)
    EXPECT_EQ(picture.at(25, 30 + y), y < 70 ? unlit(y) : lit(y)) << "row " << y;
}

TEST_F(Meter, AVerticalOneCountsFromItsMaximum) {
  const auto on = bitmapOf(10, 100, [](int, int y) { return lit(y); });
  auto* meter =
      add(new CVuMeter1(CRect(20, 30, 30, 130), on, nullptr, 10, VSTGUI::CVuMeter::kVertical));
  meter->setMax(0.5F);
  meter->setDecreaseStepValue(1);
  meter->setValue(0.3F);  // 10 * (0.5 - 0.3) + 0.5 = 2.5: two steps are unlit
  EXPECT_EQ(pixel(25, 30 + 19), kBack);
  EXPECT_EQ(pixel(25, 30 + 20), lit(20));
}

TEST_F(Meter, DrawsWhereItWasMovedTo) {
  CVuMeter1* meter = make();
  meter->setValue(0.5F);
  litColumns();
  meter->setViewSize(CRect(10, 100, 10 + kWidth, 100 + kHeight));
  const Picture picture(frame, frame->getViewSize());
  EXPECT_EQ(picture.at(10, 105), lit(0));
  EXPECT_EQ(picture.at(10 + 91, 105), unlit(91));
}

TEST_F(Meter, TakesNoPressesAndNoTimeOfItsOwn) {
  CVuMeter1* meter = make();
  meter->setDefaultValue(0.5F);
  meter->setValue(0.25F);
  EXPECT_FALSE(press(CPoint(70, 30)));
  EXPECT_FALSE(press(CPoint(70, 30), MouseButton::Left, {ModifierKey::Control}));
  EXPECT_EQ(meter->getValue(), 0.25F);
  EXPECT_FALSE(meter->wantsIdle());
}

}  // namespace
