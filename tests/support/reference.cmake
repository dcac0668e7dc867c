# The reference as a library, for the tests and for the benchmarks, which compare with it: target
# `trelvan_reference`.
if(NOT TARGET trelvan_reference)
  add_library(trelvan_reference STATIC ${CMAKE_CURRENT_LIST_DIR}/reference.cpp)
  target_link_libraries(trelvan_reference PUBLIC trelvan_options)
  # As an ordinary program is compiled: the benchmarks' ratios are to this.
  target_compile_options(trelvan_reference PRIVATE -O2)
endif()
