# Linux: Trelvan.vst/Contents/<architecture>-linux/Trelvan.so with Contents/Resources/ beside it.
target_sources(trelvan PRIVATE
  platform/linux/xplatmutex.cpp)

set(TRELVAN_BUNDLE ${PROJECT_BINARY_DIR}/Trelvan.vst)
set(TRELVAN_RESOURCES ${TRELVAN_BUNDLE}/Contents/Resources)
add_library(Trelvan MODULE plugin/vstpluginmain.cpp)
target_link_libraries(Trelvan PRIVATE trelvan)
set_target_properties(Trelvan PROPERTIES
  PREFIX "" SUFFIX ".so"
  LIBRARY_OUTPUT_DIRECTORY ${TRELVAN_BUNDLE}/Contents/${CMAKE_SYSTEM_PROCESSOR}-linux
  LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
# Exactly one export. nodelete: the toolkit's libraries cannot be unloaded and registered a second time, so the module
# stays in the process when the host lets go of it, and a second load finds it again.
target_link_options(Trelvan PRIVATE
  LINKER:--exclude-libs,ALL LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map
  LINKER:-z,nodelete LINKER:--as-needed)
if(NOT TRELVAN_SANITIZE)
  target_link_options(Trelvan PRIVATE LINKER:--no-undefined)  # a sanitizer's runtime is the host program's
endif()
file(MAKE_DIRECTORY ${TRELVAN_RESOURCES})
