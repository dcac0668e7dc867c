// A parameter's value as text, into which a value can be typed.
#pragma once

#include <functional>
#include <string>

#include "editor/controls/doubleclick.h"
#include "editor/controls/textentry.h"
#include "editor/controls/textentryowner.h"
#include "vstgui.h"

// A double click of the left button opens the entry with what is shown. While it is open the
// display draws no text. Confirming a text that was changed hands it over; all else tells nobody.
// User-interface thread.
class CValueDisplay : public VSTGUI::CParamDisplay, public TextEntryOwner {
 public:
  using Typed = std::function<void(const std::string& text)>;

  CValueDisplay(const VSTGUI::CRect& size, VSTGUI::CBitmap* background, std::int32_t style)
      : CParamDisplay(size, background, style) {}
  CValueDisplay(const CValueDisplay&) = delete;

  // From inside it the window may be closed.
  void whenTyped(Typed other) { typed = std::move(other); }
  void setColors(const EntryColors& other) { colors = other; }
  bool isBeingEdited() const { return beingEdited; }

  void draw(VSTGUI::CDrawContext* context) override;
  VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
  bool removed(VSTGUI::CView* parent) override;

  void endEntry(bool confirm);  // from the editor; nothing where none is open
  // from the entry
  VSTGUI::CParamDisplay& entryLabel() override { return *this; }
  std::string entryText() override;
  const EntryColors& entryColors() const override { return colors; }
  void setText(const char* text) override { confirmed = text; }
  void endEditMode(bool confirm) override;

  CLASS_METHODS_NOCOPY(CValueDisplay, CParamDisplay)

 private:
  Typed typed;
  EntryColors colors;
  DoubleClick doubleClick;
  std::string opened;     // what the last entry began with
  std::string confirmed;  // and ended with
  TextEntry entry;        // running while beingEdited
  bool beingEdited = false;
};
