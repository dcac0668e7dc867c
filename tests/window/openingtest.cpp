// Size, opening, and the kinds of windows and idling that hosts have.
#include "windowtest.h"

namespace {

// From the file's own header.
std::pair<int, int> sizeOfPng(const std::string& path) {
  const std::string bytes = contentOf(path);
  const auto number = [&bytes](std::size_t at) {
    int value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
      value = value * 256 + static_cast<unsigned char>(bytes.at(i));
    return value;
  };
  return {number(16), number(20)};
}

std::string resourceOfModule(const std::string& name) {
  const std::filesystem::path module = std::getenv("TRELVAN_MODULE");
  return (module.parent_path().parent_path() / "Resources" / name).string();
}

class Opening : public WindowTest {
 protected:
  WindowHost host;
};

}  // namespace

TEST_F(Opening, TheSizeIsTheBackgroundPicturesAtAnyTime) {
  const std::pair<int, int> size = sizeOfPng(resourceOfModule("bmp00128.png"));
  ASSERT_EQ(size.first, places::kWidth);
  const auto expectSize = [&] {
    ERect* rect = nullptr;
    ASSERT_EQ(host.dispatch(effEditGetRect, 0, 0, &rect), 1);
    EXPECT_EQ(rect->left, 0);
    EXPECT_EQ(rect->top, 0);
    EXPECT_EQ(rect->right, size.first);
    EXPECT_EQ(rect->bottom, size.second);
  };
  expectSize();
  host.openEditor();
  expectSize();
  host.closeEditor();
  expectSize();
}

TEST_F(Opening, WithoutADisplayTheAnswerIsNoAndAllElseGoesOn) {
  {
    const ScopedVariable none("DISPLAY", nullptr);
    EXPECT_FALSE(host.openOnly());
    host.idle(3);
    host.setParameter(0, 0.25F);
    EXPECT_EQ(host.parameter(0), 0.25F);
    host.closeEditor();
  }
  {
    const ScopedVariable wrong("DISPLAY", ":59999");
    EXPECT_FALSE(host.openOnly());
  }
  EXPECT_TRUE(host.openEditor());
  EXPECT_TRUE(host.hasChildWindows(1));
}

TEST_F(Opening, WithoutADisplayAfterAnOpeningTheAnswerIsNoToo) {
  host.openEditor();
  const Picture before = host.picture();
  host.closeEditor();
  {
    const ScopedVariable none("DISPLAY", nullptr);
    EXPECT_FALSE(host.openOnly());
    host.idle(3);
  }
  host.openEditor();
  EXPECT_EQ(host.picture(), before);
}

TEST_F(Opening, AWindowThatIsNoneIsRefused) {
  EXPECT_EQ(host.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(std::uintptr_t{0x1FFFFFFF})),
            0);
  host.idle(3);
  EXPECT_TRUE(host.openEditor());
}

TEST_F(Opening, CallsWithoutAWindowDoNothing) {
  host.idle(3);
  host.dispatch(effEditClose);
  EXPECT_EQ(host.dispatch(effEditKeyDown, 'a', 0, nullptr), 0);
  EXPECT_EQ(host.dispatch(effEditKeyUp, 'a', 0, nullptr), 0);
  host.idle();
}

TEST_F(Opening, TheWindowIsADirectChildAtTheOriginAndGoesWithTheEditor) {
  host.openEditor();
  EXPECT_TRUE(host.hasChildWindows(1));
  host.closeEditor();
  EXPECT_TRUE(host.hasChildWindows(0));
}

TEST_F(Opening, ASecondOpeningReplacesTheFirst) {
  host.openEditor();
  const Picture once = host.picture();
  host.openEditor();
  EXPECT_TRUE(host.hasChildWindows(1));
  EXPECT_EQ(host.picture(), once);
  host.click(places::kPhaseSwitch);
  EXPECT_EQ(host.parameter(4), 1.0F);
  host.closeEditor();
  EXPECT_TRUE(host.hasChildWindows(0));
}

TEST_F(Opening, AWindowWithAnAlphaChannelShowsTheSame) {
  host.openEditor();
  const Picture plain = host.picture();
  WindowHost alpha(1, WindowHost::Parent::alpha);
  ASSERT_TRUE(alpha.openEditor());
  EXPECT_EQ(alpha.picture(), plain);
}

// Several hosts make the right size only after the opening.
TEST_F(Opening, AWindowOfOnePixelThatGrowsLaterShowsTheSame) {
  host.openEditor();
  const Picture expected = host.picture();
  host.closeEditor();
  host.resizeParent(1, 1);
  host.openOnly();
  host.idleFor(50);
  host.resizeParent(320, 280);
  EXPECT_EQ(host.picture(), expected);
}

TEST_F(Opening, ReopeningShowsTheSameValues) {
  host.openEditor();
  const Picture fresh = host.picture();
  host.setParameter(0, 0.9F);
  host.setParameter(1, 0.1F);
  host.setParameter(4, 1.0F);
  host.click(places::kProcessSwitch);
  host.moveAway();
  const Picture first = host.picture();
  for (int index = 0; index < 2; ++index)
    EXPECT_FALSE(sameIn(places::slider(index), fresh, first)) << index;
  for (const Area& place : {places::kProcessSwitch, places::kPhaseSwitch})
    EXPECT_FALSE(sameIn(place, fresh, first));
  host.closeEditor();
  host.openEditor();
  EXPECT_EQ(host.picture(), first);
}

// A host's timer of 15 Hz and one of 60 Hz: the same events lead to the same picture and
// the same values.
TEST_F(Opening, SlowAndFastIdlingEndAlike) {
  Picture pictures[2];
  float values[2] = {};
  WindowHost other(1);
  WindowHost* hosts[] = {&host, &other};
  constexpr int kIntervals[] = {67, 16};  // ms
  for (int i = 0; i < 2; ++i) {
    WindowHost& idled = *hosts[i];
    const Area screen = idled.screenArea();
    const auto pass = [&] { idled.idleFor(1, kIntervals[i]); };
    idled.openOnly();
    for (int n = 0; n < 4; ++n) pass();
    // A drag in many small movements between the passes.
    idled.display.moveTo(screen.left + places::handleX(0.0F), screen.top + places::handleY(0));
    idled.display.press(1);
    for (int x = 0; x < 80; ++x) {
      idled.display.moveTo(screen.left + places::handleX(0.0F) - x,
                           screen.top + places::handleY(0));
      if (x % 8 == 0) pass();
    }
    idled.display.release(1);
    pass();
    // A click that lies between two passes.
    idled.display.moveTo(screen.left + places::kPhaseSwitch.centreX(),
                         screen.top + places::kPhaseSwitch.centreY());
    idled.display.press(1);
    idled.display.release(1);
    idled.display.moveTo(screen.left + 150, 600);
    for (int n = 0; n < 4; ++n) pass();
    pictures[i] = idled.pictureNow();
    values[i] = idled.parameter(0);
    EXPECT_EQ(idled.parameter(4), 1.0F);
  }
  EXPECT_NEAR(values[0], 79.0F / places::kSliderTravel, 1.0F / places::kSliderTravel);
  EXPECT_EQ(values[0], values[1]);
  EXPECT_EQ(pictures[0], pictures[1]);
}

// A host that never idles sees nothing, and nothing breaks.
TEST_F(Opening, WithoutIdlingTheWindowCanBeClosed) {
  for (int round = 0; round < 5; ++round) {
    host.openOnly();
    host.setParameter(0, 0.1F * static_cast<float>(round));
    host.closeEditor();
  }
  EXPECT_TRUE(host.hasChildWindows(0));
}
