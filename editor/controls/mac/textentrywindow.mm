// The window of the in-place text entry, on Cocoa. Manual reference counting.
#import "editor/controls/mac/textentrywindow.h"

#import <objc/runtime.h>

#include "editor/controls/textentryowner.h"
#include "platform/mac/manualreferences.h"
#include "platform/validtext.h"
#include "vstgui.h"

namespace {

NSColor* cocoaColor(const VSTGUI::CColor& color) {
  return [NSColor colorWithCalibratedRed:color.red / 255.0
                                   green:color.green / 255.0
                                    blue:color.blue / 255.0
                                   alpha:color.alpha / 255.0];
}

// Never nil, which a field does not take: a name that was cut to its 24 bytes may end
// within a character.
NSString* cocoaText(const std::string& text) {
  return [NSString stringWithUTF8String:validText(text).c_str()];
}

}  // namespace

@implementation OrvMCMyTextField

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  if (([event modifierFlags] & NSEventModifierFlagCommand) == 0) return NO;
  [static_cast<NSWindow*>([self delegate]) mouseDown:nil];
  return YES;
}

@end

@implementation OrvMCSystemBoxWindow

- (void)setVstPointer:(TextEntryOwner*)control {
  vstPointer = control;
}

- (void)setHandle:(OrvMCSystemBoxWindow**)pointer {
  handle = pointer;
}

- (void)setUpTextFieldwithRect:(NSRect)rect andTopLeft:(NSPoint)topLeft {
  const NSRect frame =
      NSMakeRect(topLeft.x + rect.origin.x, topLeft.y - rect.origin.y - rect.size.height,
                 rect.size.width, rect.size.height);
  textField = [[OrvMCMyTextField alloc] initWithFrame:frame];
  [textField setBezeled:NO];
  [textField setDrawsBackground:NO];
  [textField setEditable:YES];
  [textField setSelectable:YES];
  [textField setEnabled:YES];
  [textField setDelegate:self];
  // by their names: the numbers of centre and right differ by processor
  const bool centred = vstPointer->entryLabel().getHoriAlign() == VSTGUI::kCenterText;
  [textField setAlignment:centred ? NSTextAlignmentCenter : NSTextAlignmentLeft];
  [textField setStringValue:cocoaText(vstPointer->entryText())];
  [[textField cell] setWraps:NO];
  [[self contentView] addSubview:textField];
}

- (void)setUpFont {
  const VSTGUI::CParamDisplay& label = vstPointer->entryLabel();
  const VSTGUI::CFontRef font = label.getFont();
  NSFont* cocoaFont = [NSFont fontWithName:cocoaText(font->getName().getString())
                                      size:font->getSize()];
  // a font that is missing leaves the field its own
  if (cocoaFont != nil) [textField setFont:cocoaFont];
  const EntryColor& edition = vstPointer->entryColors().fontEdition;
  [textField setTextColor:cocoaColor(edition.set ? edition.color : label.getFontColor())];
}

- (void)setUpWindow {
  [self setBackgroundColor:[NSColor clearColor]];
  [self setOpaque:NO];
  [self setIgnoresMouseEvents:NO];
  [self setInitialFirstResponder:textField];
  // Before it is shown: over a host in full screen it would come up in another space otherwise.
  [self setLevel:CGWindowLevelForKey(kCGStatusWindowLevelKey)];
  [self setCollectionBehavior:NSWindowCollectionBehaviorFullScreenAuxiliary];
  [self makeKeyAndOrderFront:nil];
  [self setReleasedWhenClosed:YES];
  // Twice on purpose; one removeObserver: takes both away.
  for (int i = 0; i < 2; ++i) {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(confirmEditing:)
                                                 name:NSWindowDidResignMainNotification
                                               object:self];
  }
}

- (void)setUpColors {
  NSTextView* editor = static_cast<NSTextView*>([self fieldEditor:YES forObject:textField]);
  const EntryColor& caret = vstPointer->entryColors().caret;
  if (caret.set) [editor setInsertionPointColor:cocoaColor(caret.color)];
  const EntryColor& text = vstPointer->entryColors().fontHighlighted;
  const EntryColor& back = vstPointer->entryColors().highlight;
  if (!text.set && !back.set) return;
  NSDictionary* now = [editor selectedTextAttributes];
  id foreground =
      text.set ? cocoaColor(text.color) : [now objectForKey:NSForegroundColorAttributeName];
  id background =
      back.set ? cocoaColor(back.color) : [now objectForKey:NSBackgroundColorAttributeName];
  NSMutableDictionary* attributes = [NSMutableDictionary dictionaryWithCapacity:2];
  if (foreground != nil) [attributes setObject:foreground forKey:NSForegroundColorAttributeName];
  if (background != nil) [attributes setObject:background forKey:NSBackgroundColorAttributeName];
  [editor setSelectedTextAttributes:attributes];
}

// A borderless window would take no keyboard.
- (BOOL)canBecomeKeyWindow {
  return YES;
}

- (BOOL)canBecomeMainWindow {
  return YES;
}

- (void)mouseDown:(NSEvent*)event {
  [self confirmEditing:event];
}

- (BOOL)control:(NSControl*)control
               textView:(NSTextView*)textView
    doCommandBySelector:(SEL)command {
  (void)control;
  (void)textView;
  if (sel_isEqual(command, @selector(insertNewline:))) {
    [self confirmEditing:nil];
    return YES;
  }
  if (sel_isEqual(command, @selector(cancelOperation:))) {
    [self cancelEditing:nil];
    return YES;
  }
  return NO;
}

// What all endings begin with. Null where it has ended already: closing can make the window resign
// once more, and the label's listener may do anything. The system still uses the window, its field
// editor and the field in the callback that ends them, so they stay until the pool goes.
- (TextEntryOwner*)takeVstPointer {
  TextEntryOwner* control = vstPointer;
  if (control == nullptr) return nullptr;
  vstPointer = nullptr;
  [[self retain] autorelease];
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  *handle = nil;
  handle = nullptr;
  return control;
}

- (void)takeDown {
  [textField setDelegate:nil];
  [textField removeFromSuperview];
  [textField autorelease];
  textField = nil;
  [super close];  // releases the window
}

- (void)confirmEditing:(id)sender {
  (void)sender;
  // its listener may close the editor
  if (TextEntryOwner* control = [self takeVstPointer]) {
    const auto kept = VSTGUI::shared(&control->entryLabel());
    control->setText([[textField stringValue] UTF8String]);
    control->endEditMode(true);
    [self takeDown];
  }
}

- (void)cancelEditing:(id)sender {
  (void)sender;
  if (TextEntryOwner* control = [self takeVstPointer]) {
    const auto kept = VSTGUI::shared(&control->entryLabel());
    control->endEditMode(false);
    [self takeDown];
  }
}

- (void)abandonEditing {
  if ([self takeVstPointer] != nullptr) [self takeDown];
}

// Whoever closes the window ends the entry in it.
- (void)close {
  if (vstPointer != nullptr) {
    [self confirmEditing:nil];
  } else {
    [super close];
  }
}

@end
