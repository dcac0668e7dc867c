// The label's handle on the window of its text entry.
#pragma once

#include "editor/controls/mac/textentrywindow.h"
#include "editor/controls/textentry.h"

class TextEntryMac final : public TextEntry {
 public:
  TextEntryMac() = default;
  ~TextEntryMac() override;
  TextEntryMac(const TextEntryMac&) = delete;
  TextEntryMac& operator=(const TextEntryMac&) = delete;

  bool open(COrvTextEdit* label, const TextEntryPlace& place);
  void end(bool confirm) override;

  void windowEnds() { window = nil; }  // from the window, before it tells the label

 private:
  OrvMCSystemBoxWindow* window = nil;  // releases itself
};
