# What a Mac has and Linux has not, for the Mach-O check: included by project()
# (CMAKE_PROJECT_INCLUDE), beside toolchain.cmake.
if(NOT PROJECT_NAME STREQUAL "Trelvan")
  return()
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)
foreach(tool lipo libtool-darwin)
  find_program(MACHO_${tool} llvm-${tool}-${MACHO_LLVM} REQUIRED)
endforeach()
find_program(MACHO_LD ld64.lld-${MACHO_LLVM} REQUIRED)

# The compiler calls "lipo" by that name.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
file(CREATE_LINK ${MACHO_lipo} ${CMAKE_BINARY_DIR}/bin/lipo SYMBOLIC)
add_compile_options(-Wno-unused-command-line-argument -B${CMAKE_BINARY_DIR}/bin)
# Archives of universal objects, as macOS's own tool makes them.
foreach(language C CXX OBJCXX)
  set(CMAKE_${language}_CREATE_STATIC_LIBRARY
    "${MACHO_libtool-darwin} -static -o <TARGET> <OBJECTS>")
endforeach()

# Frameworks and libraries that hold the allowed symbols and nothing else. The C and C++ libraries'
# and the toolkit's Cocoa backend are left open here; the check of imports looks at them.
execute_process(
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/stubs.py ${CMAKE_BINARY_DIR}/stubs
  COMMAND_ERROR_IS_FATAL ANY)
file(GLOB macho_stubs ${CMAKE_BINARY_DIR}/stubs/*.tbd)
list(JOIN macho_stubs " " macho_stubs)
string(JOIN " " CMAKE_MODULE_LINKER_FLAGS
  -B${CMAKE_BINARY_DIR}/bin -fuse-ld=${MACHO_LD} -mlinker-version=705 -nodefaultlibs -nostdlib++
  -Wno-unused-command-line-argument -F${CMAKE_BINARY_DIR}/stubs -Wl,-undefined,dynamic_lookup
  ${macho_stubs})

# The toolkit without its Cocoa backend, which needs Apple's headers: its folder with a
# CMakeLists.txt of ours in it.
set(macho_toolkit ${CMAKE_BINARY_DIR}/toolkit)
file(MAKE_DIRECTORY ${macho_toolkit}/vstgui)
file(GLOB entries ${MACHO_TOOLKIT_SOURCE}/vstgui/*)
list(FILTER entries EXCLUDE REGEX "/CMakeLists\\.txt$|/plugin-bindings$")
foreach(entry ${entries})
  cmake_path(GET entry FILENAME name)
  file(CREATE_LINK ${entry} ${macho_toolkit}/vstgui/${name} SYMBOLIC)
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/toolkit.cmake
  ${macho_toolkit}/vstgui/CMakeLists.txt COPYONLY)
set(TRELVAN_TOOLKIT_SOURCE ${macho_toolkit} CACHE PATH "" FORCE)

# What widen has for macOS alone; the rest of it needs libraries that are not here for that system.
add_library(macho_widen OBJECT
  host/vst/mac/editorwindow.cpp host/vst/mac/executablepath.cpp host/vst/mac/pluginplaces.cpp)
target_include_directories(macho_widen PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_features(macho_widen PRIVATE cxx_std_20)
target_compile_options(macho_widen PRIVATE -Wall -Wextra -Werror -mmacosx-version-min=10.15)
