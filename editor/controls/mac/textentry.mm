// The label's handle on the window of its text entry. Manual reference counting.
#include "editor/controls/mac/textentrymac.h"

#include <cmath>

#include "platform/mac/manualreferences.h"

TextEntryMac::~TextEntryMac() { [window abandonEditing]; }

bool TextEntryMac::open(COrvTextEdit* label, const TextEntryPlace& place) {
  const NSRect screen = [[[NSScreen screens] objectAtIndex:0] frame];
  window = [[OrvMCSystemBoxWindow alloc] initWithContentRect:screen
                                                   styleMask:NSWindowStyleMaskBorderless
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];
  if (window == nil) return false;
  [window setVstPointer:label];
  [window setEntry:this];
  // The toolkit counts from the top of the first screen, Cocoa from its bottom.
  const double top = std::trunc(std::trunc(screen.size.height) - place.globalY);
  [window setUpTextFieldwithRect:NSMakeRect(place.x, place.y, place.width, place.height)
                      andTopLeft:NSMakePoint(place.globalX, top)];
  [window setUpFont];
  [window setUpWindow];
  [window setUpColors];
  return true;
}

void TextEntryMac::end(bool confirm) {
  if (confirm) {
    [window confirmEditing:nil];
  } else {
    [window cancelEditing:nil];
  }
}

std::unique_ptr<TextEntry> openTextEntry(COrvTextEdit* label, const TextEntryPlace& place) {
  auto entry = std::make_unique<TextEntryMac>();
  if (!entry->open(label, place)) return nullptr;
  return entry;
}
