// Tooltips of the preset bar in the window.
#include "windowtest.h"

namespace {

struct Tip {
  const char* name;
  Area control;
};

constexpr Tip kTips[] = {
    {"Name", places::kName},
    {"List", places::kMenu},
    {"RockerLeft", places::kRockerLeft},
    {"SavePreset", places::kSavePreset},
    {"SaveBank", places::kSaveBank},
    {"LoadPreset", places::kLoadPreset},
    {"LoadBank", places::kLoadBank},
    {"DefaultPreset", places::kDefaultPreset},
    {"DefaultBank", places::kDefaultBank},
    {"StoreA", places::kStoreA},
    {"StoreB", places::kStoreB},
    {"RecallA", places::kRecallA},
    {"RecallB", places::kRecallB},
    {"Manual", places::kManual},
};

constexpr int kRest = 1000;  // ms; 700 are enough
constexpr std::uint32_t kPaper = 0xFCFCFA, kEdge = 0x4F6677;

class TooltipTest : public WindowTest {
 protected:
  TooltipTest() { host.openEditor(); }

  // Whether there is one: paper inside of an edge.
  Area shown() {
    const Picture picture = host.picture();
    Area found{picture.width, picture.height, 0, 0};
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        if (picture.at(x, y) != kPaper) continue;
        found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1),
                 std::max(found.bottom, y + 1)};
      }
    }
    return found.right > 0 ? found : Area{};
  }
  bool isShown() { return shown() != Area{}; }

  void restOn(const Area& area) {
    host.hover(area);
    host.idleFor(kRest);
  }

  WindowHost host;
};

class EachTooltip : public TooltipTest, public ::testing::WithParamInterface<Tip> {};

std::string nameOf(const ::testing::TestParamInfo<Tip>& info) {
  return info.param.name;
}

}  // namespace

// Its edge goes all around, with nothing but paper between the edge and the text.
TEST_P(EachTooltip, IsWholeInsideTheWindowAndNotOnItsControl) {
  const Area& control = GetParam().control;
  host.hover(control);
  const Picture before = host.picture();
  host.idleFor(kRest);
  const Picture after = host.picture();
  const Area paper = shown();
  ASSERT_NE(paper, Area{});
  const Area whole{paper.left - 1, paper.top - 1, paper.right + 1, paper.bottom + 1};
  EXPECT_TRUE(before.whole().contains(whole)) << whole;
  EXPECT_TRUE(whole.bottom <= control.top || whole.top >= control.bottom) << whole;
  EXPECT_TRUE(whole.contains(differingArea(before, after))) << differingArea(before, after);
  constexpr int kMargin = 2;  // pixels of the paper that no letter touches
  for (int y = whole.top; y < whole.bottom; ++y) {
    for (int x = whole.left; x < whole.right; ++x) {
      const int depth = std::min(std::min(x - whole.left, whole.right - 1 - x),
                                 std::min(y - whole.top, whole.bottom - 1 - y));
      if (depth == 0) {
        EXPECT_EQ(after.at(x, y), kEdge) << x << ' ' << y;
      } else if (depth <= kMargin) {
        EXPECT_EQ(after.at(x, y), kPaper) << x << ' ' << y;
      }
    }
  }
  host.moveAway();
  EXPECT_FALSE(isShown());
}

INSTANTIATE_TEST_SUITE_P(Window, EachTooltip, ::testing::ValuesIn(kTips), nameOf);

TEST_F(TooltipTest, OtherControlsHaveNone) {
  for (const Area& area : {places::kMeter, places::kProcessSwitch, places::slider(0),
                           places::kAbout, places::valueDisplay(1)}) {
    restOn(area);
    EXPECT_FALSE(isShown()) << area;
  }
}

TEST_F(TooltipTest, APressTakesItAwayAndActsAsWithoutOne) {
  restOn(places::kRockerRight);
  ASSERT_TRUE(isShown());
  host.press();
  EXPECT_FALSE(isShown());
  host.release();
  EXPECT_EQ(host.currentPreset(), 1);
  host.idleFor(kRest);
  EXPECT_FALSE(isShown());
}

TEST_F(TooltipTest, TheWheelTakesItAway) {
  restOn(places::kRockerRight);
  ASSERT_TRUE(isShown());
  host.wheel(-1);
  EXPECT_FALSE(isShown());
  EXPECT_EQ(host.currentPreset(), 1);
}

TEST_F(TooltipTest, AKeyOfTheHostsTakesItAway) {
  constexpr VstIntPtr kSpace = 7;  // the interface's number of the key
  restOn(places::kStoreA);
  ASSERT_TRUE(isShown());
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kSpace), 0) << "the key is still the host's";
  EXPECT_FALSE(isShown());
}

TEST_F(TooltipTest, NoneShowsOverTheListAnEntryOrThePanel) {
  const std::function<void()> openings[] = {[this] { host.click(places::kMenu); },
                                            [this] { host.click(places::kName); },
                                            [this] { host.click(places::kAbout); },
                                            [this] { host.doubleClick(places::valueDisplay(0)); }};
  for (const auto& open : openings) {
    open();
    for (const Area& area : {places::kStoreA, places::kName}) {
      restOn(area);
      EXPECT_FALSE(isShown()) << area;
    }
    host.key(XKB_KEY_Escape);
    host.moveAway();
  }
}

TEST_F(TooltipTest, TheWindowClosesWithOneAndOpensWithout) {
  restOn(places::kStoreB);
  ASSERT_TRUE(isShown());
  host.closeEditor();
  ASSERT_TRUE(host.openEditor());
  host.moveAway();
  EXPECT_FALSE(isShown());
  restOn(places::kStoreB);
  EXPECT_TRUE(isShown());
}
