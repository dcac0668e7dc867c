// An effect with its window, whose editor and controls a test calls by themselves, as no host can.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "damagewatch.h"
#include "editor/controls/cvumeter1.h"
#include "editor/window/adeditor.h"
#include "effect/trelvan.h"
#include "tests/support/recordinghost.h"
#include "vstgui.h"
#include "windowtest.h"

class EditorCalls : public WindowTest {
 protected:
  using CControl = VSTGUI::CControl;
  using CRect = VSTGUI::CRect;
  static constexpr Area kWindow{20, 40, 340, 320};  // of the host's on the screen
  static constexpr float kElsewhere = 0.125F;       // a value that no parameter below has

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
      std::this_thread::sleep_for(kRedrawTime);
    }
  }

  // Every control below `parent`, in its order.
  static void collect(VSTGUI::CViewContainer* parent, std::vector<CControl*>& found) {
    parent->forEachChild([&](VSTGUI::CView* child) {
      if (auto* container = child->asViewContainer()) collect(container, found);
      if (auto* control = dynamic_cast<CControl*>(child)) found.push_back(control);
    });
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
