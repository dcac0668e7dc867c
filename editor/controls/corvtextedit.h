// A text label that is edited in place.
#pragma once

#include "editor/controls/mousecontrol.h"
#include "editor/controls/textentry.h"
#include "editor/controls/textentryowner.h"
#include "vstgui.h"

// A text that is too wide is shown as the list shows it: smaller, or without its end. A press of
// any mouse button opens the entry; while it is open the label draws no text and swallows presses.
// Confirming tells the listener once through valueChanged, between beginEdit and endEdit;
// cancelling tells nobody. Under the pointer, which is an I-beam there, the label has a colour of
// its own. User-interface thread.
class COrvTextEdit : public Hovered<VSTGUI::CTextLabel>, public TextEntryOwner {
 public:
  COrvTextEdit(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
               const char* text, VSTGUI::CBitmap* background, std::int32_t style, bool flag);
  COrvTextEdit(const COrvTextEdit&) = delete;

  using CTextLabel::getText;
  using CTextLabel::setText;
  void setText(const char* text) override;
  virtual bool isBeingEdited() { return beingEdited; }
  // buffer: large enough for the text; null comes back as it is
  virtual char* getText(char* buffer) const;
  virtual void setCustomFontEditionColor(const VSTGUI::CColor& color) {
    colors.fontEdition = {true, color};
  }
  virtual void setCustomFontHighlightedColor(const VSTGUI::CColor& color) {
    colors.fontHighlighted = {true, color};
  }
  virtual void setCustomHighlightColor(const VSTGUI::CColor& color) {
    colors.highlight = {true, color};
  }
  virtual void setCustomCaretColor(const VSTGUI::CColor& color) { colors.caret = {true, color}; }
  // not set: as at rest
  void setUnderPointerColor(const VSTGUI::CColor& color) { underPointer = {true, color}; }

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
  VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
  bool removed(VSTGUI::CView* parent) override;

  void endEntry(bool confirm);  // from the editor; nothing where none is open
  // from the entry
  VSTGUI::CParamDisplay& entryLabel() override { return *this; }
  std::string entryText() override { return getText().getString(); }
  const EntryColors& entryColors() const override { return colors; }
  void endEditMode(bool confirm) override;

  CLASS_METHODS_NOCOPY(COrvTextEdit, CTextLabel)

 private:
  void drawName(VSTGUI::CDrawContext* context);
  void showCursor(VSTGUI::CCursorType cursor);

  TextEntry entry;  // running while beingEdited
  EntryColors colors;
  EntryColor underPointer;
  [[maybe_unused]] bool flag;  // kept for its owner
  bool beingEdited = false;
};
