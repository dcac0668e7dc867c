// A frame without a window, with events, pixels and listeners, for tests of single controls.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <vector>

#include "lib/controls/icontrollistener.h"
#include "lib/events.h"
#include "vstgui.h"

namespace controltest {

using VSTGUI::CColor;
using VSTGUI::CControl;
using VSTGUI::CFrame;
using VSTGUI::CPoint;
using VSTGUI::CRect;
using VSTGUI::ModifierKey;
using VSTGUI::MouseButton;
using VSTGUI::VirtualKey;

// Colours that no picture below mixes.
inline const CColor kBack(250, 250, 240);
inline const CColor kImage0(10, 20, 30), kImage1(200, 10, 20), kImage2(10, 200, 20),
    kImage3(20, 10, 200), kImage4(200, 200, 10);

// The values that a listener has been told, in order.
class Listener : public VSTGUI::IControlListener {
 public:
  void valueChanged(CControl* control) override {
    values.push_back(control->getValue());
    if (then) then(control);
  }
  std::vector<float> values;
  std::function<void(CControl*)> then;
};

// The gestures that reach the editor.
class Editor : public VSTGUI::VSTGUIEditorInterface {
 public:
  void beginEdit(std::int32_t) override { ++gestures; }
  int gestures = 0;
};

// What the frame's root has been asked to redraw.
class Root : public VSTGUI::CViewContainer {
 public:
  explicit Root(const CRect& size) : CViewContainer(size) { setBackgroundColor(kBack); }
  void invalidRect(const CRect& rect) override {
    redrawn.push_back(rect);
    CViewContainer::invalidRect(rect);
  }
  std::vector<CRect> redrawn;
};

// Sub-images of `width` x `height` pixels one below the other, each in one colour, `inset` pixels
// from the bitmap's upper left corner.
VSTGUI::SharedPointer<VSTGUI::CBitmap> stackedImages(std::initializer_list<CColor> colours,
                                                     int width, int height, CPoint inset = {});
// A bitmap from a function of the place.
VSTGUI::SharedPointer<VSTGUI::CBitmap> bitmapOf(int width, int height,
                                                const std::function<CColor(int, int)>& colourAt);

// Pixels of a drawn frame.
class Picture {
 public:
  Picture(CFrame* frame, const CRect& area);
  explicit Picture(VSTGUI::CBitmap* bitmap);
  CColor at(double x, double y) const;
  bool operator==(const Picture& other) const { return pixels == other.pixels; }

 private:
  void read(VSTGUI::CBitmap* bitmap);
  int width = 0;
  std::vector<std::uint32_t> pixels;  // red, green, blue, alpha from the highest byte down
};

class ControlTest : public testing::Test {
 protected:
  explicit ControlTest(const CRect& window = CRect(0, 0, 302, 251));
  ~ControlTest() override;

  template <class Control>
  Control* add(Control* control) {
    root->addView(control);
    return control;
  }

  // Each returns whether the event was consumed.
  bool press(CPoint where, MouseButton button = MouseButton::Left,
             std::initializer_list<ModifierKey> modifiers = {}, std::uint32_t clickCount = 1);
  bool release(CPoint where, MouseButton button = MouseButton::Left);
  bool move(CPoint where, MouseButton held = MouseButton::None);
  bool wheel(CPoint where, double deltaY);
  bool key(VirtualKey virt, std::initializer_list<ModifierKey> modifiers = {});  // down and up
  void cancelMouse();
  void click(CPoint where, MouseButton button = MouseButton::Left,
             std::initializer_list<ModifierKey> modifiers = {});

  CColor pixel(double x, double y) { return Picture(frame, frame->getViewSize()).at(x, y); }
  void closeFrame();

  Editor editor;
  Listener listener;
  CFrame* frame;  // null after closeFrame
  Root* root;
};

}  // namespace controltest

namespace VSTGUI {

inline void PrintTo(const CColor& colour, std::ostream* out) {
  *out << "(" << +colour.red << "," << +colour.green << "," << +colour.blue << "," << +colour.alpha
       << ")";
}
inline void PrintTo(const CRect& rect, std::ostream* out) {
  *out << "[" << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom << "]";
}

}  // namespace VSTGUI
