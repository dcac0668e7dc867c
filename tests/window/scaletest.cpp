// The window at several scales, worked with the mouse: everything is where it is shown, and reacts
// as at a scale of 1.
#include "scaledwindow.h"

namespace {

using places::handleX;
using places::handleY;

class Scale : public ScaledWindow {
 protected:
  xcb_get_geometry_reply_t sizeOf(xcb_window_t window) {
    xcb_get_geometry_reply_t* reply = xcb_get_geometry_reply(
        host.display.link(), xcb_get_geometry(host.display.link(), window), nullptr);
    const xcb_get_geometry_reply_t size = reply != nullptr ? *reply : xcb_get_geometry_reply_t{};
    std::free(reply);
    return size;
  }
  xcb_window_t childOf(xcb_window_t window) {
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(
        host.display.link(), xcb_query_tree(host.display.link(), window), nullptr);
    const bool one = tree != nullptr && xcb_query_tree_children_length(tree) == 1;
    const xcb_window_t child = one ? *xcb_query_tree_children(tree) : 0;
    std::free(tree);
    return child;
  }
};

}  // namespace

TEST_P(Scale, IsTheWindowsAndThatOfTheWindowsInIt) {
  const int width = static_cast<int>(std::lround(302 * scale));
  const int height = static_cast<int>(std::lround(251 * scale));
  const Area area = host.screenArea();
  EXPECT_EQ(area.right - area.left, width);
  EXPECT_EQ(area.bottom - area.top, height);
  const xcb_window_t own = childOf(host.parent());
  for (const xcb_window_t window : {own, childOf(own)}) {
    const auto size = sizeOf(window);
    EXPECT_EQ(size.width, width);
    EXPECT_EQ(size.height, height);
    EXPECT_EQ(size.x, 0);
    EXPECT_EQ(size.y, 0);
  }
}

// The host's window is white, and nothing of it may be seen.
TEST_P(Scale, FillsTheWindowToItsLastPixels) {
  const Picture picture = host.picture();
  for (int x = 0; x < picture.width; ++x) {
    EXPECT_LT(
        channelDifference(picture.at(x, picture.height - 1), picture.at(x, picture.height - 3)), 24)
        << x;
  }
  for (int y = 0; y < picture.height; ++y) {
    EXPECT_LT(channelDifference(picture.at(picture.width - 1, y), picture.at(picture.width - 3, y)),
              24)
        << y;
  }
}

TEST_P(Scale, ADragMovesTheHandleWithThePointer) {
  for (VstInt32 index = 0; index < 3; ++index) {
    SCOPED_TRACE(index);
    const Picture before = host.picture();
    host.moveTo(handleX(0.5F), handleY(index));
    host.press();
    host.moveTo(handleX(0.25F), handleY(index));
    host.release();
    host.moveAway();
    // half a pixel's worth at each end
    EXPECT_NEAR(host.parameter(index), 0.25F, 1.5F / places::kSliderTravel);
    const Area slider = places::slider(index);
    expectChangedIn({slider.left, slider.top, places::kWidth, slider.bottom}, before,
                    host.picture());
  }
}

// The handle is 16 wide: a press beside it is none on it, wherever it is on the screen.
TEST_P(Scale, APressHitsWhatIsShownThere) {
  const int middle = handleX(0.5F);
  for (const int beside : {-10, 10}) {
    host.moveTo(middle + beside, handleY(0));
    host.press();
    host.moveTo(middle + beside + 20, handleY(0));
    host.release();
  }
  EXPECT_TRUE(host.calls(audioMasterAutomate).empty());
  host.click(places::kPhaseSwitch.left - 2, places::kPhaseSwitch.centreY());
  host.click(places::kPhaseSwitch.right + 2, places::kPhaseSwitch.centreY());
  host.click(places::kPhaseSwitch.centreX(), places::kPhaseSwitch.top - 2);
  EXPECT_EQ(host.parameter(4), 0.0F);
  host.click(places::kPhaseSwitch.right - 2, places::kPhaseSwitch.centreY());
  EXPECT_EQ(host.parameter(4), 1.0F);
}

TEST_P(Scale, AButtonUnderThePointerIsTheOneThatIsLit) {
  for (const Area& button : {places::kDefaultPreset, places::kRecallB, places::kManual}) {
    const Picture before = host.picture();
    expectChangedIn(button, before, host.lit(button));
    host.moveAway();
    EXPECT_TRUE(same(host.picture(), before));
  }
}

TEST_P(Scale, TheAboutPanelOpensAndCloses) {
  const Picture closed = host.picture();
  host.click(places::kAbout);
  host.moveAway();
  expectChangedIn(places::kAboutPanel, closed, host.picture());
  host.click(places::kAboutPanel);
  host.moveAway();
  EXPECT_TRUE(same(host.picture(), closed));
}

TEST_P(Scale, AFileIsChosenAndSaved) {
  FakeProgram zenity(folder / "bin", "zenity");
  host.click(places::kSavePreset);
  ASSERT_TRUE(host.idleUntil([&] { return zenity.wasAsked(); }));
  zenity.answer((folder / "files/mine.orv") + "\n");
  EXPECT_TRUE(host.idleUntil([&] { return std::filesystem::exists(folder / "files/mine.orv"); }));
}

// What is drawn bit by bit is the same as what is drawn at once.
TEST_P(Scale, RedrawnPartsLeaveNoSeams) {
  host.setParameter(0, 0.1F);
  host.settle();
  host.setParameter(0, 0.7F);
  host.setParameter(3, 0.0F);
  host.settle();
  for (const Area& button : {places::kDefaultBank, places::kLoadBank, places::kRockerLeft}) {
    host.hover(button);
    host.settle();
  }
  host.click(places::kMenu);
  host.key(XKB_KEY_Escape);
  host.moveAway();
  const Picture parts = host.picture();
  host.closeEditor();
  ASSERT_TRUE(host.openEditor());
  EXPECT_TRUE(same(host.picture(), parts)) << differingArea(host.picture(), parts);
}

INSTANTIATE_TEST_SUITE_P(Window, Scale, kScales, scaleName);
