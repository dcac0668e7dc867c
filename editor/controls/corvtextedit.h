// A text label that is edited in place.
#pragma once

#include "editor/controls/textentry.h"
#include "vstgui.h"

// A text that is too wide is shown as the list shows it: smaller, or without its end. A press of
// any mouse button opens the entry; while it is open the label draws no text and swallows presses.
// Confirming tells the listener once through valueChanged, between beginEdit and endEdit;
// cancelling tells nobody. User-interface thread.
class COrvTextEdit : public VSTGUI::CTextLabel {
 public:
  // One of the entry's colours; not set: the label's font colour, or the system's.
  struct CustomColor {
    bool set = false;
    VSTGUI::CColor color{255, 255, 255, 255};

    VSTGUI::CColor orElse(const VSTGUI::CColor& usual) const { return set ? color : usual; }
  };

  COrvTextEdit(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
               const char* text, VSTGUI::CBitmap* background, std::int32_t style, bool flag);
  COrvTextEdit(const COrvTextEdit&) = delete;

  using CTextLabel::getText;
  using CTextLabel::setText;
  virtual void setText(const char* text);
  virtual bool isBeingEdited() { return beingEdited; }
  // buffer: large enough for the text; null comes back as it is
  virtual char* getText(char* buffer) const;
  virtual void setCustomFontEditionColor(const VSTGUI::CColor& color) {
    fontEdition = {true, color};
  }
  virtual void setCustomFontHighlightedColor(const VSTGUI::CColor& color) {
    fontHighlighted = {true, color};
  }
  virtual void setCustomHighlightColor(const VSTGUI::CColor& color) { highlight = {true, color}; }
  virtual void setCustomCaretColor(const VSTGUI::CColor& color) { caret = {true, color}; }

  const CustomColor& fontEditionColor() const { return fontEdition; }
  const CustomColor& fontHighlightedColor() const { return fontHighlighted; }
  const CustomColor& highlightColor() const { return highlight; }
  const CustomColor& caretColor() const { return caret; }

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  bool removed(VSTGUI::CView* parent) override;

  void endEntry(bool confirm);     // from the editor; nothing where none is open
  void endEditMode(bool confirm);  // from the entry

  CLASS_METHODS_NOCOPY(COrvTextEdit, CTextLabel)

 private:
  void drawName(VSTGUI::CDrawContext* context);

  TextEntry entry;  // running while beingEdited
  CustomColor fontEdition, fontHighlighted, highlight, caret;
  [[maybe_unused]] bool flag;  // kept for its owner
  bool beingEdited = false;
};
