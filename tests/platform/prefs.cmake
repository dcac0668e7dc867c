# Tests of preferences, dialogs, alert, manual and module path.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GLIB REQUIRED IMPORTED_TARGET glib-2.0)

trelvan_add_test(prefstest platform SOURCES prefstest.cpp prefssharingtest.cpp tsansuppressions.cpp LIBRARIES trelvan)
trelvan_add_test(dialogtest platform
  SOURCES childprogramtest.cpp ${PROJECT_SOURCE_DIR}/tests/editor/filedialogtest.cpp xplatalerttest.cpp openmanualtest.cpp
  LIBRARIES trelvan PkgConfig::GLIB)

add_library(modulepathprobe MODULE ${CMAKE_CURRENT_LIST_DIR}/modulepathprobe.cpp
  ${PROJECT_SOURCE_DIR}/platform/linux/modulefile.cpp ${PROJECT_SOURCE_DIR}/platform/modulepath.cpp)
target_link_libraries(modulepathprobe PRIVATE trelvan_options ${CMAKE_DL_LIBS})
trelvan_add_test(modulepathtest platform SOURCES modulepathtest.cpp LIBRARIES trelvan ${CMAKE_DL_LIBS})
target_compile_definitions(modulepathtest PRIVATE TRELVAN_PROBE="$<TARGET_FILE:modulepathprobe>")
add_dependencies(modulepathtest modulepathprobe)
