# Tests of what only Linux has: preferences, dialogs, alert, manual and module path.
trelvan_add_test(preferencestoretest "platform;threads"
  SOURCES preferencestoretest.cpp preferencewritingtest.cpp preferencesharingtest.cpp
    sharedfiletest.cpp
  LIBRARIES trelvan)
# With the C library's fsync and flock replaced.
trelvan_add_test(diskcallstest platform
  SOURCES diskcallstest.cpp ${PROJECT_SOURCE_DIR}/tests/support/diskcalls.cpp
  LIBRARIES trelvan)
trelvan_add_test(dialogtest platform
  SOURCES childprogramtest.cpp orphanguardtest.cpp desktopdialogtest.cpp environmenttest.cpp
    ${PROJECT_SOURCE_DIR}/tests/editor/filedialogtest.cpp alerttest.cpp xplatalerttest.cpp
    manualopenertest.cpp
    ${PROJECT_SOURCE_DIR}/tests/support/failingmemory.cpp
  LIBRARIES trelvan PkgConfig::GLIB)

# With a second thread, the bus library's, which takes turns by locks that the thread sanitizer does
# not see.
if(NOT TRELVAN_SANITIZE MATCHES "thread")
  trelvan_add_test(portaldialogtest editor
    SOURCES ${PROJECT_SOURCE_DIR}/tests/editor/portaldialogtest.cpp
      ${PROJECT_SOURCE_DIR}/tests/support/mockportal.cpp
    LIBRARIES trelvan PkgConfig::GLIB)
endif()

add_library(modulepathprobe MODULE ${CMAKE_CURRENT_LIST_DIR}/modulepathprobe.cpp
  ${PROJECT_SOURCE_DIR}/platform/linux/modulefile.cpp ${PROJECT_SOURCE_DIR}/platform/modulepath.cpp)
target_link_libraries(modulepathprobe PRIVATE trelvan_options ${CMAKE_DL_LIBS})
trelvan_add_test(modulepathtest platform
  SOURCES modulepathtest.cpp
  LIBRARIES trelvan ${CMAKE_DL_LIBS})
target_compile_definitions(modulepathtest PRIVATE TRELVAN_PROBE="$<TARGET_FILE:modulepathprobe>")
add_dependencies(modulepathtest modulepathprobe)
