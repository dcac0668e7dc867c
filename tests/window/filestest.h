// Loading and saving by the preset bar's buttons, with a dialog program that does what
// the test says.
#pragma once

#include "windowtest.h"

class FilesTest : public WindowTest {
 protected:
  FilesTest() { host.openEditor(); }

  // The arguments of the dialog that a click on the button brings up.
  std::vector<std::string> dialogOf(const Area& button, int mouseButton = 1) {
    host.click(button, mouseButton);
    EXPECT_TRUE(host.idleUntil([&] { return zenity.wasAsked(); }));
    return zenity.takeArguments();
  }

  // Answers the running dialog; returns when the editor has taken the answer.
  void answer(const std::string& text, int status = 0) {
    zenity.answer(text, status);
    EXPECT_TRUE(host.idleUntil([&] { return !zenity.isRunning(); }));
    host.idle(3);
  }

  void load(const Area& button, const std::string& path, int mouseButton = 1) {
    dialogOf(button, mouseButton);
    answer(path + "\n");
  }

  void select(int preset) {
    host.click(places::kMenu);
    host.click(places::listEntry(preset));
    ASSERT_EQ(host.currentPreset(), preset);
  }

  std::string file(const std::string& name) const { return folder / ("files/" + name); }

  FakeProgram zenity{folder / "bin", "zenity"};
  WindowHost host;
};
