# The licences in the bundle: ours, and NOTICES.txt with those of all that is compiled or copied
# into plug-in and widen. Each build has them, since a bundle is given away by itself, too.
set(notices ${PROJECT_SOURCE_DIR}/resources/notices)
set(notice_sources
  ${notices}/about.txt
  "VSTGUI 4.13.3" ${toolkit_source}/LICENSE
  "stb_textedit" ${notices}/stb.txt
  "Liberation Sans" ${TRELVAN_RESOURCE_SOURCES}/fonts/LiberationSans-LICENSE.txt
  "LV2" ${notices}/lv2.txt
  "CLI11" ${notices}/cli11.txt
  "JSON for Modern C++" ${notices}/json.txt)
if(NOT EXISTS ${toolkit_source}/LICENSE)
  # A folder of somebody's own. tests/install fails with it, and so does a release.
  message(WARNING "${toolkit_source} has no LICENSE: what is built of it may not be given away.")
  list(REMOVE_ITEM notice_sources ${toolkit_source}/LICENSE)
endif()
set(text)
foreach(source IN LISTS notice_sources)
  if(IS_ABSOLUTE "${source}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    file(READ ${source} piece)
    string(APPEND text "${piece}")
  else()
    string(REPEAT "=" 100 line)
    string(APPEND text "\n${line}\n${source}\n${line}\n\n")
  endif()
endforeach()
# No line ends with a space: licences are read, and looked through for changes.
string(REGEX REPLACE "[ \r]+\n" "\n" text "${text}")
set(TRELVAN_NOTICES ${TRELVAN_RESOURCES}/NOTICES.txt)
file(GENERATE OUTPUT ${TRELVAN_NOTICES} CONTENT "${text}")
configure_file(${PROJECT_SOURCE_DIR}/LICENSE ${TRELVAN_RESOURCES}/LICENSE.txt COPYONLY)
# On macOS the linked bundle is signed with what is in it.
set_property(TARGET Trelvan APPEND PROPERTY
  LINK_DEPENDS ${TRELVAN_NOTICES} ${TRELVAN_RESOURCES}/LICENSE.txt)
