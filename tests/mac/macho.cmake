# Label mac-macho: everything that a Mac would build, as a universal bundle made by
# Debian's clang and lld.
set(macho_options)
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(macho_options -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER})
endif()
add_test(NAME MachO COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/macho/machocheck.sh
  ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/macho ${TRELVAN_TOOLKIT_SOURCE}
  ${macho_options})
set_tests_properties(MachO PROPERTIES LABELS mac-macho TIMEOUT 2400 PROCESSORS 2)
