// What is drawn again, and when: no more than what has changed.
#include <thread>

#include "damagewatch.h"
#include "windowtest.h"

namespace {

class Redrawing : public WindowTest {
 protected:
  Redrawing() {
    host.openEditor();
    host.play(0.5F, 0.5F, 4410);
    host.settle();
  }

  std::vector<Area> drawnBy(DamageWatch& watch) {
    for (int pass = 0; pass < 6; ++pass) {
      host.idle();
      std::this_thread::sleep_for(std::chrono::milliseconds(17));
    }
    return watch.take();
  }

  WindowHost host;
};

}  // namespace

TEST_F(Redrawing, NothingIsDrawnWhereNothingHasChanged) {
  DamageWatch watch(host.display, host.parent());
  EXPECT_THAT(drawnBy(watch), ::testing::IsEmpty());
}

TEST_F(Redrawing, AMeterChangeDrawsTheMetersRectangleAndNoMore) {
  DamageWatch watch(host.display, host.parent());
  for (int change = 0; change < 5; ++change) {
    SCOPED_TRACE(change);
    host.setParameter(0, change % 2 == 0 ? 1.0F : 0.5F);
    drawnBy(watch);
    host.play(0.5F, 0.5F, 44100);
    const std::vector<Area> areas = drawnBy(watch);
    EXPECT_FALSE(areas.empty());
    for (const Area& area : areas) EXPECT_TRUE(places::kMeter.contains(area)) << area;
  }
}

TEST_F(Redrawing, AMeterThatKeepsItsReadingDrawsNothing) {
  host.play(0.5F, 0.5F, 441000);  // settled at the end of the scale
  host.settle();
  DamageWatch watch(host.display, host.parent());
  host.play(0.5F, 0.5F, 4410);
  EXPECT_THAT(drawnBy(watch), ::testing::IsEmpty());
}

// Which lie in one row; the toolkit may draw them as one rectangle.
TEST_F(Redrawing, AParameterDrawsItsSliderAndItsDisplay) {
  DamageWatch watch(host.display, host.parent());
  host.setParameter(1, 0.9F);
  const std::vector<Area> areas = drawnBy(watch);
  EXPECT_FALSE(areas.empty());
  const Area row{places::slider(1).left, places::slider(1).top, places::kWidth,
                 places::slider(1).bottom};
  for (const Area& area : areas) EXPECT_TRUE(row.contains(area)) << area;
}

TEST_F(Redrawing, AParameterOfTheSameValueDrawsNothing) {
  const float value = host.parameter(1);
  DamageWatch watch(host.display, host.parent());
  host.setParameter(1, value);
  EXPECT_THAT(drawnBy(watch), ::testing::IsEmpty());
}

TEST_F(Redrawing, AHoverDrawsItsButton) {
  DamageWatch watch(host.display, host.parent());
  host.hover(places::kStoreA);
  const std::vector<Area> areas = drawnBy(watch);
  EXPECT_FALSE(areas.empty());
  for (const Area& area : areas) EXPECT_TRUE(places::kStoreA.contains(area)) << area;
}
