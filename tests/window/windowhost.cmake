# The host with a window, for the tests and for the editor's benchmarks: target `windowhost`.
if(NOT TARGET windowhost)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(WINDOWTEST REQUIRED IMPORTED_TARGET
    xcb xcb-xtest xcb-damage xcb-xfixes xcb-res cairo xkbcommon)
  set(sources windowhost.cpp testdisplay.cpp picture.cpp picturematch.cpp damagewatch.cpp)
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
  add_library(windowhost STATIC ${sources})
  # The tests compare many pictures, and without optimisation this is most of their time.
  target_compile_options(windowhost PRIVATE -O2)
  target_link_libraries(windowhost PUBLIC trelvan_options PkgConfig::WINDOWTEST ${CMAKE_DL_LIBS})
  if(TRELVAN_SANITIZE)
    # Fewer rounds, leaks looked for.
    target_compile_definitions(windowhost PUBLIC TRELVAN_SANITIZED)
  endif()
endif()
