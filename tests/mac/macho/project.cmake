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

# Frameworks and libraries that hold the allowed symbols and nothing else. The compiler links the C
# and the Objective-C library by itself; frameworks are those that the product asks for. What that
# leaves open here, the C++ library and the toolkit's Cocoa backend, the check of imports looks at.
execute_process(
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/stubs.py ${CMAKE_BINARY_DIR}/stubs
  COMMAND_ERROR_IS_FATAL ANY)
string(JOIN " " CMAKE_MODULE_LINKER_FLAGS
  -B${CMAKE_BINARY_DIR}/bin -fuse-ld=${MACHO_LD} -mlinker-version=705 -nodefaultlibs -nostdlib++
  -Wno-unused-command-line-argument -F${CMAKE_BINARY_DIR}/stubs
  -Wl,-syslibroot,${CMAKE_BINARY_DIR}/stubs -Wl,-undefined,dynamic_lookup
  ${CMAKE_BINARY_DIR}/stubs/libSystem.tbd ${CMAKE_BINARY_DIR}/stubs/libobjc.tbd)

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

# The headers of widen's libraries are Debian's, and lie among the C library's of this system, which
# must not be seen.
set(macho_headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${macho_headers})
foreach(header sndfile.h ebur128.h CLI nlohmann)
  file(CREATE_LINK /usr/include/${header} ${macho_headers}/${header} SYMBOLIC)
endforeach()
file(GLOB macho_system_headers /usr/include/*-linux-gnu)
enable_language(OBJCXX)  # which sets the list
foreach(language CXX OBJCXX)
  list(APPEND CMAKE_${language}_IMPLICIT_INCLUDE_DIRECTORIES /usr/include ${macho_system_headers})
endforeach()
string(APPEND CMAKE_CXX_FLAGS " -isystem ${macho_headers}")

# Sources that include the toolkit find it read, once for each processor. What they forget to
# include still shows: nothing is there but what the toolkit's headers bring anyway.
function(macho_precompile)
  target_precompile_headers(trelvan
    PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${macho_toolkit}/vstgui/vstgui.h>)
  get_target_property(sources trelvan SOURCES)
  foreach(source ${sources})
    cmake_path(ABSOLUTE_PATH source)
    string(REGEX REPLACE "\\.[a-z]+$" ".h" header "${source}")
    string(REPLACE "/mac/" "/" common "${header}")
    set(includes)
    foreach(file ${source} ${header} ${common})
      if(EXISTS ${file})
        file(STRINGS ${file} lines REGEX "^#include \"(vstgui\\.h|lib/)" LIMIT_COUNT 1)
        list(APPEND includes ${lines})
      endif()
    endforeach()
    if(NOT includes)
      set_source_files_properties(${source} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
  endforeach()
endfunction()
cmake_language(DEFER CALL macho_precompile)
cmake_language(DEFER CALL include ReadOnce)
