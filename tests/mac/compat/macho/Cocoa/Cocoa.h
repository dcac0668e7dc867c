// Declarations of exactly the Cocoa names that the plug-in uses, written from Apple's published
// reference: types, order of arguments, constants. For the Mach-O check only; a build on macOS
// never sees this file.
#pragma once
#include <TargetConditionals.h>
#include <objc/runtime.h>
#include <stddef.h>
#include <stdint.h>

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double CGFloat;
typedef double NSTimeInterval;
typedef struct CGPoint {
  CGFloat x, y;
} CGPoint, NSPoint;
typedef struct CGSize {
  CGFloat width, height;
} CGSize, NSSize;
typedef struct CGRect {
  CGPoint origin;
  CGSize size;
} CGRect, NSRect;
static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) { return NSPoint{x, y}; }
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat w, CGFloat h) {
  return NSRect{{x, y}, {w, h}};
}

@class NSString, NSDate, NSTimer, NSButton, NSColor, NSFont, NSEvent, NSText, NSTextView, NSCell,
    NSControl, NSView, NSWindow, NSDictionary, NSNotification;
@protocol NSObject
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
- (BOOL)respondsToSelector:(SEL)selector;
@end
__attribute__((objc_root_class))
@interface NSObject<NSObject> {
  Class isa;
}
+ (instancetype)alloc;
- (instancetype)init;
- (void)dealloc;
@end

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding {
  NSASCIIStringEncoding = 1,
  NSUTF8StringEncoding = 4,
  NSMacOSRomanStringEncoding = 30
};
@interface NSString : NSObject
+ (instancetype)stringWithUTF8String:(const char*)s;
+ (instancetype)stringWithCString:(const char*)s encoding:(NSStringEncoding)e;
@property(readonly) const char* UTF8String;
@end
@interface NSArray : NSObject
- (id)objectAtIndex:(NSUInteger)i;
@property(readonly) NSUInteger count;
@end
@interface NSDictionary : NSObject
- (id)objectForKey:(id)key;
@end
@interface NSMutableDictionary : NSDictionary
+ (instancetype)dictionaryWithCapacity:(NSUInteger)n;
- (void)setObject:(id)o forKey:(id)key;
@end
@interface NSDate : NSObject
+ (instancetype)dateWithTimeIntervalSinceNow:(NSTimeInterval)s;
@property(class, readonly, copy) NSDate* distantPast;
@end
@interface NSAutoreleasePool : NSObject
- (void)drain;
@end
@protocol NSLocking
- (void)lock;
- (void)unlock;
@end
@interface NSRecursiveLock : NSObject <NSLocking>
- (BOOL)tryLock;
- (BOOL)lockBeforeDate:(NSDate*)limit;
@end
@interface NSTimer : NSObject
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)ti
                                    target:(id)t
                                  selector:(SEL)s
                                  userInfo:(id)u
                                   repeats:(BOOL)r;
- (void)invalidate;
@end
typedef NSString* NSNotificationName;
@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (void)addObserver:(id)o selector:(SEL)s name:(NSNotificationName)n object:(id)obj;
- (void)removeObserver:(id)o;
@end

enum NSAlertStyle : NSUInteger {
  NSAlertStyleWarning = 0,
  NSAlertStyleInformational = 1,
  NSAlertStyleCritical = 2
};
typedef NSInteger NSModalResponse;
@interface NSAlert : NSObject
@property(copy) NSString* messageText;
@property(copy) NSString* informativeText;
@property NSAlertStyle alertStyle;
- (NSButton*)addButtonWithTitle:(NSString*)title;
- (NSModalResponse)runModal;
@end

