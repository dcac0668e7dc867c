// The scale that a host of the VST 2.4 record gives the window, where it knows our question for it.
#include <limits>

#include "effect/trelvan.h"
#include "settingsmanager.h"
#include "tests/support/recordinghost.h"
#include "windowtest.h"

namespace {

using Limits = std::numeric_limits<float>;

class HostScale : public WindowTest {
 protected:
  HostScale() { desktop.setResourceDpi(144); }  // 1.5
  ~HostScale() override { display.destroyWindow(window); }

  // It writes the scale, and returns `answer`, to the one question that has the effect's number.
  void giveScale(float scale, VstIntPtr answer = 1) {
    host.answers[audioMasterVendorSpecific] = answer;
    host.onCall = [scale](const RecordingHost::Call& call) {
      if (call.opcode == audioMasterVendorSpecific && call.index == Trelvan::kUniqueID &&
          call.value == kWindowScaleWanted)
        *static_cast<float*>(call.ptr) = scale;
    };
  }

  // The window's width for one of 302 pixels: of an open one, and of the next.
  int openWidth() {
    AEffEditor& editor = *effect.getEditor();
    EXPECT_TRUE(editor.open(reinterpret_cast<void*>(std::uintptr_t{window})));
    const int width = nextWidth();
    editor.close();
    EXPECT_EQ(nextWidth(), width);
    return width;
  }
  int nextWidth() {
    ERect* size = nullptr;
    EXPECT_TRUE(effect.getEditor()->getRect(&size));
    return size->right - size->left;
  }

  SettingsManager desktop;
  TestDisplay display;
  xcb_window_t window = display.makeWindow({20, 40, 1300, 1100});
  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
};

constexpr int kAtOnce = 302;
constexpr int kOfTheDesktop = 453;  // 1.5 times as much

}  // namespace

TEST_F(HostScale, GoesBeforeTheDesktops) {
  giveScale(2.0F);
  EXPECT_EQ(openWidth(), 604);
  giveScale(1.0F);
  EXPECT_EQ(openWidth(), kAtOnce);
}

TEST_F(HostScale, HasTheDesktopsStepsAndBounds) {
  giveScale(1.2F);
  EXPECT_EQ(openWidth(), 378) << "1.25 times as much, the last half a pixel whole";
  giveScale(0.5F);
  EXPECT_EQ(openWidth(), kAtOnce);
  giveScale(100.0F);
  EXPECT_EQ(openWidth(), 1208);
}

TEST_F(HostScale, IsAskedAnewForEachOpening) {
  EXPECT_EQ(openWidth(), kOfTheDesktop);
  giveScale(3.0F);
  EXPECT_EQ(nextWidth(), 906);
  EXPECT_EQ(openWidth(), 906);
}

TEST_F(HostScale, ThatIsNoneLeavesItToTheDesktop) {
  for (const float nonsense : {0.0F, -2.0F, Limits::quiet_NaN(), Limits::infinity()}) {
    giveScale(nonsense);
    EXPECT_EQ(openWidth(), kOfTheDesktop) << nonsense;
  }
}

// Hosts return 0 to what they do not know, and a few 1 to everything, without writing.
TEST_F(HostScale, OfAHostThatDoesNotKnowTheQuestionIsNone) {
  EXPECT_EQ(openWidth(), kOfTheDesktop);
  host.answers[audioMasterVendorSpecific] = 1;
  EXPECT_EQ(openWidth(), kOfTheDesktop);
  giveScale(2.0F, 0);
  EXPECT_EQ(openWidth(), kOfTheDesktop);
}
