// The slider's gestures: drag, double click, wheel and arrow keys.
#include "editor/controls/cparameterslider.h"

#include <cmath>

#include "editor/controls/wheelright.h"
#include "lib/cframe.h"
#include "lib/events.h"

using VSTGUI::CButtonState;
using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;
using VSTGUI::CRect;
using VSTGUI::VirtualKey;

namespace {

bool isFine(const CButtonState& buttons) {
  return (buttons.getModifierState() & VSTGUI::CControl::kZoomModifier) != 0;
}

}  // namespace

double CParameterSlider::travel() const {
  return getWidth() - getHandle()->getWidth();
}

// On whole pixels of the screen: the toolkit's has them of the window's own size only, and is one
// short where a value is a hair below what the drag meant.
CRect CParameterSlider::handleArea() const {
  constexpr double kHair = 0.01;  // pixels, more than a float's error over the travel
  const double scale = getFrame() != nullptr ? getFrame()->getZoom() : 1.0;
  const double fromLeft = isInverseStyle() ? 1.0 - static_cast<double>(value) : value;
  CRect area(0, 0, getHandle()->getWidth(), getHandle()->getHeight());
  area.offset(getViewSize().left + std::floor(fromLeft * travel() * scale + kHair) / scale,
              getViewSize().top);
  return area;
}

void CParameterSlider::draw(VSTGUI::CDrawContext* context) {
  if (VSTGUI::CBitmap* back = getDrawBackground())
    back->draw(context, getViewSize(), getBackgroundOffset());
  const bool lit = litHandle && (pointerOver || drag);
  (lit ? litHandle.get() : getHandle())->draw(context, handleArea());
  setDirty(false);
}

bool CParameterSlider::removed(VSTGUI::CView* parent) {
  drag.reset();
  unsent.reset();
  pointerOver = false;
  return CHorizontalSlider::removed(parent);
}

void CParameterSlider::sendMotion() {
  if (!unsent) return;
  setValue(*unsent);  // the host's own may have come between
  unsent.reset();
  valueChanged();
}

void CParameterSlider::endEdit() {
  if (!isEditing()) return;
  const auto self = VSTGUI::shared(this);  // the listener may close the window
  try {
    sendMotion();
  } catch (...) {
    CHorizontalSlider::endEdit();  // of what has begun
    throw;
  }
  CHorizontalSlider::endEdit();
}

void CParameterSlider::setInOneGesture(float newValue) {
  if (drag || newValue == value) return;
  const auto self = VSTGUI::shared(this);
  invalidMouseWheelEditTimer(this);  // a gesture of the wheel's is over
  beginEdit();
  if (!isEditing()) return;  // the host has closed the window
  setValue(newValue);
  unsent = value;
  invalid();
  endEdit();
}

CMouseEventResult CParameterSlider::onMouseDown(CPoint& where, const CButtonState& buttons) {
  if (!buttons.isLeftButton()) {
    doubleClick.forget();
    return VSTGUI::kMouseEventNotHandled;
  }
  const auto self = VSTGUI::shared(this);
  invalidMouseWheelEditTimer(this);
  drag.reset();  // one whose release never came
  if (doubleClick.press(where)) {
    setInOneGesture(getDefaultValue());
    return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
  }
  if (!handleArea().pointInside(where))
    return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
  const double perPixel = (isInverseStyle() ? -1.0 : 1.0) / travel();
  drag.emplace(where.x, static_cast<double>(value), isFine(buttons), perPixel,
               static_cast<double>(getZoomFactor()));
  pressX = where.x;
  valueAtPress = value;
  invalid();
  beginEdit();
  return VSTGUI::kMouseEventHandled;
}

void CParameterSlider::follow(const CPoint& where, const CButtonState& buttons) {
  // pixels: a hand that moves further is nudging the handle and not about to click twice
  constexpr double kClick = 2;
  if (std::abs(where.x - pressX) > kClick) doubleClick.forget();
  if (!drag->moveTo(where.x, isFine(buttons))) return;
  const auto reached = static_cast<float>(drag->value());
  if (reached == value) return;
  setValue(reached);
  unsent = value;
  invalid();
}

CMouseEventResult CParameterSlider::onMouseMoved(CPoint& where, const CButtonState& buttons) {
  if (!drag) return VSTGUI::kMouseEventNotHandled;
  if (buttons.isLeftButton()) follow(where, buttons);
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CParameterSlider::onMouseUp(CPoint& where, const CButtonState& buttons) {
  if (!drag) return VSTGUI::kMouseEventHandled;
  follow(where, buttons);
  drag.reset();
  // Never lit by this: who has been left at the press, by a window manager's grab, is not left
  // again.
  hover(pointerOver && getViewSize().pointInside(where));
  endEdit();
  return VSTGUI::kMouseEventHandled;
}

// The value is again what it was at the press, and the host hears so where it heard of another.
CMouseEventResult CParameterSlider::onMouseCancel() {
  if (!drag) return VSTGUI::kMouseEventHandled;
  drag.reset();
  if (unsent || value != valueAtPress) unsent = valueAtPress;
  invalid();
  endEdit();
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CParameterSlider::onMouseEntered(CPoint& /*where*/, const CButtonState&) {
  hover(true);
  return VSTGUI::kMouseEventHandled;
}

CMouseEventResult CParameterSlider::onMouseExited(CPoint& /*where*/, const CButtonState&) {
  hover(false);
  return VSTGUI::kMouseEventHandled;
}

void CParameterSlider::hover(bool over) {
  pointerOver = over;
  invalid();
}

float CParameterSlider::stepped(double clicks, const VSTGUI::Modifiers& modifiers) {
  constexpr double kFine = 0.1;  // of a step
  const bool fine = modifiers.has(VSTGUI::ModifierKey::Shift);
  return steps.after(value, clicks * (fine ? kFine : 1.0) * static_cast<double>(getWheelInc()));
}

// Sideways the handle goes with the wheel; up is more. Of a touch pad's slanting way the larger
// part counts.
void CParameterSlider::onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) {
  const double right = wheelRight(event) * (isInverseStyle() ? -1.0 : 1.0);
  const double clicks = std::abs(right) > std::abs(event.deltaY) ? right : event.deltaY;
  if (clicks == 0) return;
  event.consumed = true;
  if (drag) return;  // the hand has it
  const float reached = stepped(clicks, event.modifiers);
  if (reached == value) return;
  const auto self = VSTGUI::shared(this);
  onMouseWheelEditing(this);  // begins a gesture, which ends some time after the last turn
  if (!isEditing()) return;
  setValue(reached);
  invalid();
  valueChanged();
}

void CParameterSlider::onKeyboardEvent(VSTGUI::KeyboardEvent& event) {
  if (event.type != VSTGUI::EventType::KeyDown) return;
  const double right = isInverseStyle() ? -1.0 : 1.0;
  double clicks = 0;
  switch (event.virt) {
    case VirtualKey::Up:
      clicks = 1;
      break;
    case VirtualKey::Down:
      clicks = -1;
      break;
    case VirtualKey::Right:
      clicks = right;
      break;
    case VirtualKey::Left:
      clicks = -right;
      break;
    case VirtualKey::Escape:
      if (!drag) return;
      event.consumed = true;
      onMouseCancel();
      return;
    default:
      return;
  }
  event.consumed = true;
  if (!drag) setInOneGesture(stepped(clicks, event.modifiers));
}
