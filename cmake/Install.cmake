# What an installation has: each file, its place, and its component, which is also a package of its
# own (Packages.cmake). How files are put: PutFiles.cmake.
#
# Another format of the plug-in is one more component: its trelvan_install... line among those
# below, its name in TRELVAN_COMPONENTS, its words in Packages.cmake, and its targets in
# Hardening.cmake.
set(TRELVAN_COMPONENTS plugin widen doc)
if(TARGET TrelvanLv2)
  list(APPEND TRELVAN_COMPONENTS lv2)
endif()

install(CODE "include(\"${PROJECT_SOURCE_DIR}/cmake/PutFiles.cmake\")" ALL_COMPONENTS)
if(NOT APPLE)
  # There a bundle is signed as it is.
  install(CODE "set(TRELVAN_STRIP \"${CMAKE_STRIP}\")" ALL_COMPONENTS)
endif()

# trelvan_install(<component> <folder> <file>... [OPTIONS <option>...]): the folder is one below the
# prefix or one of PutFiles.cmake's; the options are those of its trelvan_put.
function(trelvan_install component folder)
  cmake_parse_arguments(arg "" "" "OPTIONS" ${ARGN})
  list(JOIN arg_OPTIONS " " options)
  foreach(file IN LISTS arg_UNPARSED_ARGUMENTS)
    install(CODE "trelvan_put(${component} \"${file}\" \"${folder}\" ${options})"
      COMPONENT ${component})
  endforeach()
endfunction()
function(trelvan_install_bundle component folder bundle)
  install(CODE "trelvan_put_bundle(${component} \"${bundle}\" \"${folder}\")"
    COMPONENT ${component})
endfunction()

set(share ${PROJECT_BINARY_DIR}/share)
trelvan_install_bundle(plugin "\${TRELVAN_VST}" ${TRELVAN_BUNDLE})
trelvan_install(plugin share/man/man7 ${share}/man/man7/trelvan.7)
trelvan_install(plugin share/metainfo ${share}/metainfo/com.orv.trelvan.metainfo.xml)
trelvan_install(plugin share/doc/trelvan-vst ${PROJECT_SOURCE_DIR}/LICENSE ${TRELVAN_NOTICES})
install(CODE "file(GLOB presets \"${share}/trelvan/presets/*\")
  foreach(preset IN LISTS presets)
    trelvan_put(plugin \"\${preset}\" \"\${TRELVAN_PRESETS}\" KEPT)
  endforeach()" COMPONENT plugin)

if(TARGET TrelvanLv2)
  trelvan_install_bundle(lv2 "\${TRELVAN_LV2}" ${TRELVAN_LV2_BUNDLE})
  trelvan_install(lv2 share/doc/trelvan-lv2 ${PROJECT_SOURCE_DIR}/LICENSE ${TRELVAN_NOTICES})
endif()

trelvan_install(widen bin $<TARGET_FILE:widen> OPTIONS PROGRAM STRIPPED)
trelvan_install(widen share/man/man1 ${share}/man/man1/widen.1)
trelvan_install(widen share/bash-completion/completions
  ${share}/bash-completion/completions/widen)
trelvan_install(widen share/zsh/site-functions ${share}/zsh/site-functions/_widen)
trelvan_install(widen share/fish/vendor_completions.d
  ${share}/fish/vendor_completions.d/widen.fish)
trelvan_install(widen share/doc/widen ${PROJECT_SOURCE_DIR}/LICENSE ${TRELVAN_NOTICES})

set(docs ${PROJECT_SOURCE_DIR}/docs)
# On macOS there is none where what makes it is missing (PluginMac.cmake); the page is made where
# docutils is (Manual.cmake).
set(manual "${TRELVAN_RESOURCES}/Trelvan Operation Manual.pdf")
set(page "${share}/doc/trelvan/Trelvan Operation Manual.html")
install(CODE "if(EXISTS \"${manual}\")
    trelvan_put(doc \"${manual}\" \"\${TRELVAN_MANUAL}\")
  endif()
  if(EXISTS \"${page}\")
    trelvan_put(doc \"${page}\" share/doc/trelvan)
  endif()" COMPONENT doc)
trelvan_install(doc share/doc/trelvan
  ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/FEATURES.md
  ${PROJECT_SOURCE_DIR}/LICENSE)
trelvan_install(doc share/doc/trelvan/docs ${docs}/formats.md ${docs}/hosts.md ${docs}/lv2.md
  ${docs}/trelvan.md ${docs}/validator.md ${docs}/widen.md)
trelvan_install(doc share/doc/trelvan/docs/pictures
  ${docs}/pictures/ardour.png ${docs}/pictures/audacity.png ${docs}/pictures/muse.png)

foreach(component IN LISTS TRELVAN_COMPONENTS)
  install(CODE "trelvan_end(${component})" COMPONENT ${component})
endforeach()
