// What the editor does in an open window on calls that no host has an opcode for.
#include "editor/controls/cpresetmenu.h"
#include "editorcalls.h"
#include "presetsystem/bar/presetbar.h"
#include "settingsmanager.h"
#include "vstgui.h"

TEST_F(EditorCalls, DrawWithoutARectangleDrawsTheWholeWindow) {
  open();
  ERect* size = nullptr;
  ASSERT_TRUE(editor().getRect(&size));
  EXPECT_EQ(drawnBy([this] { editor().draw(nullptr); }), (Area{0, 0, size->right, size->bottom}));
  EXPECT_EQ(drawnBy([] {}), Area{}) << "nothing by itself";
}

TEST_F(EditorCalls, DrawWithCornersInAnyOrderDrawsTheSameArea) {
  open();
  constexpr Area kPart{50, 100, 91, 133};
  for (ERect corners : {ERect{100, 50, 133, 91}, ERect{133, 91, 100, 50}, ERect{100, 91, 133, 50},
                        ERect{133, 50, 100, 91}}) {  // top, left, bottom, right
    EXPECT_EQ(drawnBy([&] { editor().draw(&corners); }), kPart)
        << corners.top << ", " << corners.left;
  }
}

TEST_F(EditorCalls, TheWheelGoesToTheControlUnderThePointer) {
  open();
  display.moveTo(kWindow.left + places::kRockerRight.centreX(),
                 kWindow.top + places::kRockerRight.centreY());
  settle();
  EXPECT_TRUE(editor().onWheel(-1.0F));
  EXPECT_EQ(effect->getPresetNo(), 1);
  EXPECT_TRUE(editor().onWheel(1.0F));
  EXPECT_EQ(effect->getPresetNo(), 0);
  display.moveTo(kWindow.left + 5, kWindow.top + 5);
  settle();
  EXPECT_FALSE(editor().onWheel(-1.0F)) << "nothing there takes it";
  EXPECT_EQ(effect->getPresetNo(), 0);
}

TEST_F(EditorCalls, OnAScreenOfTwiceAsManyPixelsPlacesAreTheScreens) {
  SettingsManager desktop;
  desktop.setResourceDpi(192);
  display.resizeWindow(window, 640, 560);
  open();
  display.moveTo(kWindow.left + 2 * places::kRockerRight.centreX(),
                 kWindow.top + 2 * places::kRockerRight.centreY());
  settle();
  EXPECT_TRUE(editor().onWheel(-1.0F));
  EXPECT_EQ(effect->getPresetNo(), 1);
  constexpr Area kPart{50, 100, 92, 134};
  ERect corners{kPart.top, kPart.left, kPart.bottom, kPart.right};
  EXPECT_EQ(drawnBy([&] { editor().draw(&corners); }), kPart);
  ERect* size = nullptr;
  ASSERT_TRUE(editor().getRect(&size));
  EXPECT_EQ(drawnBy([this] { editor().draw(nullptr); }), (Area{0, 0, size->right, size->bottom}));
}

TEST_F(EditorCalls, AKeyIsTakenExactlyWhenAControlHandlesIt) {
  open();
  VstKeyCode up{0, VKEY_UP, 0};
  EXPECT_FALSE(editor().onKeyDown(up)) << "nothing has the keyboard";
  editor().getFrame()->setFocusView(tagged(0));
  const float before = effect->getParameter(0);
  EXPECT_TRUE(editor().onKeyDown(up));
  EXPECT_NE(effect->getParameter(0), before);
  VstKeyCode letter{'q', 0, 0};
  EXPECT_FALSE(editor().onKeyDown(letter));
  EXPECT_FALSE(editor().onKeyUp(letter));
}

// The system's own menu holds on to the control that it is of, and runs a loop in which the host
// may close the window, or end the instance.
TEST_F(EditorCalls, AControlThatOutlivesTheWindowTellsNobody) {
  open();
  std::vector<VSTGUI::SharedPointer<CControl>> held;
  for (CControl* control : controls) held.push_back(VSTGUI::shared(control));
  ASSERT_GT(held.size(), 20U);
  const auto tell = [&held] {
    for (const auto& control : held) {
      control->setValue(control->getMax());
      control->valueChanged();
    }
  };
  close();
  const std::vector<unsigned char> before = chunk();
  host.calls.clear();
  tell();
  EXPECT_TRUE(host.calls.empty());
  EXPECT_EQ(chunk(), before);
  effect.reset();
  tell();
}

TEST_F(EditorCalls, AListThatIsStillUpTellsNobody) {
  open();
  const auto menu = VSTGUI::shared(static_cast<CPresetMenu*>(tagged(kPresetMenuTag)));
  display.moveTo(kWindow.left + places::kMenu.centreX(), kWindow.top + places::kMenu.centreY());
  display.press(1);
  display.release(1);
  settle();
  ASSERT_TRUE(menu->isOpen());
  close();
  EXPECT_FALSE(menu->isOpen());
  menu->choose(5);
  EXPECT_EQ(effect->getPresetNo(), 0);
  open();  // another list, of the same bar
  menu->choose(7);
  EXPECT_EQ(effect->getPresetNo(), 0);
  effect.reset();
  menu->choose(9);
}
