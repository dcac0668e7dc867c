// Tests of the manual button's work.
#include "tests/presetsystem/filesfixture.h"

namespace {

constexpr char kManual[] = "Documents/Orv/Trelvan/Trelvan Operation Manual.pdf";

class ManualButton : public Files {
 protected:
  ManualButton() {
    std::filesystem::create_directories(home / "Documents/Orv/Trelvan");
    writeFile(home / kManual, "%PDF");
  }
  // Idle passes for a while.
  void open() {
    editor().openManual();
    for (int pass = 0; pass < 1000 && !desktop.wasCalled("xmessage"); ++pass) {
      editor().watchManual();
      editor().watchMessages();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  ScopedVariable homeFolder{"HOME", home.path};
};

TEST_F(ManualButton, OpensTheManualWithoutAnAlert) {
  desktop.install("xdg-open", "");
  desktop.install("xmessage", "");
  open();
  EXPECT_THAT(desktop.argumentsOf("xdg-open"), testing::ElementsAre(home / kManual));
  EXPECT_FALSE(desktop.wasCalled("xmessage"));
}

TEST_F(ManualButton, SaysWhichFileCouldNotBeOpened) {
  desktop.install("xdg-open", "exit 4");
  desktop.install("xmessage", "");
  open();
  ASSERT_TRUE(desktop.wasCalled("xmessage"));
  EXPECT_EQ(
      desktop.argumentsOf("xmessage").back(),
      "Could not open manual file:\n~/\"Documents/Orv/Trelvan/Trelvan Operation Manual.pdf\"");
  for (int pass = 0; pass < 50; ++pass) {
    editor().watchManual();
    editor().watchMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_FALSE(desktop.wasCalled("xmessage", 2));  // once
}

TEST_F(ManualButton, SaysSoWithoutAViewer) {
  desktop.install("xmessage", "");
  open();
  EXPECT_TRUE(desktop.wasCalled("xmessage"));
}

}  // namespace
