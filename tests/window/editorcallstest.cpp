// What the editor does in an open window on calls that no host has an opcode for, and what its
// controls then hold.
#include <algorithm>
#include <limits>
#include <memory>
#include <thread>

#include "damagewatch.h"
#include "editor/controls/cabout.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/cvumeter1.h"
#include "editor/window/adeditor.h"
#include "effect/trelvan.h"
#include "presetsystem/bar/presetbar.h"
#include "settingsmanager.h"
#include "tests/support/recordinghost.h"
#include "vstgui.h"
#include "windowtest.h"

namespace {

using VSTGUI::CControl;
using VSTGUI::CRect;

constexpr Area kWindow{20, 40, 340, 320};  // of the host's on the screen
constexpr float kElsewhere = 0.125F;       // a value that no parameter below has

// Every view below `parent`, in its order.
void collect(VSTGUI::CViewContainer* parent, std::vector<CControl*>& found) {
  parent->forEachChild([&](VSTGUI::CView* child) {
    if (auto* container = child->asViewContainer()) collect(container, found);
    if (auto* control = dynamic_cast<CControl*>(child)) found.push_back(control);
  });
}

class EditorCalls : public WindowTest {
 protected:
  EditorCalls()
      : window(display.makeWindow(kWindow)),
        effect(std::make_unique<Trelvan>(RecordingHost::callback)) {
    effect->setParameter(0, 0.3F);
    effect->setParameter(1, 0.5F);
    effect->setParameter(2, 0.7F);
  }
  ~EditorCalls() override {
    effect.reset();
    display.destroyWindow(window);
  }

  ADEditor& editor() { return *static_cast<ADEditor*>(effect->getEditor()); }
  void open() {
    display.moveTo(700, 600);
    ASSERT_TRUE(editor().open(reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))));
    controls.clear();
    collect(editor().getFrame(), controls);
    settle();
    host.calls.clear();
  }
  void close() {
    editor().close();
    controls.clear();
  }
  void settle() {
    for (int pass = 0; pass < 8; ++pass) {
      display.sync();
      editor().idle();
      // the toolkit draws from a timer of 16
      std::this_thread::sleep_for(std::chrono::milliseconds(17));
    }
  }

  CControl* tagged(std::int32_t tag) const {
    for (CControl* control : controls) {
      if (control->getTag() == tag) return control;
    }
    ADD_FAILURE() << "no control " << tag;
    return nullptr;
  }
  // index: 0 depth, 1 frequency, 2 emphasis.
  CControl* valueDisplay(int index) const {
    const CRect place(258, 54 + 32 * index, 322, 71 + 32 * index);
    for (CControl* control : controls) {
      if (control->getViewSize() == place) return control;
    }
    ADD_FAILURE() << "no display " << index;
    return nullptr;
  }
  CVuMeter1* meter() const {
    for (CControl* control : controls) {
      if (auto* found = dynamic_cast<CVuMeter1*>(control)) return found;
    }
    return nullptr;
  }
  std::vector<CControl*> parameterControls() const {
    return {tagged(0), tagged(1),       tagged(2),       tagged(3),
            tagged(4), valueDisplay(0), valueDisplay(1), valueDisplay(2)};
  }
  // Lets the controls show something else than the effect has, as nobody does.
  void disturb() const {
    for (CControl* control : parameterControls()) control->setValue(kElsewhere);
  }
  std::vector<float> shown() const {
    std::vector<float> values;
    for (const CControl* control : parameterControls()) values.push_back(control->getValue());
    return values;
  }

  std::vector<unsigned char> chunk() {
    void* data = nullptr;
    const VstInt32 size = effect->getChunk(&data, false);
    const auto* bytes = static_cast<unsigned char*>(data);
    return {bytes, bytes + size};
  }

  std::vector<RecordingHost::Call> automated() const {
    std::vector<RecordingHost::Call> found;
    for (const RecordingHost::Call& call : host.calls) {
      if (call.opcode == audioMasterAutomate) found.push_back(call);
    }
    return found;
  }
  // Steady mid on both channels.
  void play(int frames) {
    std::vector<float> in(static_cast<std::size_t>(frames), 0.5F), left(in.size()),
        right(in.size());
    float* ins[] = {in.data(), in.data()};
    float* outs[] = {left.data(), right.data()};
    effect->processReplacing(ins, outs, frames);
  }

  // The smallest area around everything that is drawn because of `call`.
  Area drawnBy(const std::function<void()>& call) {
    settle();
    DamageWatch watch(display, window);
    call();
    settle();
    Area all{};
    for (const Area& area : watch.take()) {
      if (all == Area{}) all = area;
      all = {std::min(all.left, area.left), std::min(all.top, area.top),
             std::max(all.right, area.right), std::max(all.bottom, area.bottom)};
    }
    return all;
  }

  RecordingHost host;
  TestDisplay display;
  xcb_window_t window;
  std::unique_ptr<Trelvan> effect;
  std::vector<CControl*> controls;  // the frame's, while the window is open
};

}  // namespace

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

TEST_F(EditorCalls, AParameterThatIsNotThereTouchesNothing) {
  open();
  disturb();
  const std::vector<float> disturbed = shown();
  for (const VstInt32 index : {5, -1, 6, 1000, std::numeric_limits<VstInt32>::min()}) {
    editor().setParameter(index, 0.9F);
    editor().idle();
    EXPECT_EQ(shown(), disturbed) << index;
  }
  for (VstInt32 index = 0; index < 5; ++index) editor().setParameter(index, 0.9F);
  editor().idle();
  EXPECT_EQ(shown(), (std::vector<float>{0.3F, 0.5F, 0.7F, 1.0F, 0.0F, 0.3F, 265.0F, 0.7F}));
}

