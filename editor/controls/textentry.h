// The seam of in-place text entry: a field of the system's over a label.
#pragma once

#include <memory>

class TextEntryOwner;

namespace VSTGUI {
class CParamDisplay;
}

// The field in frame coordinates, and the frame's origin on the screen, counted from the top.
struct TextEntryPlace {
  double x, y, width, height;  // pixels
  double globalX, globalY;
};

// As wide as the label, as far as that lies in its container, two points taller than the font, and
// centred on the label. It is attached.
TextEntryPlace entryPlace(const VSTGUI::CParamDisplay& label);

// One entry after the other over a label, whose owner owns it. A running one ends by Return,
// Escape, a click elsewhere and the loss of the keyboard on its own, and then calls the owner's
// setText (confirmed only) and endEditMode, from inside which it may be abandoned, but not
// destroyed. User-interface thread.
class TextEntry final {
 public:
  TextEntry();
  ~TextEntry();  // abandons
  TextEntry(const TextEntry&) = delete;
  TextEntry& operator=(const TextEntry&) = delete;

  // None runs before. False: the field could not be made.
  bool open(TextEntryOwner* owner, const TextEntryPlace& place);
  void end(bool confirm);  // nothing where it has ended already
  void abandon();          // without a word to the owner

 private:
  struct System;
  std::unique_ptr<System> system;  // of the last entry
};
