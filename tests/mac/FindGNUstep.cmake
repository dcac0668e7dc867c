# GNUstep on gcc's Objective-C runtime, for sources that clang compiles: target GNUstep::Gui.
find_path(GNUstep_INCLUDE_DIR Cocoa/Cocoa.h PATH_SUFFIXES GNUstep)
find_library(GNUstep_GUI_LIBRARY gnustep-gui)
find_library(GNUstep_BASE_LIBRARY gnustep-base)
find_program(GNUstep_GCC gcc)
if(GNUstep_GCC)
  execute_process(COMMAND ${GNUstep_GCC} -print-file-name=include
    OUTPUT_VARIABLE gnustep_gcc_include OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND ${GNUstep_GCC} -print-file-name=libobjc.so
    OUTPUT_VARIABLE GNUstep_OBJC_LIBRARY OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()
find_path(GNUstep_OBJC_INCLUDE_DIR objc/objc.h HINTS ${gnustep_gcc_include} NO_DEFAULT_PATH)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GNUstep
  REQUIRED_VARS
    GNUstep_INCLUDE_DIR GNUstep_GUI_LIBRARY GNUstep_BASE_LIBRARY GNUstep_OBJC_INCLUDE_DIR
    GNUstep_OBJC_LIBRARY
  REASON_FAILURE_MESSAGE "Debian: tools/dependencies.sh test installs it.")

if(GNUstep_FOUND AND NOT TARGET GNUstep::Gui)
  add_library(GNUstep::Gui INTERFACE IMPORTED)
  target_compile_definitions(GNUstep::Gui INTERFACE
    GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_GUI_LIBRARY=1 GNU_RUNTIME=1 _NATIVE_OBJC_EXCEPTIONS)
  target_include_directories(GNUstep::Gui SYSTEM INTERFACE ${GNUstep_INCLUDE_DIR})
  # The runtime's headers lie among gcc's own: they are searched last, so that clang's come first.
  target_compile_options(GNUstep::Gui INTERFACE
    "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-fobjc-runtime=gcc -fexceptions -fobjc-exceptions>"
    "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-fconstant-string-class=NSConstantString>"
    "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-idirafter ${GNUstep_OBJC_INCLUDE_DIR}>")
  target_link_libraries(GNUstep::Gui INTERFACE
    ${GNUstep_GUI_LIBRARY} ${GNUstep_BASE_LIBRARY} ${GNUstep_OBJC_LIBRARY} m)
endif()
