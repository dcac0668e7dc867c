# VSTGUI: target `trelvan_toolkit`, built from a source folder that is not part of this repository.
set(TRELVAN_TOOLKIT_SOURCE "${PROJECT_SOURCE_DIR}/.deps/vstgui-4.13.3" CACHE PATH
  "Folder of the toolkit's source (which holds vstgui/); fetched from upstream where there is none")

set(VSTGUI_STANDALONE OFF CACHE BOOL "" FORCE)
set(VSTGUI_STANDALONE_EXAMPLES OFF CACHE BOOL "" FORCE)
set(VSTGUI_TOOLS OFF CACHE BOOL "" FORCE)
set(VSTGUI_ENABLE_XMLPARSER OFF CACHE BOOL "" FORCE)
set(VSTGUI_DISABLE_UNITTESTS ON CACHE BOOL "" FORCE)

set(toolkit_mending ${CMAKE_CURRENT_LIST_DIR}/MendToolkit.cmake)
if(EXISTS ${TRELVAN_TOOLKIT_SOURCE}/vstgui/vstgui.h)
  set(toolkit_source ${TRELVAN_TOOLKIT_SOURCE})
  # It may be a folder of somebody's own, which is theirs to change.
  file(STRINGS ${toolkit_source}/vstgui/lib/finally.h toolkit_wrong
    REGEX "other\\.invoke \\(false\\)")
  if(toolkit_wrong)
    message(WARNING "${toolkit_source} has a line that g++ 14 and clang 19 refuse. To mend it: "
      "cmake -DTOOLKIT=${toolkit_source} -P ${toolkit_mending}")
  endif()
else()
  include(FetchContent)
  FetchContent_Declare(vstgui
    GIT_REPOSITORY https://github.com/steinbergmedia/vstgui.git GIT_TAG vstgui4_13_3
    SOURCE_SUBDIR none PATCH_COMMAND ${CMAKE_COMMAND} -E rm -rf vstgui/plugin-bindings
    COMMAND ${CMAKE_COMMAND} -DTOOLKIT=<SOURCE_DIR> -P ${toolkit_mending})
  FetchContent_MakeAvailable(vstgui)
  set(toolkit_source ${vstgui_SOURCE_DIR})
endif()
add_subdirectory(${toolkit_source}/vstgui ${PROJECT_BINARY_DIR}/vstgui EXCLUDE_FROM_ALL)

add_library(trelvan_toolkit INTERFACE)
target_link_libraries(trelvan_toolkit INTERFACE vstgui)
target_include_directories(trelvan_toolkit SYSTEM INTERFACE ${toolkit_source}/vstgui)
# The library's own definitions are private to it and change the layout of its classes: the
# same ones here.
target_compile_definitions(trelvan_toolkit INTERFACE
  VSTGUI_ENABLE_DEPRECATED_METHODS=1 VSTGUI_OPENGL_SUPPORT=1 $<$<CONFIG:Debug>:DEBUG=1>)
