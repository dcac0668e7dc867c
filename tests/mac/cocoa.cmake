# Label mac-cocoa: the .mm files of the plug-in on GNUstep, in a real application with real keys and
# clicks under Xvfb.
find_program(MAC_CLANGXX clang++ REQUIRED)  # gcc does not compile these files rightly
if(NOT CMAKE_OBJCXX_COMPILER)
  set(CMAKE_OBJCXX_COMPILER ${MAC_CLANGXX})
endif()
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR})
find_package(GNUstep REQUIRED)
include(${PROJECT_SOURCE_DIR}/tests/window/windowhost.cmake)  # the user's keys and mouse

add_executable(maccocoatest
  cocoa/cocoatest.mm
  cocoa/xplatmutextest.mm
  cocoa/alerttest.mm
  cocoa/xplatalerttest.mm
  cocoa/idletimertest.mm
  cocoa/plainwindowtest.mm
  cocoa/textentrymactest.mm
  cocoa/textentrywindowtest.mm
  ${PROJECT_SOURCE_DIR}/platform/mac/alert.mm
  ${PROJECT_SOURCE_DIR}/platform/mac/xplatalert.mm
  ${PROJECT_SOURCE_DIR}/platform/mac/xplatmutex.mm
  ${PROJECT_SOURCE_DIR}/editor/base/mac/idletimer.mm
  ${PROJECT_SOURCE_DIR}/editor/controls/mac/textentry.mm
  ${PROJECT_SOURCE_DIR}/editor/controls/mac/textentrywindow.mm
  ${PROJECT_SOURCE_DIR}/host/vst/mac/plainwindow.mm)
target_include_directories(maccocoatest PRIVATE cocoa ${PROJECT_SOURCE_DIR}/tests/window)
# The library brings the label and the editor's base; its own text entry and lock stay out, as
# ours come first.
target_link_libraries(maccocoatest PRIVATE trelvan GNUstep::Gui windowhost GTest::gtest)
target_compile_definitions(maccocoatest PRIVATE TRELVAN_CLASS_SUFFIX="test")
target_compile_options(maccocoatest PRIVATE
  # Some warnings are g++'s.
  "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-Wno-unknown-warning-option -Wobjc-method-access>"
  "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-include ${compat}/gnustep/cocoacompat.h>")

# With NDEBUG GNUstep hides its counts.
set_source_files_properties(cocoa/cocoatest.mm PROPERTIES COMPILE_OPTIONS -UNDEBUG)
# To exchange a method, its function is cast to IMP; newer compilers warn of that, and
# -Wextra turns it on.
set_source_files_properties(
  cocoa/textentrywindowtest.mm cocoa/xplatalerttest.mm cocoa/xplatmutextest.mm
  PROPERTIES COMPILE_OPTIONS -Wno-cast-function-type-mismatch)

# One test a suite, but for the alerts: here the second one of a process gets no keys.
# RESOURCE_LOCK: what they do takes its time, and more of it while others do the same.
foreach(filter
    XplatMutexMac.* IdleTimerMac.* TextEntryOnMac.* PlainWindowMac.*
    AlertOnMac.IsStartedAndAskedFor AlertOnMac.IsNotShownWhenItIsCancelledBefore
    AlertOnMac.MayLoseItsOwnerWhileItIsUp
    XplatAlertMac.IsAWarning XplatAlertMac.ShowsTheMessageAndOneButton
    XplatAlertMac.IsDismissedByEscape XplatAlertMac.IsDismissedByAClickOnOk
    XplatAlertMac.ShowsBytesAbove127AsRomanCharacters XplatAlertMac.TakesNoMessage)
  string(REPLACE ".*" "" name ${filter})
  add_test(NAME ${name}
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/withgnustep.sh $<TARGET_FILE:maccocoatest>)
  set_tests_properties(${name} PROPERTIES LABELS mac-cocoa TIMEOUT 120 RESOURCE_LOCK mac-display
    ENVIRONMENT "GTEST_FILTER=${filter}")
endforeach()
