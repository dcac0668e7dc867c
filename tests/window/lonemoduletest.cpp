// The window of a module that somebody has copied without its bundle.
#include "settingsmanager.h"
#include "windowtest.h"

namespace {

namespace fs = std::filesystem;

class LoneModule : public WindowTest {
 protected:
  // Into the program's own folder: its leaks are told by names that are read at its end.
  LoneModule() {
    fs::remove_all("alone");
    fs::create_directories(lone.parent_path());
    fs::copy_file(std::getenv("TRELVAN_MODULE"), lone);
  }

  // Of the window as it opens, with the about panel, with the list.
  static std::vector<Picture> pictures(double scale) {
    SettingsManager desktop;
    desktop.setResourceDpi(static_cast<int>(96 * scale));
    WindowHost host(0, WindowHost::Parent::plain, scale);
    EXPECT_TRUE(host.openEditor());
    host.moveAway();
    std::vector<Picture> taken{host.picture()};
    for (const Area& opener : {places::kAbout, places::kMenu}) {
      host.click(opener);
      host.moveAway();
      taken.push_back(host.picture());
      host.key(XKB_KEY_Escape);
    }
    return taken;
  }

  const fs::path lone = fs::absolute("alone/plugins/Trelvan.so");
  ScopedVariable factor{"GDK_SCALE", nullptr};
};

}  // namespace

TEST_F(LoneModule, ShowsTheSamePixels) {
  for (const double scale : {1., 1.5, 2., 3.}) {
    SCOPED_TRACE(scale);
    const auto expected = pictures(scale);
    const ScopedVariable used("TRELVAN_MODULE", lone.string());
    EXPECT_TRUE(pictures(scale) == expected);
    EXPECT_NE(expected[0], expected[1]);
    EXPECT_NE(expected[0], expected[2]);
  }
}

TEST_F(LoneModule, TakesNoPicturesOfItsOwnWhereABundleLacksThem) {
  fs::create_directory("alone/Resources");
  const ScopedVariable used("TRELVAN_MODULE", lone.string());
  WindowHost host;
  EXPECT_FALSE(host.openOnly());
}
