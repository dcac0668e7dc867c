// The window of the in-place text entry, and the field in it.
#pragma once

#import <Cocoa/Cocoa.h>

#include "platform/mac/runtimename.h"

class TextEntryOwner;
@class OrvMCMyTextField;

// Borderless and transparent over the whole main screen, so that a click anywhere comes here. It
// ends once, by itself, and tells its label; closing releases it. Main thread.
TRELVAN_RUNTIME_NAME("OrvMCSystemBoxWindow")
@interface OrvMCSystemBoxWindow : NSWindow <NSTextFieldDelegate> {
  OrvMCMyTextField* textField;    // owned; nil once the entry has ended
  TextEntryOwner* vstPointer;     // not owned; null once the entry has ended
  OrvMCSystemBoxWindow** handle;  // not owned: the label's side's pointer to this window
}
- (void)setVstPointer:(TextEntryOwner*)control;
- (void)setHandle:(OrvMCSystemBoxWindow**)pointer;  // becomes nil when the window ends
// rect: the field in frame coordinates, from the top. topLeft: the frame's corner on the screen,
// from the bottom.
- (void)setUpTextFieldwithRect:(NSRect)rect andTopLeft:(NSPoint)topLeft;
- (void)setUpFont;
- (void)setUpWindow;
- (void)setUpColors;
- (void)confirmEditing:(id)sender;
- (void)cancelEditing:(id)sender;
- (void)abandonEditing;  // ends it without a word to the label
@end

// Turns shortcuts into a click outside.
TRELVAN_RUNTIME_NAME("OrvMCMyTextField")
@interface OrvMCMyTextField : NSTextField
@end
