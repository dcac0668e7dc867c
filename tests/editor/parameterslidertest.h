// A slider as the window's are, or one that is not mirrored, in a frame without a window.
#pragma once

#include "controltest.h"
#include "editor/controls/cparameterslider.h"
#include "vstgui.h"

namespace controltest {

inline constexpr double kLeft = 63, kTop = 51, kRight = 239, kHeight = 23;  // pixels
inline constexpr float kPixel = 1.0F / 160;                                 // of the travel

class ParameterSlider : public ControlTest {
 protected:
  ParameterSlider() { make(VSTGUI::CSlider::kRight); }

  void make(std::int32_t style) {
    const auto handle = stackedImages({kImage0}, 16, 23);
    const auto lit = stackedImages({kImage1}, 16, 23);
    const auto back = stackedImages({kImage2}, 302, 251);
    slider = add(new CParameterSlider(CRect(kLeft, kTop, kRight, kTop + kHeight), &listener, 0, 63,
                                      223, handle, back, CPoint(), style));
    slider->setLitHandle(lit);
    slider->setSliderMode(VSTGUI::CSliderMode::Touch);
    slider->setValue(0.5F);
    frame->setFocusView(slider);
  }
  static CPoint at(double x) { return {x, kTop + 10}; }
  bool moveFine(double x) {
    VSTGUI::MouseMoveEvent event(at(x), MouseButton::Left);
    event.modifiers.add(ModifierKey::Shift);
    frame->dispatchEvent(event);
    return event.consumed;
  }
  bool wheelBy(double deltaX, double deltaY, bool fine = false) {
    VSTGUI::MouseWheelEvent event;
    event.mousePosition = at(150);
    event.deltaX = deltaX;
    event.deltaY = deltaY;
    if (fine) event.modifiers.add(ModifierKey::Shift);
    frame->dispatchEvent(event);
    return event.consumed;
  }
  // The handle's left edge in the picture.
  double shownAt(const CColor& colour) {
    const Picture picture(frame, frame->getViewSize());
    for (double x = kLeft; x < kRight; ++x) {
      if (picture.at(x, kTop + 5) == colour) return x;
    }
    return -1;
  }

  CParameterSlider* slider = nullptr;
};

}  // namespace controltest
