// The list as the system's menu, which runs a loop of its own, on a platform of the test's own.
#include "editor/controls/presetpopup.h"

#include <gtest/gtest.h>

#include <vector>

#include "editor/base/forgetlisteners.h"
#include "editor/base/framewindow.h"
#include "editor/controls/cpresetmenu.h"
#include "lib/events.h"
#include "toolkitfactory.h"

namespace {

using VSTGUI::CFrame;
using VSTGUI::CPoint;
using VSTGUI::CRect;

class Listener : public VSTGUI::IControlListener {
 public:
  void valueChanged(VSTGUI::CControl* control) override { values.push_back(control->getValue()); }
  std::vector<float> values;
};

class PresetPopupMac : public testing::Test {
 protected:
  PresetPopupMac() {
    auto* menu = new CPresetMenu(CRect(0, 0, 20, 20), &listener, 1012);
    for (const char* title : {"zero", "one", "two"}) menu->addEntry(title);
    frame->addView(menu);
    EXPECT_TRUE(window.open(frame, &view));
  }
  void press() {
    VSTGUI::MouseDownEvent event(CPoint(10, 10), VSTGUI::MouseButton::Left);
    frame->dispatchEvent(event);
  }

  toolkitdouble::Toolkit toolkit;
  Listener listener;
  CFrame* frame = new CFrame(CRect(0, 0, 302, 250), nullptr);
  FrameWindow window;
  int view = 0;  // stands for the host's view
};

TEST_F(PresetPopupMac, TellsTheListenerWhatWasChosen) {
  toolkit.record.menuUser = [] { return 2; };
  press();
  EXPECT_EQ(listener.values, std::vector<float>{2});
}

// The host closes the window while the menu is up, and may end who listened; the user chooses then.
TEST_F(PresetPopupMac, TellsNobodyOfAWindowThatHasClosedMeanwhile) {
  toolkit.record.menuUser = [this] {
    forgetListeners(*frame);
    window.close();
    EXPECT_EQ(toolkit.record.framesClosed, 1);
    return 2;
  };
  press();
  EXPECT_TRUE(listener.values.empty());
}

}  // namespace
