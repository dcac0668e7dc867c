# macOS: the universal bundle Trelvan.vst with Info.plist, PkgInfo and resources, signed ad hoc.
set(CMAKE_XCODE_ATTRIBUTE_CLANG_ENABLE_OBJC_ARC NO)  # the sources count their references themselves

target_sources(trelvan PRIVATE
  editor/base/mac/bitmaps.cpp
  editor/base/mac/bundlelookup.cpp
  editor/base/mac/eventtime.cpp
  editor/base/mac/filedialog.cpp
  editor/base/mac/framewindow.cpp
  editor/base/mac/idletimer.mm
  editor/base/mac/idlewatch.cpp
  editor/base/mac/keyboard.cpp
  editor/base/mac/pacing.cpp
  editor/base/mac/screenscale.cpp
  editor/base/mac/toolkitsetup.cpp
  editor/controls/mac/commandkey.cpp
  editor/controls/mac/presetpopup.cpp
  editor/controls/mac/wheelright.cpp
  editor/controls/mac/textentry.mm
  editor/controls/mac/textentrywindow.mm
  platform/mac/alert.mm
  platform/mac/modulefile.cpp
  platform/mac/manualopener.cpp
  platform/mac/preferencestore.cpp
  platform/mac/xplatalert.mm
  platform/mac/xplatmutex.mm)
target_compile_options(trelvan PRIVATE $<$<COMPILE_LANGUAGE:OBJCXX>:-fno-objc-arc>)
# Format and version are part of the Objective-C classes' names.
string(REPLACE . _ class_suffix "vst24_${PROJECT_VERSION}")
target_compile_definitions(trelvan PRIVATE
  $<$<COMPILE_LANGUAGE:OBJCXX>:TRELVAN_CLASS_SUFFIX="${class_suffix}">)
target_link_libraries(trelvan
  PUBLIC "-framework Cocoa" "-framework Carbon" "-framework CoreFoundation"
  "-framework CoreGraphics")
# The toolkit makes errors of its warnings, and a newer system's headers bring new ones.
target_compile_options(vstgui PRIVATE -Wno-error)

set(TRELVAN_BUNDLE ${PROJECT_BINARY_DIR}/Trelvan.vst)
set(TRELVAN_RESOURCES ${TRELVAN_BUNDLE}/Contents/Resources)
set(package_info ${PROJECT_BINARY_DIR}/PkgInfo)
file(GENERATE OUTPUT ${package_info} CONTENT "BNDL????")  # eight bytes, no new line
add_library(Trelvan MODULE plugin/vstpluginmain.cpp ${package_info})
set_source_files_properties(${package_info} PROPERTIES MACOSX_PACKAGE_LOCATION . GENERATED TRUE)
target_link_libraries(Trelvan PRIVATE trelvan)

file(MAKE_DIRECTORY ${TRELVAN_RESOURCES})
trelvan_add_artwork(trelvan_artwork ${TRELVAN_RESOURCES})
add_dependencies(Trelvan trelvan_artwork)
list(TRANSFORM TRELVAN_PICTURES REPLACE "(.+)" "${TRELVAN_RESOURCES}/bmp\\1.png"
  OUTPUT_VARIABLE pictures)
# What makes the manual is not among Homebrew's packages: without it the bundle has no copy.
find_program(TRELVAN_RST2PDF rst2pdf DOC "Makes the manual")
find_file(TRELVAN_FONT LiberationSans-Regular.ttf
  PATHS $ENV{HOME}/Library/Fonts /Library/Fonts NO_DEFAULT_PATH
  DOC "The manual's font")
if(TRELVAN_RST2PDF AND TRELVAN_FONT)
  set(manual_file "${TRELVAN_RESOURCES}/Trelvan Operation Manual.pdf")
  trelvan_add_manual(trelvan_manual "${manual_file}")
  add_dependencies(Trelvan trelvan_manual)
else()
  set(manual_file)
endif()

# Resources and Info.plist too, which CMake writes while it generates: whatever changes in the
# bundle, it is linked and thereby signed again.
set(linked_again_for
  ${PROJECT_SOURCE_DIR}/cmake/exports.txt ${TRELVAN_BUNDLE}/Contents/Info.plist
  ${pictures} ${manual_file})
set_target_properties(Trelvan PROPERTIES
  PREFIX ""
  BUNDLE TRUE
  BUNDLE_EXTENSION vst
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}
  MACOSX_BUNDLE_INFO_PLIST ${PROJECT_SOURCE_DIR}/cmake/Info.plist.in
  MACOSX_BUNDLE_GUI_IDENTIFIER com.orv.trelvan  # the preferences' too
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
  LINK_DEPENDS "${linked_again_for}")
target_link_options(Trelvan PRIVATE
  LINKER:-exported_symbols_list,${PROJECT_SOURCE_DIR}/cmake/exports.txt LINKER:-dead_strip)

# The last step: nothing may be written into the bundle afterwards.
find_program(TRELVAN_CODESIGN codesign)
if(TRELVAN_CODESIGN)
  add_custom_command(TARGET Trelvan POST_BUILD VERBATIM
    COMMAND ${TRELVAN_CODESIGN} --force --sign - --timestamp=none ${TRELVAN_BUNDLE})
endif()
