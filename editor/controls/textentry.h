// The seam of in-place text entry: a field of the system's over a label.
#pragma once

#include <memory>

class COrvTextEdit;

// The field in frame coordinates, and the frame's origin on the screen, counted from the top.
struct TextEntryPlace {
  double x, y, width, height;  // pixels
  double globalX, globalY;
};

// A running entry. It ends by Return, Escape, a click elsewhere and the loss of the keyboard on its own, and then calls
// the label's setText (confirmed only) and endEditMode. Its label owns it and lets it go later, never from inside those
// calls. User-interface thread.
class TextEntry {
 public:
  virtual ~TextEntry() = default;      // a running entry goes without a word to the label
  virtual void end(bool confirm) = 0;  // nothing where it has ended already
};

// Null: the field could not be made.
std::unique_ptr<TextEntry> openTextEntry(COrvTextEdit* label, const TextEntryPlace& place);
