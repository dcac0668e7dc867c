// The scale while it changes: what the window's size says before, during and after openings, and
// windows of two scales.
#include <cmath>
#include <thread>

#include "settingsmanager.h"
#include "windowtest.h"

namespace {

namespace fs = std::filesystem;

constexpr auto kAskedAgain = std::chrono::milliseconds(250);  // after 200 the desktop is asked anew

class ScaleChanges : public WindowTest {
 protected:
  void setScale(double scale) {
    desktop.setResourceDpi(static_cast<int>(96 * scale));
    std::this_thread::sleep_for(kAskedAgain);
  }
  static int widthOf(WindowHost& host) {
    const Area area = host.screenArea();
    return area.right - area.left;
  }
  static int widthAt(double scale) { return static_cast<int>(std::lround(302 * scale)); }

  ScopedVariable factor{"GDK_SCALE", nullptr};
  SettingsManager desktop;
};

}  // namespace

TEST_F(ScaleChanges, TheSizeAskedBeforeIsThatOfTheNextOpening) {
  WindowHost host;
  for (const double scale : {1., 2., 1.5, 1.5, 3., 1.25, 1.}) {
    SCOPED_TRACE(scale);
    setScale(scale);
    EXPECT_EQ(widthOf(host), widthAt(scale));
    ASSERT_TRUE(host.openOnly());
    EXPECT_EQ(widthOf(host), widthAt(scale));
    host.closeEditor();
    EXPECT_EQ(widthOf(host), widthAt(scale));
  }
}

TEST_F(ScaleChanges, AnOpeningTakesTheScaleOfItsMoment) {
  WindowHost host;
  EXPECT_EQ(widthOf(host), widthAt(1));
  desktop.setResourceDpi(192);  // between the question and the opening
  ASSERT_TRUE(host.openOnly());
  EXPECT_EQ(widthOf(host), widthAt(2));
}

TEST_F(ScaleChanges, AnOpenWindowKeepsItsScale) {
  WindowHost host;
  ASSERT_TRUE(host.openEditor());
  const Picture before = host.picture();
  setScale(2);
  EXPECT_EQ(widthOf(host), widthAt(1));
  EXPECT_EQ(host.picture(), before);
}

TEST_F(ScaleChanges, TheDesktopsManagerIsHeardBeforeTheResources) {
  WindowHost host;
  setScale(1.5);
  desktop.publishDpi(192);
  ASSERT_TRUE(host.openOnly());
  EXPECT_EQ(widthOf(host), widthAt(2));
}

TEST_F(ScaleChanges, WithoutADesktopTheEnvironmentSays) {
  ScopedVariable set("GDK_SCALE", "2");
  WindowHost host;
  EXPECT_EQ(widthOf(host), widthAt(2));
  ASSERT_TRUE(host.openOnly());
  EXPECT_EQ(widthOf(host), widthAt(2));
  host.closeEditor();
  setScale(1.5);
  EXPECT_EQ(widthOf(host), widthAt(1.5)) << "the desktop's word is the newer one";
}

TEST_F(ScaleChanges, WithoutADisplayTheSizeIsTheEnvironments) {
  WindowHost host;
  ScopedVariable display("DISPLAY", nullptr);
  EXPECT_EQ(widthOf(host), widthAt(1));
  std::this_thread::sleep_for(kAskedAgain);
  ScopedVariable set("GDK_SCALE", "3");
  EXPECT_EQ(widthOf(host), widthAt(3));
  EXPECT_FALSE(host.openOnly());
}

// A host that asks in every one of its passes is no strain on the server.
TEST_F(ScaleChanges, TheSizeIsAskedOfTheServerNowAndThenOnly) {
  WindowHost host;
  setScale(2);
  EXPECT_EQ(widthOf(host), widthAt(2));
  desktop.setResourceDpi(96);
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
  int asked = 0;
  while (widthOf(host) == widthAt(2) && std::chrono::steady_clock::now() < end) ++asked;
  EXPECT_GT(asked, 100);
  EXPECT_EQ(widthOf(host), widthAt(1));
}

TEST_F(ScaleChanges, WindowsOfTwoScalesShowTheirOwnPictures) {
  setScale(2);
  Picture large;
  {
    WindowHost alone(0, WindowHost::Parent::plain, 2);
    ASSERT_TRUE(alone.openEditor());
    large = alone.picture();
  }
  setScale(1);
  WindowHost small(2);
  ASSERT_TRUE(small.openEditor());
  const Picture plain = small.picture();
  setScale(2);
  WindowHost second(0, WindowHost::Parent::plain, 2);
  ASSERT_TRUE(second.openEditor());
  EXPECT_EQ(second.picture(), large);
  EXPECT_EQ(small.picture(), plain);
  // One after the other in the same instance, and the pictures of the larger one are still there.
  second.closeEditor();
  setScale(1);
  ASSERT_TRUE(second.openEditor());
  EXPECT_EQ(second.picture(), plain);
  second.closeEditor();
  setScale(2);
  ASSERT_TRUE(second.openEditor());
  EXPECT_EQ(second.picture(), large);
}

// Nothing is read for a scale that is not shown, and no window opens without what it shows.
TEST_F(ScaleChanges, AWindowNeedsThePicturesOfItsOwnScaleAlone) {
  const fs::path module = std::getenv("TRELVAN_MODULE");
  const fs::path original = module.parent_path().parent_path().parent_path();
  const fs::path copy = folder / "copy.vst";
  fs::copy(original, copy, fs::copy_options::recursive);
  ScopedVariable used("TRELVAN_MODULE", copy / fs::relative(module, original));
  const fs::path resources = copy / "Contents/Resources";
  const fs::path away = folder / "away";
  fs::create_directory(away);
  const auto move = [](const fs::path& from, const fs::path& to, const std::string& ending) {
    int moved = 0;
    for (const auto& file : fs::directory_iterator(from)) {
      if (!file.path().filename().string().ends_with(ending)) continue;
      fs::copy(file.path(), to / file.path().filename());
      ++moved;
    }
    for (const auto& file : fs::directory_iterator(to)) fs::remove(from / file.path().filename());
    return moved;
  };
  EXPECT_GE(move(resources, away, "@1.5x.png"), 20);
  EXPECT_GE(move(resources, away, "@3x.png"), 20);
  WindowHost host;
  setScale(2);
  ASSERT_TRUE(host.openOnly());
  host.closeEditor();
  setScale(1.5);
  EXPECT_FALSE(host.openOnly());
  setScale(1);
  ASSERT_TRUE(host.openOnly());
  host.closeEditor();
  for (const auto& file : fs::directory_iterator(away)) {
    if (file.path().filename().string().ends_with("@1.5x.png"))
      fs::copy(file.path(), resources / file.path().filename());
  }
  setScale(1.5);
  EXPECT_TRUE(host.openOnly());
}
