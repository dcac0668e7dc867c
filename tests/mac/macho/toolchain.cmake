# Compiles and links for macOS on Linux, with Debian's clang and lld only. The result cannot run and
# is never shipped: it shows that the sources compile for both processors in Apple's Objective-C
# interface, and what they import and export.
#
# The system's headers are declarations of this project's own (tests/mac/compat),
# libc++'s and musl's.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 18)
if(NOT MACHO_LLVM)
  execute_process(COMMAND clang -dumpversion
    OUTPUT_VARIABLE macho_version COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCH "^[0-9]+" macho_version ${macho_version})
  set(MACHO_LLVM ${macho_version} CACHE STRING "Version in the tools' names")
endif()
set(MACHO_LIBCXX /usr/lib/llvm-${MACHO_LLVM}/include/c++/v1 CACHE PATH "Headers of libc++")
set(MACHO_LIBC /usr/include/x86_64-linux-musl CACHE PATH "Headers of musl")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACHO_LLVM MACHO_LIBCXX MACHO_LIBC)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

cmake_path(SET macho_compat NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../compat)
find_program(MACHO_CLANG clang-${MACHO_LLVM} REQUIRED)
find_program(MACHO_CLANGXX clang++-${MACHO_LLVM} REQUIRED)
set(CMAKE_C_COMPILER ${MACHO_CLANG})
set(CMAKE_CXX_COMPILER ${MACHO_CLANGXX})
set(CMAKE_OBJCXX_COMPILER ${MACHO_CLANGXX})
foreach(language C CXX OBJCXX)
  set(CMAKE_${language}_COMPILER_TARGET x86_64-apple-macos)  # -arch options choose among the two
  set(CMAKE_${language}_COMPILER_WORKS TRUE)
endforeach()
# CMake wants a folder that exists where there are two architectures.
set(CMAKE_OSX_SYSROOT ${macho_compat}/macho CACHE PATH "")
set(CMAKE_AR llvm-ar-${MACHO_LLVM} CACHE FILEPATH "")
set(CMAKE_RANLIB llvm-ranlib-${MACHO_LLVM} CACHE FILEPATH "")
set(CMAKE_LIPO llvm-lipo-${MACHO_LLVM} CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL /usr/bin/llvm-install-name-tool-${MACHO_LLVM} CACHE FILEPATH "")

set(macho_own "-isystem ${macho_compat}/macho -isystem ${macho_compat}/declarations")
set(macho_c "-nostdlibinc -isystem ${MACHO_LIBC} -D_GNU_SOURCE")
set(CMAKE_C_FLAGS_INIT "${macho_own} ${macho_c}")
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ ${macho_own} -isystem ${MACHO_LIBCXX} ${macho_c}")
set(CMAKE_OBJCXX_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
