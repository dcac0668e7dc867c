// The manual button: the viewer it starts, and the alert where that fails.
#include "windowtest.h"

namespace {

class Manual : public WindowTest {
 protected:
  Manual() {
    host.openEditor();
    rest = host.picture();
  }

  std::string waitedFor(FakeProgram& program) {
    EXPECT_TRUE(host.idleUntil([&] { return program.wasAsked(); }));
    const std::vector<std::string> arguments = program.takeArguments();
    std::string joined;
    for (const std::string& argument : arguments) joined += argument + "\n";
    return joined;
  }

  FakeProgram viewer{folder / "bin", "xdg-open"};
  FakeProgram zenity{folder / "bin", "zenity"};
  WindowHost host;
  Picture rest;
};

}  // namespace

TEST_F(Manual, OpensThePdfOfTheBundle) {
  host.click(places::kManual);
  const std::string path = waitedFor(viewer);
  EXPECT_THAT(
      path, ::testing::EndsWith("/Trelvan.vst/Contents/Resources/Trelvan Operation Manual.pdf\n"));
  EXPECT_EQ(contentOf(path.substr(0, path.size() - 1)).substr(0, 5), "%PDF-");
  viewer.answer("");
  host.idleFor(100);
  EXPECT_FALSE(zenity.wasAsked());
}

TEST_F(Manual, PrefersTheOneInTheUsersDocuments) {
  const std::string own = folder / "home/Documents/Orv/Trelvan";
  std::filesystem::create_directories(own);
  writeFile(own + "/Trelvan Operation Manual.pdf", "%PDF-mine");
  host.click(places::kManual);
  EXPECT_EQ(waitedFor(viewer), own + "/Trelvan Operation Manual.pdf\n");
  viewer.answer("");
}

TEST_F(Manual, SaysWhenItCannotBeOpened) {
  host.click(places::kManual);
  waitedFor(viewer);
  viewer.answer("", 3);
  zenity.answer("");  // the alert is waited for
  const std::string alert = waitedFor(zenity);
  EXPECT_THAT(alert, ::testing::StartsWith("--warning\n"));
  EXPECT_THAT(alert, ::testing::HasSubstr(
                         "Could not open manual file:\n~/\"Documents/Orv/Trelvan/Trelvan Operation "
                         "Manual.pdf\""));
}

TEST_F(Manual, TheButtonIsReleasedAfterwards) {
  host.hover(places::kManual);
  const Picture hovered = host.picture();
  host.press();
  EXPECT_EQ(host.picture(), hovered);  // still held, and shown released
  host.release();
  viewer.answer("", 3);
  zenity.answer("");
  waitedFor(zenity);
  host.moveAway();
  EXPECT_EQ(host.picture(), rest);
}

TEST_F(Manual, AViewerThatStaysHoldsNothingUp) {
  host.click(places::kManual);
  waitedFor(viewer);
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
  host.closeEditor();
  host.openEditor();
  EXPECT_FALSE(zenity.wasAsked());
  viewer.answer("");
}

TEST_F(Manual, OtherButtonsAndKeysDoNotOpenIt) {
  host.click(places::kManual, 2);
  host.click(places::kManual, 3);
  host.key(XKB_KEY_Return);
  host.idleFor(100);
  EXPECT_FALSE(viewer.wasAsked());
}