@interface NSScreen : NSObject
@property(class, readonly, copy) NSArray* screens;
@property(readonly) NSRect frame;
@end
@interface NSColor : NSObject
+ (NSColor*)colorWithCalibratedRed:(CGFloat)r green:(CGFloat)g blue:(CGFloat)b alpha:(CGFloat)a;
@property(class, strong, readonly) NSColor* clearColor;
@end
@interface NSFont : NSObject
+ (NSFont*)fontWithName:(NSString*)n size:(CGFloat)s;
@end
typedef NSUInteger NSEventModifierFlags;
enum : NSEventModifierFlags { NSEventModifierFlagCommand = 1 << 20 };
@interface NSEvent : NSObject
@property(readonly) NSEventModifierFlags modifierFlags;
@end
@interface NSResponder : NSObject
- (void)mouseDown:(NSEvent*)e;
- (BOOL)performKeyEquivalent:(NSEvent*)e;
@end
@interface NSView : NSResponder
- (instancetype)initWithFrame:(NSRect)f;
- (void)addSubview:(NSView*)v;
- (void)removeFromSuperview;
@end
// The centre alignment is 2 on Intel but 1 on Apple silicon (which uses the iOS values).
enum NSTextAlignment : NSInteger {
  NSTextAlignmentLeft = 0,
#if TARGET_CPU_X86_64
  NSTextAlignmentRight = 1,
  NSTextAlignmentCenter = 2,
#else
  NSTextAlignmentCenter = 1,
  NSTextAlignmentRight = 2,
#endif
};
@interface NSCell : NSObject
@property BOOL wraps;
@end
@interface NSControl : NSView
@property(getter=isEnabled) BOOL enabled;
@property(copy) NSString* stringValue;
@property(strong) NSFont* font;
@property NSTextAlignment alignment;
@property(strong) NSCell* cell;
@end
@protocol NSControlTextEditingDelegate <NSObject>
@optional
- (BOOL)control:(NSControl*)c textView:(NSTextView*)v doCommandBySelector:(SEL)s;
@end
@protocol NSTextFieldDelegate <NSControlTextEditingDelegate>
@end
@interface NSTextField : NSControl
@property(assign) id<NSTextFieldDelegate> delegate;  // weak in the SDK
@property(getter=isBezeled) BOOL bezeled;
@property BOOL drawsBackground;
@property(getter=isEditable) BOOL editable;
@property(getter=isSelectable) BOOL selectable;
@property(copy) NSColor* textColor;
@end
@interface NSText : NSView
@end
@interface NSTextView : NSText
@property(copy) NSColor* insertionPointColor;
@property(copy) NSDictionary* selectedTextAttributes;
@end
typedef NSUInteger NSWindowStyleMask;
enum : NSWindowStyleMask {
  NSWindowStyleMaskBorderless = 0,
  NSWindowStyleMaskTitled = 1 << 0,
  NSWindowStyleMaskClosable = 1 << 1,
  NSWindowStyleMaskMiniaturizable = 1 << 2
};
enum NSWindowCollectionBehavior : NSUInteger {
  NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8
};
enum NSBackingStoreType : NSUInteger { NSBackingStoreBuffered = 2 };
typedef NSInteger NSWindowLevel;
@protocol NSWindowDelegate <NSObject>
@optional
- (BOOL)windowShouldClose:(NSWindow*)sender;
@end
@interface NSWindow : NSResponder
- (instancetype)initWithContentRect:(NSRect)r
                          styleMask:(NSWindowStyleMask)m
                            backing:(NSBackingStoreType)b
                              defer:(BOOL)d;
@property(strong) NSView* contentView;
@property(assign) NSView* initialFirstResponder;  // weak in the SDK
@property(copy) NSColor* backgroundColor;
@property(getter=isOpaque) BOOL opaque;
@property BOOL ignoresMouseEvents;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
@property(assign) id<NSWindowDelegate> delegate;  // weak in the SDK
@property(copy) NSString* title;
@property(readonly) NSRect frame;
- (NSRect)frameRectForContentRect:(NSRect)r;
- (void)setFrame:(NSRect)r display:(BOOL)d;
- (void)center;
@property(readonly) BOOL canBecomeKeyWindow;
@property(readonly) BOOL canBecomeMainWindow;
- (void)makeKeyAndOrderFront:(id)sender;
- (NSText*)fieldEditor:(BOOL)create forObject:(id)o;
- (void)close;
@end

enum NSApplicationActivationPolicy : NSInteger { NSApplicationActivationPolicyRegular = 0 };
enum NSEventMask : unsigned long long { NSEventMaskAny = ~0ULL };
typedef NSString* NSRunLoopMode;
@interface NSApplication : NSResponder
@property(class, readonly, strong) NSApplication* sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)p;
- (void)activateIgnoringOtherApps:(BOOL)flag;
- (void)finishLaunching;
- (NSEvent*)nextEventMatchingMask:(NSEventMask)m
                        untilDate:(NSDate*)d
                           inMode:(NSRunLoopMode)mode
                          dequeue:(BOOL)flag;
- (void)sendEvent:(NSEvent*)e;
@end

typedef int32_t CGWindowLevel;
// an integer literal does not convert
enum CGWindowLevelKey : int32_t { kCGStatusWindowLevelKey = 9 };
extern "C" {
CGWindowLevel CGWindowLevelForKey(CGWindowLevelKey key);
extern NSNotificationName const NSWindowDidResignMainNotification;
extern NSRunLoopMode const NSDefaultRunLoopMode;
extern NSString* const NSForegroundColorAttributeName;
extern NSString* const NSBackgroundColorAttributeName;
}
