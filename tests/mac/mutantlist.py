"""The faults that mutants.py plants."""
from typing import NamedTuple


class Mutant(NamedTuple):
    what: str
    file: str
    old: str
    new: str
    kind: str  # which program finds it
    tests: str = "*"  # its tests, a GoogleTest filter
    hidden: str = ""  # why it cannot be seen on Linux


def entry(what, old, new, file="editor/controls/mac/textentrywindow.mm"):
    return Mutant(what, file, old, new, "cocoa", "TextEntryOnMac.*")


def timer(what, old, new):
    return Mutant(what, "editor/base/mac/idletimer.mm", old, new, "cocoa", "IdleTimerMac.*")


def lock(what, old, new):
    return Mutant(what, "platform/mac/xplatmutex.mm", old, new, "cocoa", "XplatMutexMac.*")


def alert(what, old, new, tests):
    return Mutant(what, "platform/mac/xplatalert.mm", old, new, "cocoa", "XplatAlertMac." + tests)


def cf(what, old, new, file="platform/mac/preferencestore.cpp"):
    return Mutant(what, file, old, new, "cf")


def bundle(what, old, new):
    return cf(what, old, new, "editor/base/mac/bundlelookup.cpp")


def dialog(what, old, new):
    return Mutant(what, "editor/base/mac/filedialog.cpp", old, new, "toolkit")


def window(what, old, new):
    return Mutant(what, "editor/base/mac/framewindow.cpp", old, new, "toolkit")


def shown(what, old, new):
    return Mutant(what, "host/vst/mac/plainwindow.mm", old, new, "cocoa", "PlainWindowMac.*")


def executable(what, old, new):
    return Mutant(what, "host/vst/mac/executablepath.cpp", old, new, "widen")


def macho(what, old, new, file="editor/controls/mac/textentry.mm"):
    return Mutant(what, file, old, new, "macho")


