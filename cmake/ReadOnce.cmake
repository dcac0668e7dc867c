# What others wrote is read once for a library and not for each of its sources, which takes the
# compiler about half as long. What a source forgets to include is for those builds to find that do
# without: for arm64 (tools/arm64.sh), and on a Mac.
if(TARGET widen_host)
  target_precompile_headers(widen_host PRIVATE <algorithm> <array> <chrono> <filesystem>
    <functional> <memory> <optional> <string> <string_view> <thread> <vector>)
  # g++ 12 then knows no longer that these are the system's, and reports lengths in the standard
  # library's strings that are not there.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 14)
    target_compile_options(widen_host PRIVATE -Wno-stringop-overflow -Wno-array-bounds)
  endif()
endif()
if(APPLE)
  return()  # the Mach-O check, which treats the toolkit in its own way
endif()
target_precompile_headers(trelvan PRIVATE ${toolkit_source}/vstgui/vstgui.h)
# The toolkit's sources, which are not ours to look after, in four pieces. The module grows by a
# fifth so, which for what is only tested does not matter.
if(TRELVAN_SANITIZE)
  set_target_properties(vstgui PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 22)
endif()
