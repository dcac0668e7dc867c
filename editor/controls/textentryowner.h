// What a text entry lies over, and where its text goes.
#pragma once

#include <string>

#include "vstgui.h"

// One of the entry's colours; not set: the label's font colour, or the system's.
struct EntryColor {
  bool set = false;
  VSTGUI::CColor color{255, 255, 255, 255};

  VSTGUI::CColor orElse(const VSTGUI::CColor& usual) const { return set ? color : usual; }
};

struct EntryColors {
  EntryColor fontEdition{};      // the text
  EntryColor fontHighlighted{};  // selected text
  EntryColor highlight{};        // behind selected text
  EntryColor caret{};
};

// A view that can be edited in place. User-interface thread.
class TextEntryOwner {
 public:
  // It gives the entry its place, font, font colour and alignment, and outlives it.
  virtual VSTGUI::CParamDisplay& entryLabel() = 0;
  virtual std::string entryText() = 0;  // what the entry begins with; UTF-8 or not
  virtual const EntryColors& entryColors() const = 0;

  // The end, in this order; a cancelled entry has no text.
  virtual void setText(const char* text) = 0;
  virtual void endEditMode(bool confirm) = 0;

 protected:
  ~TextEntryOwner() = default;
};