TEST_F(EditorCalls, AParameterThatIsSetWhileClosedTouchesNothing) {
  open();
  close();
  for (VstInt32 index = -1; index < 6; ++index) editor().setParameter(index, 0.9F);
  editor().idle();
  EXPECT_TRUE(host.calls.empty());
  for (VstInt32 index = -1; index < 6; ++index) editor().setParameter(index, 0.9F);
  display.moveTo(700, 600);
  ASSERT_TRUE(editor().open(reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))));
  collect(editor().getFrame(), controls);
  disturb();
  const std::vector<float> disturbed = shown();
  editor().idle();
  EXPECT_EQ(shown(), disturbed) << "nothing is left over for the next window";
}

TEST_F(EditorCalls, EachParameterUpdatesItsControlAndDisplayAndTheLastOneTheFirstDisplayToo) {
  open();
  // Slider or switch of the index, and the display beside it.
  const std::vector<std::vector<CControl*>> updated = {{tagged(0), valueDisplay(0)},
                                                       {tagged(1), valueDisplay(1)},
                                                       {tagged(2), valueDisplay(2)},
                                                       {tagged(3)},
                                                       {tagged(4), valueDisplay(0)}};
  for (std::size_t index = 0; index < updated.size(); ++index) {
    disturb();
    editor().setParameter(static_cast<VstInt32>(index), 0.9F);
    editor().idle();
    for (CControl* control : parameterControls()) {
      const bool expected =
          std::find(updated[index].begin(), updated[index].end(), control) != updated[index].end();
      EXPECT_EQ(control->getValue() != kElsewhere, expected)
          << index << ", control " << control->getTag();
    }
  }
  EXPECT_EQ(valueDisplay(0)->getValue(), 0.3F) << "by the last one";
}

TEST_F(EditorCalls, TheSwitchesAreOnFromExactlyOneHalf) {
  open();
  for (const VstInt32 index : {3, 4}) {
    for (const auto& [raw, position] :
         {std::pair{0.5F, 1.0F}, std::pair{0.49999997F, 0.0F}, std::pair{1.0F, 1.0F},
          std::pair{std::numeric_limits<float>::quiet_NaN(), 0.0F}}) {
      tagged(index)->setValue(kElsewhere);
      effect->setParameter(index, raw);
      editor().idle();
      EXPECT_EQ(tagged(index)->getValue(), position) << raw;
    }
    effect->setParameter(index, 0.5F);
    close();
    open();
    EXPECT_EQ(tagged(index)->getValue(), 1.0F) << "from the beginning";
  }
}

TEST_F(EditorCalls, TheMeterKeepsItsValueWhileTheSplashIsShownAndRestsAfterSuspend) {
  open();
  effect->resume();
  play(44100);
  editor().idle();
  const float playing = meter()->getValue();
  EXPECT_EQ(playing, 0.5F + effect->getWidthMeter());
  ASSERT_NE(playing, 0.5F);
  tagged(6)->setValue(1.0F);
  effect->suspend();  // the reading is 0 again
  editor().idle();
  EXPECT_EQ(meter()->getValue(), playing);
  editor().suspend();
  EXPECT_EQ(meter()->getValue(), 0.5F);
  play(44100);
  editor().idle();
  EXPECT_EQ(meter()->getValue(), 0.5F) << "the splash is still shown";
  tagged(6)->setValue(0.0F);
  editor().idle();
  EXPECT_EQ(meter()->getValue(), 0.5F + effect->getWidthMeter());
  EXPECT_NE(meter()->getValue(), 0.5F);
  editor().suspend();
  EXPECT_EQ(meter()->getValue(), 0.5F);
  close();
  editor().suspend();  // no meter, no harm
}

TEST_F(EditorCalls, EachValueOfAParameterControlIsAutomatedOnceUnderItsOwnTag) {
  open();
  for (VstInt32 tag = 0; tag < 5; ++tag) {
    for (const float value : {0.25F, 1.0F, 1.0F, 0.0F}) {
      host.calls.clear();
      tagged(tag)->setValue(value);
      tagged(tag)->setDirty(false);
      tagged(tag)->valueChanged();
      const std::vector<RecordingHost::Call> told = automated();
      ASSERT_EQ(told.size(), 1U);
      EXPECT_EQ(told[0].index, tag);
      EXPECT_EQ(told[0].opt, value);
      EXPECT_EQ(effect->getParameter(tag), value);
      EXPECT_TRUE(tagged(tag)->isDirty());
    }
  }
}

TEST_F(EditorCalls, TheAboutControlsTagNeverReachesTheEffect) {
  open();
  ASSERT_NE(dynamic_cast<CAbout*>(tagged(6)), nullptr);
  effect->setParameter(6, 0.25F);
  tagged(6)->setValue(1.0F);
  tagged(6)->valueChanged();
  editor().valueChanged(tagged(6));
  editor().beginEdit(6);
  editor().endEdit(6);
  EXPECT_TRUE(host.calls.empty());
  EXPECT_EQ(effect->getParameter(6), 0.25F);
}

TEST_F(EditorCalls, ReopeningGivesTheControlsTheValuesOfBefore) {
  open();
  tagged(0)->setValue(0.8F);
  tagged(0)->valueChanged();
  tagged(4)->setValue(1.0F);
  tagged(4)->valueChanged();
  effect->setParameter(1, 0.1F);
  editor().idle();
  const std::vector<float> before = shown();
  EXPECT_EQ(before[0], 0.8F);
  EXPECT_EQ(before[4], 1.0F);
  close();
  open();
  EXPECT_EQ(shown(), before);
}
