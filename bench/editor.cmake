# The benchmarks of the window: the program that bench/editor runs.
include(${PROJECT_SOURCE_DIR}/tests/window/windowhost.cmake)
add_executable(trelvan_editor_bench ${CMAKE_CURRENT_LIST_DIR}/editor.cpp)
target_link_libraries(trelvan_editor_bench PRIVATE windowhost benchmark::benchmark_main)
add_dependencies(trelvan_editor_bench Trelvan)
