# trelvan_add_plugin_documents(): what stands beside the plug-in in an installation, below share/ in
# the build folder: its manual page, the manual as a page of the web, the factory's presets as
# files, and what software centres tell.
function(trelvan_add_plugin_documents)
  set(share ${PROJECT_BINARY_DIR}/share)
  set(page ${share}/man/man7/trelvan.7)
  set(source ${PROJECT_SOURCE_DIR}/docs/trelvan.md)
  set(script ${PROJECT_SOURCE_DIR}/cmake/ManualPage.cmake)
  add_custom_command(
    OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${share}/man/man7
    COMMAND ${CMAKE_COMMAND}
      -DLOWDOWN=${TRELVAN_LOWDOWN} -DDOCUMENT=${source} -DPAGE=${page} -P ${script}
    DEPENDS ${source} ${script}
    COMMENT "Writing the plug-in's manual page"
    VERBATIM)

  set(presets ${share}/trelvan/presets)
  set(script ${PROJECT_SOURCE_DIR}/cmake/FactoryPresets.cmake)
  add_custom_command(
    OUTPUT ${presets}/Factory.orb
    COMMAND ${CMAKE_COMMAND}
      -DWIDEN=$<TARGET_FILE:widen> -DPLUGIN=${TRELVAN_BUNDLE} -DFOLDER=${presets} -P ${script}
    DEPENDS widen Trelvan ${script}
    COMMENT "Writing the factory's presets"
    VERBATIM)
  add_custom_target(plugin_documents ALL DEPENDS ${page} ${presets}/Factory.orb)
  if(TARGET trelvan_manual_page)
    add_dependencies(plugin_documents trelvan_manual_page)
  endif()

  configure_file(${PROJECT_SOURCE_DIR}/resources/metainfo/com.orv.trelvan.metainfo.xml.in
    ${share}/metainfo/com.orv.trelvan.metainfo.xml @ONLY)
endfunction()
