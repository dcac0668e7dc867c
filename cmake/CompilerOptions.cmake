# Language level, warnings, floating-point rules and sanitizers: target `trelvan_options`, linked by
# all of our code.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Results are bits: no contraction into fused operations, here and in the toolkit alike.
add_compile_options(-ffp-contract=off)

if(TRELVAN_SANITIZE)
  # The toolkit too, or containers that it shares with us would be reported wrongly.
  add_compile_options(
    -fsanitize=${TRELVAN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TRELVAN_SANITIZE})
  # Some hundred programs are linked, and lld takes a third of the time.
  include(CheckLinkerFlag)
  check_linker_flag(CXX -fuse-ld=lld TRELVAN_LINKS_WITH_LLD)
  if(TRELVAN_LINKS_WITH_LLD)
    add_link_options(-fuse-ld=lld)
  endif()
endif()

option(TRELVAN_WERROR "Make warnings errors: for who works on the code, not for who builds it" OFF)
add_library(trelvan_options INTERFACE)
target_include_directories(trelvan_options INTERFACE ${PROJECT_SOURCE_DIR})
# In all of our code or in none: classes have another size with it.
target_compile_definitions(trelvan_options INTERFACE
  $<$<OR:$<CONFIG:Debug>,$<BOOL:${TRELVAN_CHECK_THREADS}>>:TRELVAN_CHECK_THREADS>)
target_compile_options(trelvan_options INTERFACE
  -Wall -Wextra -Wpedantic -Wcast-align -Wformat=2
  $<$<BOOL:${TRELVAN_WERROR}>:-Werror>
  # Not against members: the toolkit's classes show theirs, under names that arguments want too.
  $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>
  # g++ 12 reports overlaps inside the standard library's strings that are not there.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
