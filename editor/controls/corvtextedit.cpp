// The label's side of in-place text entry.
#include "editor/controls/corvtextedit.h"

#include <cstring>

#include "editor/controls/fitname.h"

using VSTGUI::CPoint;
using VSTGUI::CRect;

COrvTextEdit::COrvTextEdit(const CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
                           const char* text, VSTGUI::CBitmap* background, std::int32_t style,
                           bool keptFlag)
    : Hovered(size, text, background, style), flag(keptFlag) {
  setListener(listener);
  setTag(tag);
}

void COrvTextEdit::setText(const char* text) {
  CTextLabel::setText(VSTGUI::UTF8String(text));
}

char* COrvTextEdit::getText(char* buffer) const {
  return buffer != nullptr ? std::strcpy(buffer, getText().data()) : nullptr;
}

void COrvTextEdit::draw(VSTGUI::CDrawContext* context) {
  if (getDrawBackground() != nullptr) drawBack(context);
  if (mouseOver && !beingEdited && underPointer.set) {
    context->setDrawMode(VSTGUI::kAliasing);
    context->setFillColor(underPointer.color);
    context->drawRect(getViewSize(), VSTGUI::kDrawFilled);
  }
  if (!beingEdited) drawName(context);
  setDirty(false);
}

// As the list shows it. The toolkit's label would centre a name that is too wide, and cut both
// ends.
void COrvTextEdit::drawName(VSTGUI::CDrawContext* context) {
  CRect area = getViewSize();
  area.inset(getTextInset());
  const FittedName name = fitName(context, getText().getString(), area.getWidth(), getFont());
  const VSTGUI::ConcatClip inside(*context, area);
  context->setDrawMode(VSTGUI::kAntiAliasing);
  context->setFont(name.font);
  context->setFontColor(getFontColor());
  context->drawString(name.text.getPlatformString(), area, getHoriAlign(), getAntialias());
}

VSTGUI::CMouseEventResult COrvTextEdit::onMouseDown(CPoint& /*where*/,
                                                    const VSTGUI::CButtonState& /*buttons*/) {
  if (beingEdited || !isAttached()) return VSTGUI::kMouseEventHandled;
  // only now: without memory the label stays a label
  beingEdited = entry.open(this, entryPlace(*this));
  setDirty(true);
  return VSTGUI::kMouseEventHandled;
}

void COrvTextEdit::showCursor(VSTGUI::CCursorType cursor) {
  if (VSTGUI::CFrame* frame = getFrame()) frame->setCursor(cursor);
}

VSTGUI::CMouseEventResult COrvTextEdit::onMouseEntered(CPoint& where,
                                                       const VSTGUI::CButtonState& buttons) {
  showCursor(VSTGUI::kCursorIBeam);
  return Hovered::onMouseEntered(where, buttons);
}

VSTGUI::CMouseEventResult COrvTextEdit::onMouseExited(CPoint& where,
                                                      const VSTGUI::CButtonState& buttons) {
  showCursor(VSTGUI::kCursorDefault);
  return Hovered::onMouseExited(where, buttons);
}

bool COrvTextEdit::removed(VSTGUI::CView* parent) {
  entry.abandon();
  beingEdited = false;
  return CTextLabel::removed(parent);
}

void COrvTextEdit::endEntry(bool confirm) {
  if (beingEdited) entry.end(confirm);
}

void COrvTextEdit::endEditMode(bool confirm) {
  beingEdited = false;
  setDirty(true);
  if (confirm) {
    beginEdit();
    try {
      valueChanged();
    } catch (...) {
      endEdit();  // of what has begun
      throw;
    }
    endEdit();
  }
  invalid();
}
