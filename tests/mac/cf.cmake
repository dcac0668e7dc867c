# Label mac-cf: the sources that need Core Foundation, the dynamic loader, Carbon or the toolkit's
# platform, on doubles.
add_library(mac_doubles STATIC
  compat/doubles/cfobject.cpp
  compat/doubles/cfbundle.cpp
  compat/doubles/cfpreferences.cpp
  compat/doubles/dyld.cpp
  compat/doubles/carbon.cpp)
target_include_directories(mac_doubles PUBLIC ${compat}/declarations ${compat}/doubles)
target_link_libraries(mac_doubles PUBLIC trelvan_options)

mac_test(maccftest
  SOURCES
    cf/cfobjecttest.cpp cf/preferencestorecftest.cpp cf/bundlelookuptest.cpp cf/toolkitmactest.cpp
    cf/pacingmactest.cpp cf/eventtimemactest.cpp
    ${PROJECT_SOURCE_DIR}/platform/mac/preferencestore.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/bundlelookup.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/toolkitsetup.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/pacing.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/eventtime.cpp
  LIBRARIES mac_doubles)
# The toolkit's headers only: the test stands in for the two functions that are called.
target_include_directories(maccftest SYSTEM PRIVATE
  $<TARGET_PROPERTY:trelvan_toolkit,INTERFACE_SYSTEM_INCLUDE_DIRECTORIES>)

# Two bundles with the lookup in them, loaded side by side as a host does.
set(bundles ${CMAKE_CURRENT_BINARY_DIR}/bundles)
foreach(name One "Two u")
  string(MAKE_C_IDENTIFIER "macbundle_${name}" target)
  add_library(${target} MODULE cf/bundleprobe.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/bundlelookup.cpp
    ${PROJECT_SOURCE_DIR}/platform/mac/modulefile.cpp ${PROJECT_SOURCE_DIR}/platform/modulepath.cpp)
  target_link_libraries(${target} PRIVATE mac_doubles)
  set_target_properties(${target} PROPERTIES PREFIX "" SUFFIX "" OUTPUT_NAME ${name}
    LIBRARY_OUTPUT_DIRECTORY "${bundles}/${name}.vst/Contents/MacOS")
  list(APPEND bundle_targets ${target})
endforeach()

mac_test(macpathtest
  SOURCES
    cf/modulepathtest.cpp cf/manualopenertest.cpp
    ${PROJECT_SOURCE_DIR}/platform/mac/modulefile.cpp
    ${PROJECT_SOURCE_DIR}/platform/modulepath.cpp
    ${PROJECT_SOURCE_DIR}/platform/mac/manualopener.cpp
  LIBRARIES ${CMAKE_DL_LIBS})
target_compile_definitions(macpathtest PRIVATE MAC_BUNDLES="${bundles}")
add_dependencies(macpathtest ${bundle_targets})
# Beside the program's folder, as in a bundle.
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/Resources)

mac_test(mactoolkittest
  SOURCES
    toolkit/framewindowmactest.cpp toolkit/filedialogmactest.cpp toolkit/presetpopupmactest.cpp
    compat/doubles/toolkitfactory.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/framewindow.cpp
    ${PROJECT_SOURCE_DIR}/editor/base/mac/filedialog.cpp
    ${PROJECT_SOURCE_DIR}/editor/controls/cpresetmenu.cpp
    ${PROJECT_SOURCE_DIR}/editor/controls/modalview.cpp
    ${PROJECT_SOURCE_DIR}/editor/controls/mac/presetpopup.cpp
    ${PROJECT_SOURCE_DIR}/platform/validtext.cpp
  LIBRARIES trelvan_toolkit)

mac_test(macbitmapstest
  SOURCES toolkit/bitmapsmactest.cpp ${PROJECT_SOURCE_DIR}/editor/base/mac/bitmaps.cpp
  LIBRARIES trelvan_toolkit)
target_compile_definitions(macbitmapstest PRIVATE MAC_RESOURCES="${TRELVAN_RESOURCES}/")
add_dependencies(macbitmapstest Trelvan)

# What widen has for macOS alone and that runs here, with the tests of what it is used by.
mac_test(macwidentest
  SOURCES
    cf/executablepathmactest.cpp
    cf/pluginplacesmactest.cpp
    ${PROJECT_SOURCE_DIR}/tests/host/pluginpathtest.cpp
    ${PROJECT_SOURCE_DIR}/tests/host/pluginsearchtest.cpp
    ${PROJECT_SOURCE_DIR}/host/base/nearnames.cpp
    ${PROJECT_SOURCE_DIR}/host/base/text.cpp
    ${PROJECT_SOURCE_DIR}/host/vst/pluginpath.cpp
    ${PROJECT_SOURCE_DIR}/host/vst/pluginsearch.cpp
    ${PROJECT_SOURCE_DIR}/host/vst/mac/executablepath.cpp
    ${PROJECT_SOURCE_DIR}/host/vst/mac/pluginplaces.cpp
  LIBRARIES mac_doubles)
target_compile_definitions(macwidentest PRIVATE WIDEN_ARCHITECTURE_FOLDER="MacOS")
