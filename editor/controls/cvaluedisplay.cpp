// The display's side of typing a value.
#include "editor/controls/cvaluedisplay.h"

void CValueDisplay::draw(VSTGUI::CDrawContext* context) {
  if (!beingEdited) return CParamDisplay::draw(context);
  drawBack(context);
  setDirty(false);
}

std::string CValueDisplay::entryText() {
  return opened;
}

VSTGUI::CMouseEventResult CValueDisplay::onMouseDown(VSTGUI::CPoint& where,
                                                     const VSTGUI::CButtonState& buttons) {
  if (beingEdited || !isAttached()) return VSTGUI::kMouseEventHandled;
  if (!buttons.isLeftButton()) doubleClick.forget();
  if (!buttons.isLeftButton() || !doubleClick.press(where)) return VSTGUI::kMouseEventNotHandled;
  opened.clear();
  if (valueToStringFunction) valueToStringFunction(getValue(), opened, this);
  // only now: without memory the display stays one
  beingEdited = entry.open(this, entryPlace(*this));
  setDirty(true);
  return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

bool CValueDisplay::removed(VSTGUI::CView* parent) {
  entry.abandon();
  beingEdited = false;
  return CParamDisplay::removed(parent);
}

void CValueDisplay::endEntry(bool confirm) {
  if (beingEdited) entry.end(confirm);
}

void CValueDisplay::endEditMode(bool confirm) {
  beingEdited = false;
  setDirty(true);
  invalid();
  if (confirm && confirmed != opened && typed) typed(confirmed);
}
