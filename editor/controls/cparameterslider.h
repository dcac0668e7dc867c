// A horizontal slider whose handle goes where the hand goes.
#pragma once

#include <optional>

#include "editor/controls/doubleclick.h"
#include "editor/controls/handledrag.h"
#include "editor/controls/steppedvalue.h"
#include "lib/controls/cslider.h"

// The toolkit's slider with gestures of its own. In the toolkit's, wheel and arrow keys move a
// mirrored handle the wrong way, the vertical wheel does nothing, a press without motion changes
// the value, and the handle jumps when Shift is pressed or released.
//
// Drags only by the handle, as in the mode Touch; values 0..1. What the mouse drags to is kept
// until sendMotion tells the listener, so that many motions between two idle passes are one change;
// the end of a gesture tells it first. User-interface thread.
class CParameterSlider : public VSTGUI::CHorizontalSlider {
 public:
  using CHorizontalSlider::CHorizontalSlider;

  void setLitHandle(VSTGUI::CBitmap* picture) { litHandle = picture; }  // of the handle's size
  void sendMotion();
  // begin, the value, end. Nothing where that is its value already, or a drag goes on.
  void setInOneGesture(float newValue);

  void draw(VSTGUI::CDrawContext* context) override;
  void endEdit() override;
  bool removed(VSTGUI::CView* parent) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                         const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                      const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseCancel() override;
  VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override;
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override;

  VSTGUI::CBaseObject* newCopy() const override { return nullptr; }  // views of ours are not copied

 private:
  double travel() const;  // pixels
  VSTGUI::CRect handleArea() const;
  float stepped(double clicks, const VSTGUI::Modifiers& modifiers);
  void follow(const VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons);
  void hover(bool over);

  VSTGUI::SharedPointer<VSTGUI::CBitmap> litHandle;  // under the pointer and while it is dragged
  std::optional<HandleDrag> drag;                    // while the mouse holds the handle
  double pressX = 0;
  float valueAtPress = 0;
  std::optional<float> unsent;  // where the drag has come to
  SteppedValue steps;
  DoubleClick doubleClick;
  bool pointerOver = false;
};
