# Linux on arm64, built on another machine with Debian's cross compiler. CMAKE_SYSROOT: the arm64
# packages that the product is linked with, unpacked (tools/arm64.sh).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)  # how g++ 9 and older passed pairs is nobody's concern here
# A build type for code that is only run to be looked at: most of the compiler's time is saved.
set(CMAKE_C_FLAGS_EMULATED_INIT -DNDEBUG)
set(CMAKE_CXX_FLAGS_EMULATED_INIT -DNDEBUG)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L ${CMAKE_SYSROOT})

# Programs that help to build are this machine's, all else is the other one's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR}
  ${CMAKE_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)
