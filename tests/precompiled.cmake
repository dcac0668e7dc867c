# trelvan_precompile(<program>): the sources of a test program find GoogleTest already read.
#
# They take two fifths less time. That a source includes it by itself all the same is for the
# layout's test to see. On a Mac nobody has tried it.
set(CMAKE_PCH_WARN_INVALID OFF)  # a program with options of its own reads the headers again
if(NOT APPLE)
  # A program, as the others are: its options are theirs.
  add_executable(trelvan_precompiled ${CMAKE_CURRENT_LIST_DIR}/precompiled.cpp)
  target_link_libraries(trelvan_precompiled PRIVATE trelvan_options GTest::gmock GTest::gtest_main)
  target_precompile_headers(trelvan_precompiled PRIVATE <gmock/gmock.h>)
endif()

function(trelvan_precompile program)
  if(NOT TARGET trelvan_precompiled)
    return()
  endif()
  target_precompile_headers(${program} REUSE_FROM trelvan_precompiled)
  # Nor is it read for a source that does without. Many include it by a header of the tests.
  get_target_property(sources ${program} SOURCES)
  foreach(source ${sources})
    cmake_path(ABSOLUTE_PATH source)
    file(STRINGS ${source} uses LIMIT_COUNT 1
      REGEX "^#include <g(test|mock)/|^TEST(_F|_P)?\\(|(EXPECT|ASSERT)_[A-Z]+\\(|testing::")
    if(NOT uses)
      set_source_files_properties(${source} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
  endforeach()
endfunction()