MUTANTS = [
    # ---- text entry: what ends it ----
    entry("no observer", "i < 2; ++i", "i < 0; ++i"),
    entry("one observer", "i < 2; ++i", "i < 1; ++i"),
    entry("the observer stays",
          "  [[NSNotificationCenter defaultCenter] removeObserver:self];\n", ""),
    entry("Escape confirms", "@selector(cancelOperation:))) {\n    [self cancelEditing:nil];",
          "@selector(cancelOperation:))) {\n    [self confirmEditing:nil];"),
    entry("Return cancels", "@selector(insertNewline:))) {\n    [self confirmEditing:nil];",
          "@selector(insertNewline:))) {\n    [self cancelEditing:nil];"),
    entry("selectors compared as pointers", "sel_isEqual(command, @selector(insertNewline:))",
          "command == @selector(insertNewline:)"),
    entry("Command keys do not confirm",
          "([event modifierFlags] & NSEventModifierFlagCommand) == 0", "true"),
    entry("every key equivalent confirms",
          "([event modifierFlags] & NSEventModifierFlagCommand) == 0", "false"),
    entry("a click elsewhere does nothing", "  [self confirmEditing:event];", "  (void)event;"),
    entry("the window takes no keyboard", "(BOOL)canBecomeKeyWindow {\n  return YES;",
          "(BOOL)canBecomeKeyWindow {\n  return NO;"),
    entry("the window is never main", "(BOOL)canBecomeMainWindow {\n  return YES;",
          "(BOOL)canBecomeMainWindow {\n  return NO;"),
    entry("closing leaves the label in editing",
          "  if (vstPointer != nullptr) {\n    [self confirmEditing:nil];",
          "  if (false) {\n    [self confirmEditing:nil];"),
    entry("it ends twice", "  vstPointer = nullptr;\n  [[self retain]", "  [[self retain]"),
    entry("cancelling tells the listener", "control->endEditMode(false);",
          "control->endEditMode(true);"),
    entry("confirming does not tell the listener", "control->endEditMode(true);",
          "control->endEditMode(false);"),
    entry("the text is not handed over",
          "    control->setText([[textField stringValue] UTF8String]);\n", ""),
    entry("end(false) confirms", "[system->window cancelEditing:nil];",
          "[system->window confirmEditing:nil];", "editor/controls/mac/textentry.mm"),
    entry("going away confirms", "[window abandonEditing];", "[window confirmEditing:nil];",
          "editor/controls/mac/textentry.mm"),
    # ---- text entry: lives ----
    entry("the field is leaked", "  [textField autorelease];\n", ""),
    entry("the field is released twice", "  [textField autorelease];\n",
          "  [textField autorelease];\n  [textField release];\n"),
    entry("the field goes at once", "  [textField autorelease];\n", "  [textField release];\n")
    ._replace(hidden="GNUstep holds the field to the pool's end itself"),
    entry("the window is leaked", "setReleasedWhenClosed:YES", "setReleasedWhenClosed:NO"),
    entry("the window goes at once", "  [[self retain] autorelease];\n", ""),
    entry("the window is retained once more", "  [[self retain] autorelease];\n",
          "  [self retain];\n"),
    entry("the window stays open", "  [super close];  // releases the window\n", ""),
    entry("the handle does not hear of the end", "  *handle = nil;\n", ""),
    entry("the label is not held",
          "    const auto kept = VSTGUI::shared(&control->entryLabel());\n    control->setText",
          "    control->setText"),
    # ---- text entry: text, place, looks ----
    entry("wrong encoding", "stringWithUTF8String:validText(text).c_str()]",
          "stringWithCString:validText(text).c_str() "
          "encoding:NSISOLatin1StringEncoding]"),
    entry("a cut character is not left out", "validText(text).c_str()", "text.c_str()"),
    entry("the place is not turned over", "topLeft.y - rect.origin.y", "topLeft.y + rect.origin.y"),
    entry("the height is not subtracted", "topLeft.y - rect.origin.y - rect.size.height",
          "topLeft.y - rect.origin.y"),
    entry("the place is not truncated",
          "std::trunc(std::trunc(screen.size.height) - place.globalY)",
          "screen.size.height - place.globalY", "editor/controls/mac/textentry.mm"),
    entry("the text is flush right", "NSTextAlignmentCenter", "NSTextAlignmentRight"),
    entry("the text wraps", "setWraps:NO", "setWraps:YES"),
    entry("the label's font is ignored", "[textField setFont:cocoaFont]",
          "[textField setFont:nil]"),
    entry("the edition colour is ignored",
          "edition.set ? edition.color : label.getFontColor()",
          "edition.set ? label.getFontColor() : label.getFontColor()"),
    entry("alpha is ignored", "alpha:color.alpha / 255.0", "alpha:1"),
    entry("the caret's colour is ignored", "if (caret.set)", "if (false)"),
    entry("the selection's colours are swapped", "text.set ? cocoaColor(text.color)",
          "text.set ? cocoaColor(back.color)"),
    entry("the window is opaque", "setOpaque:NO", "setOpaque:YES"),
    entry("the window's level is not set",
          "  [self setLevel:CGWindowLevelForKey(kCGStatusWindowLevelKey)];\n", ""),
    entry("it is shown before it has its level",
          "  [self setLevel:CGWindowLevelForKey(kCGStatusWindowLevelKey)];\n",
          "  [self makeKeyAndOrderFront:nil];\n"
          "  [self setLevel:CGWindowLevelForKey(kCGStatusWindowLevelKey)];\n"),
    entry("it does not show over full screens",
          "  [self setCollectionBehavior:NSWindowCollectionBehaviorFullScreenAuxiliary];\n", ""),
    entry("any window's resigning ends it", "object:self];", "object:nil];"),
    entry("the field is not the first responder",
          "  [self setInitialFirstResponder:textField];\n", ""),
    # ---- timer ----
    timer("the timer runs on", "    [timer invalidate];\n", ""),
    timer("a late tick reaches the editor", "    [listener setListenerEditor:nullptr];", "    //"),
    timer("the timer is leaked", "    [timer release];\n", ""),
    timer("the timer is released twice", "    [timer release];\n",
          "    [timer release];\n    [timer release];\n"),
    timer("the listener is leaked", "    [listener release];\n", ""),
    timer("the owner is leaked", "[static_cast<Orv_Tlvn_Timer*>(timer) release];", "(void)timer;"),
    timer("the interval is ten times as long", "interval / 1000.0", "interval / 100.0"),
    timer("the interval is in seconds", "interval / 1000.0", "interval / 1.0"),
    timer("it fires once", "repeats:YES", "repeats:NO"),
    timer("no editor crashes", "if (editor != nullptr) editor->idle();", "editor->idle();"),
    # ---- lock ----
    lock("the lock is leaked", "[static_cast<NSRecursiveLock*>(mutex) release];", "(void)mutex;"),
    lock("the deadline is leaked", "[pool release];", "(void)pool;"),
    lock("no waiting without limit", "    [lock lock];\n", "    [lock tryLock];\n"),
    lock("no waiting with a limit", "  [lock lockBeforeDate:deadline];",
         "  [lock tryLock]; (void)deadline;"),
    lock("unlocking does nothing", "[static_cast<NSRecursiveLock*>(mutex) unlock];",
         "(void)mutex;"),
    lock("it waits ten times as long", "/ 1000.0", "/ 100.0"),
    # ---- alert ----
    alert("another style", "NSAlertStyleWarning", "static_cast<NSAlertStyle>(2)", "IsAWarning"),
    alert("no message", "[alert setMessageText:textOf(message)];", "(void)textOf(message);",
          "ShowsTheMessageAndOneButton"),
    alert("a second button", "  [alert setInformativeText",
          "  [alert addButtonWithTitle:@\"Cancel\"];\n  [alert setInformativeText",
          "ShowsTheMessageAndOneButton"),
    alert("the alert is leaked", "  [alert release];\n", "", "TakesNoMessage"),
    alert("it does not wait", "  [alert runModal];\n", "", "ShowsTheMessageAndOneButton"),
    alert("bytes above 127 show nothing", "NSMacOSRomanStringEncoding", "NSASCIIStringEncoding",
          "ShowsBytesAbove127AsRomanCharacters"),
    # ---- Core Foundation ----
    cf("one CFRelease too many", "{ CFRelease(object); }",
       "{ CFRelease(object); CFRelease(object); }", "platform/mac/cfowned.h"),
    cf("one CFRelease too few", "{ CFRelease(object); }", "{ (void)object; }",
       "platform/mac/cfowned.h"),
    cf("wrong encoding for storing",
       "CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingMacRoman)",
       "CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingISOLatin1)"),
    cf("wrong encoding for reading",
       "static_cast<CFIndex>(size), kCFStringEncodingMacRoman);",
       "static_cast<CFIndex>(size), kCFStringEncodingUTF8);"),
    cf("no synchronisation", "!CFPreferencesAppSynchronize(system->application.get())", "false"),
    cf("a refused string spoils the buffer", "  if (!fits) return false;\n",
       "  if (!fits) {\n    text.copy(buffer, size);\n    return false;\n  }\n"),
    cf("any type counts as a string",
       "value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()", "value == nullptr"),
    cf("any type counts as bytes",
       "value == nullptr || CFGetTypeID(value) != CFDataGetTypeID()", "value == nullptr"),
    cf("a removed key stays", "  system->changes[key] = nullptr;\n", "  (void)key;\n"),
    cf("the person's own preferences in tests", "others != nullptr &&", "false &&"),
    cf("an empty change writes", "  if (system->changes.empty()) return true;\n", ""),
    cf("changes are forgotten when the disk refuses", "  if (!CFPreferences",
       "  if (system->changes.clear(), !CFPreferences"),
    bundle("path cut once too often", "kLevels = 3", "kLevels = 4"),
    bundle("path cut too seldom", "kLevels = 3", "kLevels = 2"),
    bundle("the host's image is not skipped", "i = 1; i < count", "i = 0; i < count"),
    bundle("the last image is not looked at", "i < count; ++i", "i + 1 < count; ++i"),
    bundle("another plug-in's image is taken", "== own)", "!= own)"),
    bundle("a missing name crashes", "  if (name == nullptr) return;\n", ""),
    bundle("a bundle that is gone keeps its pointer", "gBundleRef = url ?",
           "if (url) gBundleRef = url ?"),
    bundle("nothing found is released", "if (gBundleRef != nullptr) CFRelease", "CFRelease"),
    bundle("the bundle is not released", "if (gBundleRef != nullptr) CFRelease(gBundleRef);", ""),
    cf("the bundle goes before the toolkit", "  VSTGUI::exit();\n  ExitMachOLibrary();",
       "  ExitMachOLibrary();\n  VSTGUI::exit();", "editor/base/mac/toolkitsetup.cpp"),
    cf("the toolkit gets no bundle", "VSTGUI::init(gBundleRef)", "VSTGUI::init(nullptr)",
       "editor/base/mac/toolkitsetup.cpp"),
    Mutant("the manual's path is not quoted", "platform/mac/manualopener.cpp",
           '"~/\\"" + relative + "\\""', '"~/" + relative', "path"),
    Mutant("the bundle's manual is not tried", "platform/mac/manualopener.cpp",
           "!resources.empty() &&", "false &&", "path"),
    Mutant("the folder's slash is lost", "platform/paths.h", "path.substr(0, path.rfind('/') + 1)",
           "path.substr(0, path.rfind('/'))", "path"),
    Mutant("a link to the module is not followed", "platform/mac/modulefile.cpp",
           "if (realpath(info.dli_fname, path) == nullptr) path[0] = 0;",
           "__builtin_strcpy(path, info.dli_fname);", "path"),
    # ---- widen ----
    executable("a link to the program is not followed",
               "std::filesystem::canonical(path.c_str(), ignored)",
               "std::filesystem::path(path.c_str())"),
    executable("a long path is not asked for", "  _NSGetExecutablePath(nullptr, &size);",
               "  size = 1024;"),
    Mutant("binaries have an ending", "host/vst/mac/pluginplaces.cpp", "  return {};",
           "  return \".so\";", "widen"),
    shown("the user's closing takes the window away", "  return NO;", "  return YES;"),
    shown("the user's closing is not heard", "  isClosing = YES;\n", ""),
    shown("the title bar moves", "now.origin.y + now.size.height - next.size.height",
          "now.origin.y"),
    shown("the effect gets no events", "[application sendEvent:event];", "(void)event;"),
    shown("widen's window is leaked", "    [window release];\n", ""),
    # ---- the toolkit's frame and selector ----
    Mutant("the list never opens", "editor/controls/mac/presetpopup.cpp", "  menu->popup();",
           "  (void)menu;", "toolkit"),
    window("closing does not wait for the event's end",
           "if (!closing->doAfterEventProcessing([closing] { closing->close(); })) closing->close();",
           "closing->close();"),
    window("closes twice", "const std::unique_ptr<System> ending = std::move(system);",
           "const std::unique_ptr<System>& ending = system;"),
    window("wrong kind of view", "PlatformType::kNSView", "PlatformType::kUIView"),
    window("a frame that did not open is kept", "return false;\n  system = std::move(opening);",
           "{ system = std::move(opening); return false; }\n  system = std::move(opening);"),
    dialog("several files", "setAllowMultiFileSelection(false)",
           "setAllowMultiFileSelection(true)"),
    dialog("not modal", "selector->runModal();",
           "selector->run([](VSTGUI::CNewFileSelector*) {});"),
    dialog("comes up though cancelled", "    if (!wanted) return;\n", ""),
    dialog("the panel stays up", "    if (selector) selector->cancel();\n", ""),
    dialog("names that are no text", "request.save && isText(request.proposedName)",
           "request.save"),
    dialog("runs inside start", "VSTGUI::Call::later([panel = system->panel] { panel->run(); });",
           "system->panel->run();"),
    # ---- Mach-O ----
    macho("an import that is not allowed", "#include <cmath>\n",
          "#include <cmath>\nextern \"C\" int getpid();\nint process() { return getpid(); }\n"),
    macho("a selector that is misspelt", "[window setUpColors]", "[window setupColors]"),
    macho("a name of GNUstep's", "styleMask:NSWindowStyleMaskBorderless",
          "styleMask:NSBorderlessWindowMask"),
    macho("what the oldest system has not", "#include <cmath>\n",
          "#include <cmath>\n#include <filesystem>\n"
          "bool there() { return std::filesystem::exists(\"/\"); }\n"),
    macho("a source that is left out", "  editor/controls/mac/textentrywindow.mm\n", "",
          "cmake/PluginMac.cmake"),
    macho("more than one export",
          "LINKER:-exported_symbols_list,${PROJECT_SOURCE_DIR}/cmake/exports.txt",
          "LINKER:-exported_symbol,_VSTPluginMain LINKER:-exported_symbol,_main_macho "
          "LINKER:-exported_symbol,__Z*",
          "cmake/PluginMac.cmake"),
    macho("no PkgInfo",
          "set_source_files_properties(${package_info} PROPERTIES MACOSX_PACKAGE_LOCATION . GENERATED TRUE)",
          "set_source_files_properties(${package_info} PROPERTIES GENERATED TRUE)",
          "cmake/PluginMac.cmake"),
    macho("one picture has no second size", "MAKE_DIRECTORY ${TRELVAN_RESOURCES})",
          "WRITE ${TRELVAN_RESOURCES}/bmp00001.png x)", "cmake/PluginMac.cmake"),
    macho("the preferences' identifier is not Info.plist's", "com.orv.trelvan", "com.orv.trelvann",
          "presetsystem/bar/storedpresets.cpp"),
    macho("classes of all versions have one name", 'name "_" TRELVAN_CLASS_SUFFIX', "name",
          "platform/mac/runtimename.h"),
    macho("Cocoa is not linked", '"-framework Cocoa" ', "", "cmake/PluginMac.cmake"),
    macho("Carbon is not linked", '"-framework Carbon" ', "", "cmake/PluginMac.cmake"),
    macho("widen calls what Linux alone has", "#include <cmath>\n", "#include <cmath>\n"
          "#include <unistd.h>\nint process(int* ends) { return pipe2(ends, 0); }\n",
          "host/base/text.cpp"),
    macho("widen calls what its oldest system has not", "#include <cmath>\n",
          "#include <charconv>\n#include <cmath>\nchar* process(char* to, double value) {\n"
          "  return std::to_chars(to, to + 9, value).ptr;\n}\n", "host/base/text.cpp"),
    # ---- the build ----
    Mutant("the bundle is never signed", "cmake/PluginMac.cmake",
           "    COMMAND ${TRELVAN_CODESIGN} --force --sign - --timestamp=none ${TRELVAN_BUNDLE})",
           "    COMMAND ${CMAKE_COMMAND} -E true)", "sign"),
    Mutant("something is written into it afterwards", "cmake/PluginMac.cmake",
           "--timestamp=none ${TRELVAN_BUNDLE})",
           "--timestamp=none ${TRELVAN_BUNDLE}\n"
           "    COMMAND ${CMAKE_COMMAND} -E touch ${TRELVAN_RESOURCES}/late)", "sign"),
    Mutant("the toolkit's classes are laid out otherwise here", "cmake/Toolkit.cmake",
           "VSTGUI_OPENGL_SUPPORT=1", "VSTGUI_OPENGL_SUPPORT=0", "configure"),
]
