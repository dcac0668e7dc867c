# The spectrum's transform: target `widen_kissfft`, the system's library (Debian) or, where it has
# none (Homebrew), the same version of its sources.
pkg_check_modules(kissfft IMPORTED_TARGET kissfft-float)
if(kissfft_FOUND)
  add_library(widen_kissfft INTERFACE)
  target_link_libraries(widen_kissfft INTERFACE PkgConfig::kissfft)
else()
  include(FetchContent)
  # Only the sources: its own CMakeLists.txt would add tools, tests and an installation.
  FetchContent_Declare(kissfft
    GIT_REPOSITORY https://github.com/mborgerding/kissfft.git GIT_TAG 131.1.0
    SOURCE_SUBDIR none)
  FetchContent_MakeAvailable(kissfft)
  add_library(widen_kissfft STATIC
    ${kissfft_SOURCE_DIR}/kiss_fft.c ${kissfft_SOURCE_DIR}/kiss_fftr.c)
  target_include_directories(widen_kissfft SYSTEM INTERFACE ${kissfft_SOURCE_DIR})
  target_compile_definitions(widen_kissfft PUBLIC kiss_fft_scalar=float)
  target_compile_options(widen_kissfft PRIVATE -w)  # not ours to mend
endif()
