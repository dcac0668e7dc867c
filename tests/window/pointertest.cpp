// The pointer's shape. In a process of its own: the toolkit goes on using the shapes of a
// connection that it has closed, which is when the last instance has gone.
#include "windowtest.h"

namespace {

class Pointer : public WindowTest {
 protected:
  Pointer() { host.openEditor(); }

  Picture over(const Area& place) {
    host.hover(place);
    host.idle(2);
    return host.display.cursor();
  }

  WindowHost host;
};

}  // namespace

// It is the one that the open entry has, whose shape is the toolkit's.
TEST_F(Pointer, IsAnIBeamOverTheNameAndAnArrowElsewhere) {
  const Picture overName = over(places::kName);
  const Picture arrow = over(places::kMeter);  // until now it may be the host's
  EXPECT_NE(overName, arrow);
  EXPECT_EQ(over(places::kStoreA), arrow);
  EXPECT_EQ(over(places::kName), overName);
  EXPECT_EQ(over(places::kMenu), arrow);
  host.click(places::kName);
  host.moveTo(places::kName.centreX() + 3, places::kName.centreY());
  host.idle(2);
  EXPECT_EQ(host.display.cursor(), overName);
  host.key(XKB_KEY_Escape);
  EXPECT_EQ(over(places::kMeter), arrow);
}
