// The label's handle on the window of its text entry. Manual reference counting.
#include "editor/controls/textentry.h"

#include <cmath>

#include "editor/controls/mac/textentrywindow.h"
#include "platform/mac/manualreferences.h"

struct TextEntry::System {
  System() = default;
  ~System() { [window abandonEditing]; }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  OrvMCSystemBoxWindow* window = nil;  // releases itself, and puts nil here when it ends
};

TextEntry::TextEntry() = default;
TextEntry::~TextEntry() = default;

bool TextEntry::open(TextEntryOwner* owner, const TextEntryPlace& place) {
  auto opening = std::make_unique<System>();
  const NSRect screen = [[[NSScreen screens] objectAtIndex:0] frame];
  OrvMCSystemBoxWindow*& window = opening->window;
  window = [[OrvMCSystemBoxWindow alloc] initWithContentRect:screen
                                                   styleMask:NSWindowStyleMaskBorderless
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];
  if (window == nil) return false;
  [window setVstPointer:owner];
  [window setHandle:&window];
  // The toolkit counts from the top of the first screen, Cocoa from its bottom.
  const double top = std::trunc(std::trunc(screen.size.height) - place.globalY);
  [window setUpTextFieldwithRect:NSMakeRect(place.x, place.y, place.width, place.height)
                      andTopLeft:NSMakePoint(place.globalX, top)];
  [window setUpFont];
  [window setUpWindow];
  [window setUpColors];
  system = std::move(opening);
  return true;
}

void TextEntry::end(bool confirm) {
  if (system == nullptr) return;
  if (confirm) {
    [system->window confirmEditing:nil];
  } else {
    [system->window cancelEditing:nil];
  }
}

void TextEntry::abandon() { system.reset(); }
