// The window in an LV2 host: opened, worked with the mouse, and what both sides hear of it.
#include <lv2/options/options.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <limits>
#include <memory>

#include "lv2windowhost.h"
#include "windowtest.h"

namespace {

using Kind = Lv2Told::Kind;
using testing::ElementsAre;

class Lv2WindowTest : public WindowTest {
 protected:
  struct Place {
    int width, height;
    xcb_window_t parent;
  };
  Place placeOf(Lv2WindowHost& host, xcb_window_t window) {
    xcb_connection_t* link = host.display.link();
    const std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> size(
        xcb_get_geometry_reply(link, xcb_get_geometry(link, window), nullptr), std::free);
    const std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> tree(
        xcb_query_tree_reply(link, xcb_query_tree(link, window), nullptr), std::free);
    if (!size || !tree) return {};
    return {size->width, size->height, tree->parent};
  }
};

}  // namespace

// A host that gets its own window's id destroys it with what it embeds.
TEST_F(Lv2WindowTest, IsTheHostsWindowsChildAndTellsItsSize) {
  Lv2WindowHost host;
  ASSERT_TRUE(host.open());
  const Place place = placeOf(host, host.widgetWindow());
  EXPECT_EQ(place.parent, host.parent());
  EXPECT_EQ(place.width, places::kWidth);
  EXPECT_EQ(host.toldSize, std::pair(place.width, place.height));
}

TEST_F(Lv2WindowTest, IsAsLargeAsTheDesktopsScaleSays) {
  const ScopedVariable scale("GDK_SCALE", "2");
  Lv2WindowHost host;
  ASSERT_TRUE(host.open());
  const Place place = placeOf(host, host.widgetWindow());
  EXPECT_EQ(place.width, 2 * places::kWidth);
  EXPECT_EQ(host.toldSize, std::pair(place.width, place.height));
}

TEST_F(Lv2WindowTest, IsAsLargeAsTheHostsScaleSaysWhateverTheDesktopsIs) {
  const ScopedVariable scale("GDK_SCALE", "3");
  Lv2WindowHost host;
  host.scaleFactor = 2.0F;
  ASSERT_TRUE(host.open());
  const Place place = placeOf(host, host.widgetWindow());
  EXPECT_EQ(place.width, 2 * places::kWidth);
  EXPECT_EQ(host.toldSize, std::pair(place.width, place.height));
  host.close();
  host.scaleFactor = 1.0F;
  ASSERT_TRUE(host.open());
  EXPECT_EQ(placeOf(host, host.widgetWindow()).width, places::kWidth);
}

TEST_F(Lv2WindowTest, IsAsLargeAsTheDesktopsScaleSaysWhereTheHostsIsNone) {
  const ScopedVariable scale("GDK_SCALE", "2");
  Lv2WindowHost host;
  for (const float nonsense : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN(),
                               std::numeric_limits<float>::infinity()}) {
    host.scaleFactor = nonsense;
    ASSERT_TRUE(host.open());
    EXPECT_EQ(placeOf(host, host.widgetWindow()).width, 2 * places::kWidth) << nonsense;
    host.close();
  }
  host.scaleFactor = 1.0F;
  for (const char* withheld : {LV2_URID__map, LV2_OPTIONS__options}) {
    ASSERT_TRUE(host.open(withheld));
    EXPECT_EQ(placeOf(host, host.widgetWindow()).width, 2 * places::kWidth) << withheld;
    host.close();
  }
}

TEST_F(Lv2WindowTest, AtTheHostsScaleLooksAndWorksAsAtTheDesktops) {
  constexpr auto kStereo = Lv2WindowHost::Plugin::stereo;
  const auto dragged = [](Lv2WindowHost& host) {
    host.run();
    EXPECT_TRUE(host.open());
    const Picture before = host.picture();
    host.press(places::handleX(0.0F), places::handleY(0));
    host.moveTo(places::handleX(0.5F), places::handleY(0));
    host.release();
    host.moveAway();
    EXPECT_EQ(host.controls[0], 0.5F);
    return std::pair(before, host.picture());
  };
  Lv2WindowHost host(0, kStereo, 2);
  host.scaleFactor = 2.0F;
  const auto shown = dragged(host);
  host.close();
  const ScopedVariable scale("GDK_SCALE", "2");
  Lv2WindowHost other(0, kStereo, 2);
  EXPECT_TRUE(dragged(other) == shown);
}

TEST_F(Lv2WindowTest, TellsItsOwnWindowBesideOneOfTheHosts) {
  Lv2WindowHost host;
  xcb_connection_t* link = host.display.link();
  const xcb_window_t other = xcb_generate_id(link);
  xcb_create_window(link, XCB_COPY_FROM_PARENT, other, host.parent(), 310, 270, 5, 5, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  host.display.sync();
  ASSERT_TRUE(host.open());
  EXPECT_NE(host.widgetWindow(), other);
  EXPECT_EQ(placeOf(host, host.widgetWindow()).parent, host.parent());
}

TEST_F(Lv2WindowTest, ADragIsAGestureOnItsPort) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  host.settle();
  host.told.clear();
  host.press(places::handleX(0.0F), places::handleY(0));
  host.moveTo(places::handleX(0.5F), places::handleY(0));
  host.release();
  EXPECT_THAT(host.told, ElementsAre(Lv2Told{Kind::touched, 4, 0.0F}, Lv2Told{Kind::value, 4, 0.5F},
                                     Lv2Told{Kind::released, 4, 0.0F}));
}

