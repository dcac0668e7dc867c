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
  // The viewer fails, and the desktop's alert comes up, or the window's own panel without zenity.
  void fail() {
    host.click(places::kManual);
    waitedFor(viewer);
    viewer.answer("", 3);
  }

  Picture rest;
};

constexpr VstIntPtr kUp = 12, kReturn = 4, kEscape = 6;  // the interface's numbers of the keys

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
  const std::string alert = waitedFor(zenity);
  zenity.answer("");
  EXPECT_THAT(alert, ::testing::StartsWith("--warning\n"));
  EXPECT_THAT(alert, ::testing::HasSubstr(
                         "Could not open manual file:\n~/\"Documents/Orv/Trelvan/Trelvan Operation "
                         "Manual.pdf\""));
}

TEST_F(Manual, TheButtonIsReleasedAfterwards) {
  const Picture hovered = host.lit(places::kManual);
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
  constexpr int kHostsReturn = 4;  // the interface's number
  host.dispatch(effEditKeyDown, 0, kHostsReturn);
  host.idleFor(100);
  EXPECT_FALSE(viewer.wasAsked());
}

// Neither the host nor the user waits; what is pressed meanwhile is gone.
TEST_F(Manual, TheHostGoesOnWhileTheAlertIsUpAndTheWindowTakesNothing) {
  const float depth = host.parameter(0);
  host.click(places::handleX(depth), places::handleY(0));  // the slider has the focus
  host.forgetCalls();
  fail();
  waitedFor(zenity);
  const auto begin = std::chrono::steady_clock::now();
  host.dispatch(effEditIdle);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
  host.click(places::kRockerRight);
  host.click(places::kPhaseSwitch);
  host.wheel(places::kRockerRight, -3);
  host.hover(places::slider(0));
  host.key(XKB_KEY_Up);
  EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kUp), 0) << "the host's own";
  EXPECT_EQ(host.dispatch(effEditKeyUp, 0, kUp), 0);
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_EQ(host.parameter(0), depth);
  EXPECT_EQ(host.parameter(4), 0.0F);
  EXPECT_TRUE(host.gestureCalls().empty());
  host.setParameter(4, 1.0F);
  EXPECT_FALSE(sameIn(places::kPhaseSwitch, rest, host.picture())) << "it is drawn all the same";
  EXPECT_TRUE(zenity.isRunning());

  zenity.answer("");
  EXPECT_TRUE(host.idleUntil([&] { return !zenity.isRunning(); }));
  host.idle(3);
  EXPECT_EQ(host.currentPreset(), 0) << "nothing was stored up";
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
}

// Nobody knows any more what it is about.
TEST_F(Manual, AViewerThatFailsOnceTheWindowHasClosedIsNotToldInTheNextOne) {
  host.click(places::kManual);
  waitedFor(viewer);
  host.closeEditor();
  viewer.answer("", 3);
  ASSERT_TRUE(host.idleUntil([&] { return !viewer.isRunning(); }));
  ASSERT_TRUE(host.openEditor());
  host.idleFor(300);
  EXPECT_FALSE(zenity.wasAsked());
  fail();
  waitedFor(zenity);
  zenity.answer("");
}

TEST_F(Manual, TheAlertEndsWithTheWindow) {
  fail();
  waitedFor(zenity);
  ASSERT_TRUE(zenity.isRunning());
  host.closeEditor();
  EXPECT_FALSE(zenity.isRunning());
  ASSERT_TRUE(host.openEditor());
  host.click(places::kRockerRight);
  EXPECT_EQ(host.currentPreset(), 1);
  EXPECT_FALSE(zenity.wasAsked());
}

TEST_F(Manual, WithoutADialogProgramTheWindowSaysItItself) {
  std::filesystem::remove(folder / "bin/zenity");
  const auto isSaid = [&] {
    host.moveAway();
    return host.picture() != rest;
  };
  const auto close = [&](auto act) {
    fail();
    EXPECT_TRUE(host.idleUntil(isSaid));
    act();
    host.moveAway();
    EXPECT_EQ(host.picture(), rest);
    EXPECT_EQ(host.parameter(4), 0.0F);
  };
  close([&] { host.click(places::kPhaseSwitch); });  // which hears nothing of it
  for (const std::uint32_t key : {XKB_KEY_Return, XKB_KEY_KP_Enter, XKB_KEY_Escape})
    close([&] { host.key(key); });
  close([&] { EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kReturn), 1); });
  close([&] { EXPECT_EQ(host.dispatch(effEditKeyDown, 0, kEscape), 1); });
  close([&] {
    EXPECT_EQ(host.dispatch(effEditKeyDown, ' ', 0), 0) << "the host's";
    host.closeEditor();
    ASSERT_TRUE(host.openEditor());
  });
}

TEST_F(Manual, WhatTheWindowSaysTakesTheKeyboardFromNoOtherProgram) {
  std::filesystem::remove(folder / "bin/zenity");
  host.focusOther();
  const xcb_window_t other = host.display.focused();
  fail();
  EXPECT_TRUE(host.idleUntil([&] {
    host.moveAway();
    return host.picture() != rest;
  }));
  EXPECT_EQ(host.display.focused(), other);
  host.click(places::kPhaseSwitch);
  host.moveAway();
  EXPECT_EQ(host.picture(), rest);
  EXPECT_EQ(host.display.focused(), other);
  host.focusParent();
  fail();
  EXPECT_TRUE(host.idleUntil([&] {
    host.moveAway();
    return host.picture() != rest;
  }));
  host.key(XKB_KEY_Escape);
  host.moveAway();
  EXPECT_EQ(host.picture(), rest);
}

// The list has the pointer to itself: the alert could not be clicked, nor the list.
TEST_F(Manual, TheAlertWaitsForTheListToClose) {
  host.click(places::kManual);
  waitedFor(viewer);
  host.click(places::kMenu);
  viewer.answer("", 3);
  host.idleFor(200);
  EXPECT_FALSE(zenity.wasAsked());
  host.click(places::listEntry(7));
  EXPECT_EQ(host.currentPreset(), 7);
  waitedFor(zenity);
  zenity.answer("");
}

TEST_F(Manual, TheAlertWaitsForANameToBeTyped) {
  host.click(places::kManual);
  waitedFor(viewer);
  host.click(places::kName);
  host.type("x");
  viewer.answer("", 3);
  host.idleFor(200);
  EXPECT_FALSE(zenity.wasAsked());
  host.key(XKB_KEY_Return);
  EXPECT_EQ(host.programName(), "x");
  waitedFor(zenity);
  zenity.answer("");
}

TEST_F(Manual, TheAlertWaitsForADragToEnd) {
  const float depth = host.parameter(0);
  host.click(places::kManual);
  waitedFor(viewer);
  host.moveTo(places::handleX(depth), places::handleY(0));
  host.press();
  viewer.answer("", 3);
  host.idleFor(200);
  host.moveTo(places::handleX(0.75F), places::handleY(0));
  EXPECT_NEAR(host.parameter(0), 0.75F, 0.02F);
  EXPECT_FALSE(zenity.wasAsked());
  host.release();
  waitedFor(zenity);
  zenity.answer("");
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), host.calls(audioMasterEndEdit).size());
}
