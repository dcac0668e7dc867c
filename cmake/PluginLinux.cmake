# Linux: Trelvan.vst/Contents/<architecture>-linux/Trelvan.so with Contents/Resources/ beside it.
target_sources(trelvan PRIVATE
  editor/base/linux/bitmaps.cpp
  editor/base/linux/desktopsettings.cpp
  editor/base/linux/eventtime.cpp
  editor/base/linux/filechoice.cpp
  editor/base/linux/filedialog.cpp
  editor/base/linux/focuswatch.cpp
  editor/base/linux/framewindow.cpp
  editor/base/linux/idlerunloop.cpp
  editor/base/linux/idletimer.cpp
  editor/base/linux/idlewatch.cpp
  editor/base/linux/inputfocus.cpp
  editor/base/linux/keyboard.cpp
  editor/base/linux/keyboardmap.cpp
  editor/base/linux/openfiles.cpp
  editor/base/linux/ownconnection.cpp
  editor/base/linux/ownwindow.cpp
  editor/base/linux/pacing.cpp
  editor/base/linux/portalchoice.cpp
  editor/base/linux/programchoice.cpp
  editor/base/linux/scaledbitmap.cpp
  editor/base/linux/screenscale.cpp
  editor/base/linux/servername.cpp
  editor/base/linux/sharedrunloop.cpp
  editor/base/linux/toolkitsetup.cpp
  editor/base/linux/xsettings.cpp
  editor/base/linux/windowinput.cpp
  editor/controls/linux/commandkey.cpp
  editor/controls/linux/editedtext.cpp
  editor/controls/linux/presetpopup.cpp
  editor/controls/linux/presetpopuplayout.cpp
  editor/controls/linux/wheelright.cpp
  editor/controls/linux/textentry.cpp
  editor/controls/linux/textfield.cpp
  platform/linux/alert.cpp
  platform/linux/childprogram.cpp
  platform/linux/desktopdialog.cpp
  platform/linux/orphanguard.cpp
  platform/linux/programstart.cpp
  platform/linux/manualopener.cpp
  platform/linux/modulefile.cpp
  platform/linux/portalrequest.cpp
  platform/linux/preferencestore.cpp
  platform/linux/sessionbus.cpp
  platform/linux/sharedfile.cpp
  platform/linux/xplatalert.cpp
  platform/linux/xplatmutex.cpp)

find_package(PkgConfig REQUIRED)
# Preferences are a key file of this library, and the desktop portal is talked to with it; the
# toolkit brings it anyway.
pkg_check_modules(GLIB REQUIRED IMPORTED_TARGET glib-2.0 gio-2.0)
target_link_libraries(trelvan PRIVATE PkgConfig::GLIB)
# The toolkit's own headers for Linux name the drawing library, the window is opened on a
# connection of our own, and typed keys are looked up in the keyboard's map.
pkg_check_modules(WINDOW REQUIRED IMPORTED_TARGET cairo xcb xkbcommon xkbcommon-x11)
target_link_libraries(trelvan PRIVATE PkgConfig::WINDOW ${CMAKE_DL_LIBS})

# The toolkit asks for debug information always, which would be five sixths of the module.
target_compile_options(vstgui PRIVATE $<$<CONFIG:Release,Emulated>:-g0>)
# What all of its sources include is read once, which takes three tenths off the time they take.
target_precompile_headers(vstgui PRIVATE ${toolkit_source}/vstgui/lib/cframe.h)

# trelvan_link_module(<target> <map>): exports exactly what the map names. nodelete: the toolkit's
# libraries cannot be unloaded and registered a second time, so the module stays in the process when
# the host lets go of it, and a second load finds it again.
function(trelvan_link_module target map)
  target_link_options(${target} PRIVATE
    LINKER:--exclude-libs,ALL LINKER:--version-script=${map} LINKER:-z,nodelete LINKER:--as-needed)
  if(NOT TRELVAN_SANITIZE)
    # A sanitizer's runtime is the host program's.
    target_link_options(${target} PRIVATE LINKER:--no-undefined)
  endif()
endfunction()

set(TRELVAN_BUNDLE ${PROJECT_BINARY_DIR}/Trelvan.vst)
set(TRELVAN_RESOURCES ${TRELVAN_BUNDLE}/Contents/Resources)
add_library(Trelvan MODULE plugin/vstpluginmain.cpp)
target_link_libraries(Trelvan PRIVATE trelvan)
set_target_properties(Trelvan PROPERTIES
  PREFIX "" SUFFIX ".so"
  LIBRARY_OUTPUT_DIRECTORY ${TRELVAN_BUNDLE}/Contents/${CMAKE_SYSTEM_PROCESSOR}-linux
  LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
trelvan_link_module(Trelvan ${PROJECT_SOURCE_DIR}/cmake/exports.map)
file(MAKE_DIRECTORY ${TRELVAN_RESOURCES})
trelvan_add_artwork(trelvan_artwork ${TRELVAN_RESOURCES})
include(EmbeddedPictures)
trelvan_embed_pictures(trelvan_pictures ${TRELVAN_RESOURCES})
add_dependencies(trelvan_pictures trelvan_artwork)
target_link_libraries(trelvan PRIVATE trelvan_pictures)
trelvan_add_manual(trelvan_manual "${TRELVAN_RESOURCES}/Trelvan Operation Manual.pdf")
add_dependencies(Trelvan trelvan_artwork trelvan_manual)
