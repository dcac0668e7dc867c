# The effect as LV2: trelvan.lv2/<architecture>-linux/trelvan.so with Resources/ and the Turtle
# files beside that folder. It is for Linux: hosts on a Mac have other interfaces, and the window is
# X11's.
pkg_check_modules(LV2 REQUIRED IMPORTED_TARGET lv2)

add_library(trelvan_hosted STATIC formats/record/hostedeffect.cpp)
target_link_libraries(trelvan_hosted PUBLIC trelvan_options PRIVATE trelvan_effect)

# Objects: of an archive the linker would leave out what only hosts call.
add_library(trelvan_lv2 OBJECT
  formats/lv2/lv2descriptor.cpp
  formats/lv2/lv2effect.cpp
  formats/lv2/lv2scale.cpp
  formats/lv2/lv2state.cpp
  formats/lv2/lv2uidescriptor.cpp
  formats/lv2/lv2window.cpp
  formats/lv2/linux/newchildwindow.cpp)
target_link_libraries(trelvan_lv2 PUBLIC trelvan_hosted PkgConfig::LV2 PRIVATE PkgConfig::WINDOW)

set(TRELVAN_LV2_BUNDLE ${PROJECT_BINARY_DIR}/trelvan.lv2)
set(lv2_folder ${CMAKE_SYSTEM_PROCESSOR}-linux)
add_library(TrelvanLv2 MODULE)
target_link_libraries(TrelvanLv2 PRIVATE trelvan_lv2)
set(lv2_exports ${PROJECT_SOURCE_DIR}/cmake/exports-lv2.map)
set_target_properties(TrelvanLv2 PROPERTIES
  OUTPUT_NAME trelvan PREFIX "" SUFFIX ".so"
  LIBRARY_OUTPUT_DIRECTORY ${TRELVAN_LV2_BUNDLE}/${lv2_folder}
  LINK_DEPENDS ${lv2_exports})
trelvan_link_module(TrelvanLv2 ${lv2_exports})

# Asks the effect, under preferences that nobody has set.
add_executable(lv2turtle
  formats/lv2/turtle/main.cpp
  formats/lv2/turtle/ports.cpp
  formats/lv2/turtle/presets.cpp
  formats/lv2/turtle/turtle.cpp
  formats/lv2/turtle/words.cpp)
target_link_libraries(lv2turtle PRIVATE trelvan_hosted trelvan_images PkgConfig::LV2)
set(lv2_preferences ${PROJECT_BINARY_DIR}/lv2turtle.preferences)
set(lv2_files)
foreach(name IN ITEMS manifest trelvan presets)
  list(APPEND lv2_files ${TRELVAN_LV2_BUNDLE}/${name}.ttl)
endforeach()
add_custom_command(
  OUTPUT ${lv2_files}
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${lv2_preferences}
  COMMAND ${CMAKE_COMMAND} -E env XDG_CONFIG_HOME=${lv2_preferences}
    $<TARGET_FILE:lv2turtle> ${TRELVAN_LV2_BUNDLE} ${lv2_folder}/trelvan.so --window
  DEPENDS lv2turtle
  COMMENT "Describing the LV2 plug-ins"
  VERBATIM)
# Pictures, font and manual as the other bundle has them.
add_custom_target(trelvan_lv2_bundle ALL
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${TRELVAN_RESOURCES} ${TRELVAN_LV2_BUNDLE}/Resources
  DEPENDS ${lv2_files}
  VERBATIM)
add_dependencies(trelvan_lv2_bundle trelvan_artwork trelvan_manual)
add_dependencies(TrelvanLv2 trelvan_lv2_bundle)