TEST_F(Lv2WindowTest, OfTheMonoPluginNamesItsPorts) {
  Lv2WindowHost host(0, Lv2WindowHost::Plugin::mono);
  host.run();
  ASSERT_TRUE(host.open());
  host.settle();
  host.told.clear();
  host.click(places::kPhaseSwitch);
  EXPECT_THAT(host.told, testing::Contains(Lv2Told{Kind::value, 7, 1.0F}));
  EXPECT_EQ(host.controls[4], 1.0F);
}

// A step to the factory's first preset: process and phase stay as they are.
TEST_F(Lv2WindowTest, AStepToAnotherPresetMovesThePortsThatChange) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  host.settle();
  host.told.clear();
  host.click(places::kRockerRight);
  std::vector<Lv2Told> values;
  for (const Lv2Told& told : host.told) {
    if (told.kind == Kind::value) values.push_back(told);
  }
  EXPECT_THAT(values, ElementsAre(Lv2Told{Kind::value, 4, 0.75F}, Lv2Told{Kind::value, 5, 0.25F},
                                  Lv2Told{Kind::value, 6, 0.25F}));
}

TEST_F(Lv2WindowTest, ShowsWhatThePortsSay) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  const Picture before = host.picture();
  host.controls = {0.3F, 0.7F, 0.9F, 0.0F, 1.0F};
  host.run();
  const Picture shown = host.picture();
  EXPECT_FALSE(shown == before);

  Lv2WindowHost other(1);
  other.controls = host.controls;
  other.run();
  ASSERT_TRUE(other.open());
  EXPECT_TRUE(other.picture() == shown);
  EXPECT_TRUE(host.told.empty());
}

TEST_F(Lv2WindowTest, HasALivingMeter) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  const Picture silent = host.picture();
  for (int block = 0; block < 100; ++block) host.run(0.8F, 0.8F);  // mid alone
  const Picture heard = host.picture();
  EXPECT_FALSE(sameIn(places::kMeter, silent, heard));
  EXPECT_TRUE(places::kMeter.contains(differingArea(silent, heard)))
      << differingArea(silent, heard);
}

// The host's ports come after what the user does: those on their way do not move the handle back.
TEST_F(Lv2WindowTest, AControlThatIsHeldIsTheUsers) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  host.settle();
  host.portsFollow = false;
  host.press(places::handleX(0.0F), places::handleY(0));
  host.moveTo(places::handleX(0.5F), places::handleY(0));
  const Picture held = host.picture();
  host.controls[0] = 0.1F;
  host.run();
  EXPECT_TRUE(host.picture() == held);
  host.release();
  host.moveAway();
  const Picture released = host.picture();
  host.run();  // what the port says still
  EXPECT_FALSE(sameIn(places::slider(0), host.picture(), released));
}

// The effect begins and ends an empty gesture for it, after which VST 2 hosts read its values
// again.
TEST_F(Lv2WindowTest, AStateIsShownAndIsNoGesture) {
  Lv2WindowHost other(1);
  other.run();
  ASSERT_TRUE(other.open());
  other.click(places::kRockerRight);
  other.run();
  other.moveAway();
  const Picture expected = other.picture();

  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  host.settle();
  host.told.clear();
  host.controls = other.controls;
  host.restore(other.state());
  host.run();
  EXPECT_TRUE(host.picture() == expected);
  EXPECT_TRUE(host.told.empty());
  host.click(places::kPhaseSwitch);  // the user is heard as before
  EXPECT_EQ(host.controls[4], 1.0F);
}

TEST_F(Lv2WindowTest, NeedsTheInstanceAndAPlace) {
  Lv2WindowHost host;
  EXPECT_FALSE(host.open(LV2_INSTANCE_ACCESS_URI));
  EXPECT_FALSE(host.open(LV2_UI__parent));
  EXPECT_FALSE(host.opensFor("urn:something:else"));
  EXPECT_TRUE(host.open());
}

TEST_F(Lv2WindowTest, OpensWithoutTouchOrResize) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open(LV2_UI__resize));
  EXPECT_EQ(host.toldSize, std::nullopt);
  host.close();
  ASSERT_TRUE(host.open(LV2_UI__touch));
  host.settle();
  host.told.clear();
  host.click(places::kPhaseSwitch);
  EXPECT_THAT(host.told, ElementsAre(Lv2Told{Kind::value, 8, 1.0F}));
}

TEST_F(Lv2WindowTest, IsOneAtATime) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  const Picture before = host.picture();
  EXPECT_FALSE(host.opensAnother());
  EXPECT_TRUE(host.picture() == before);
  host.close();
  ASSERT_TRUE(host.open());
  EXPECT_TRUE(host.picture() == before);
}

// Each module has the toolkit for itself, in one process.
TEST_F(Lv2WindowTest, StandsBesideAVst2Window) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  WindowHost vst(1);
  ASSERT_TRUE(vst.openEditor());
  vst.click(places::kPhaseSwitch);
  EXPECT_EQ(vst.parameter(4), 1.0F);
  host.settle();
  EXPECT_TRUE(host.told.empty());
  host.click(places::kPhaseSwitch);
  EXPECT_EQ(host.controls[4], 1.0F);
  host.moveAway();
  const Picture shown = host.picture();
  vst.closeEditor();
  EXPECT_TRUE(host.picture() == shown);
  host.close();
  ASSERT_TRUE(vst.openEditor());
  vst.click(places::kPhaseSwitch);
  EXPECT_EQ(vst.parameter(4), 0.0F);
}

TEST_F(Lv2WindowTest, OutlivesAnEffectThatEndsFirst) {
  Lv2WindowHost host;
  host.run();
  ASSERT_TRUE(host.open());
  host.settle();
  const xcb_window_t child = host.widgetWindow();
  host.endEffect();
  host.idle();
  host.sayPorts();
  host.close();
  EXPECT_FALSE(host.display.exists(child));
}
